// The preferences file: a section of it as the target, the section's keys and values, and the writing of
// single keys. Start-up and FrmPreferences use it; it knows none of their keys.
//
// Written values wait for IniFlush, which puts all of them into the file in one step, or leaves the file as
// it was and reports why.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/ini_file.h"
#include "core/outside.h"

namespace quillon {

class IniProfile {
public:
    explicit IniProfile(Prompter& prompter) : prompter_(prompter) {}

    // Without the blanks around them.
    void IniSetTarget(std::string_view section, std::string_view file);
    struct KeyAndValue {
        std::string key, value;
        bool operator==(const KeyAndValue&) const = default;
    };
    // The keys of the target in their order, as far as their names fit into the platform's buffer; gives
    // their number.
    int IniGetAllKeys(std::vector<KeyAndValue>& table);
    // `otherwise` when the key is absent. Longer values come cut to 254 characters.
    std::string IniGetValue(std::string_view key, std::string_view otherwise);
    void IniWriteValue(std::string_view section, std::string_view file, std::string_view key,
                       std::string_view value);
    // False, with a message, when a file could not be written; what waited for it is dropped.
    bool IniFlush();
    // Reports an error in the program itself: a target was read before it was set.
    void IniLogicError();

private:
    struct Waiting {
        std::string file, section, key, value;
    };
    IniFile Target() const;
    std::string FlushFile(const std::string& file) const;

    Prompter& prompter_;
    std::string section_, file_;
    bool isSet_ = false;
    std::vector<Waiting> waiting_;
};

}  // namespace quillon
