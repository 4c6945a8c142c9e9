// The preferences file: selects a section as the target, and reads and writes its keys. Start-up and
// FrmPreferences use it and define the keys.
//
// IniFlush writes all new values to the file in one step. If that fails it reports why and leaves the file
// unchanged.
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

    // Surrounding blanks are ignored.
    void IniSetTarget(std::string_view section, std::string_view file);
    struct KeyAndValue {
        std::string key, value;
        bool operator==(const KeyAndValue&) const = default;
    };
    // Reads the keys of the target in file order, up to 4,094 bytes of names; returns their number.
    int IniGetAllKeys(std::vector<KeyAndValue>& table);
    // `otherwise` when the key is absent. Values are cut to 254 characters.
    std::string IniGetValue(std::string_view key, std::string_view otherwise);
    void IniWriteValue(std::string_view section, std::string_view file, std::string_view key,
                       std::string_view value);
    // Returns false, with a message, when a file could not be written; its new values are dropped.
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
