#include "core/ini_profile.h"

#include <fmt/format.h>

#include <algorithm>

#include "core/file_replace.h"
#include "core/text.h"

namespace quillon {

namespace {

// The buffer sizes of profile files, less the NULs at the end.
constexpr std::size_t kNamesBuffer = 4096 - 2;
constexpr std::size_t kValueBuffer = 255 - 1;

// The text up to the first NUL.
std::string_view TextIn(std::string_view buffer) {
    return buffer.substr(0, buffer.find('\0'));
}

std::string ValueIn(const IniFile& file, std::string_view section, std::string_view key,
                    std::string_view otherwise) {
    const auto value = file.Value(section, key);
    return std::string(TextIn(LeftCharacters(value ? *value : otherwise, kValueBuffer)));
}

}  // namespace

void IniProfile::IniSetTarget(std::string_view section, std::string_view file) {
    section_ = Trim(section);
    file_ = Trim(file);
    isSet_ = true;
}

// The target with the values that are not written yet.
IniFile IniProfile::Target() const {
    IniFile file = IniFile::Read(file_);
    for (const Waiting& entry : waiting_) {
        if (entry.file == file_) file.SetValue(entry.section, entry.key, entry.value);
    }
    return file;
}

int IniProfile::IniGetAllKeys(std::vector<KeyAndValue>& table) {
    table.clear();
    if (!isSet_) {
        IniLogicError();
        return 0;
    }
    const IniFile file = Target();
    std::string names;
    for (const std::string& key : file.Keys(section_)) {
        names += key;
        names += '\0';
    }
    std::string_view buffer = LeftCharacters(names, kNamesBuffer);
    while (!buffer.empty() && buffer.front() != '\0') {
        const std::string_view name = TextIn(buffer);
        table.push_back({std::string(name), ValueIn(file, section_, name, "")});
        buffer.remove_prefix(std::min(name.size() + 1, buffer.size()));
    }
    return static_cast<int>(table.size());
}

std::string IniProfile::IniGetValue(std::string_view key, std::string_view otherwise) {
    if (isSet_) return ValueIn(Target(), section_, key, otherwise);
    IniLogicError();
    return "";
}

void IniProfile::IniWriteValue(std::string_view section, std::string_view file, std::string_view key,
                               std::string_view value) {
    waiting_.push_back({std::string(file), std::string(section), std::string(key), std::string(value)});
}

bool IniProfile::IniFlush() {
    std::vector<std::string> files;
    for (const Waiting& entry : waiting_) {
        if (std::find(files.begin(), files.end(), entry.file) == files.end()) files.push_back(entry.file);
    }
    bool done = true;
    for (const std::string& file : files) {
        const std::string failure = FlushFile(file);
        if (failure.empty()) continue;
        done = false;
        prompter_.WarningMessage(
            fmt::format("The preferences could not be saved in {}: {}.  The file stays as it was, and the "
                        "choices hold until the program ends.",
                        file, failure));
    }
    waiting_.clear();
    return done;
}

// Returns the failure, or an empty text. An existing file that cannot be read is not replaced, because its
// other content would be lost.
std::string IniProfile::FlushFile(const std::string& file) const {
    const SmallFile old = ReadSmallFile(file);
    if (!old.failure.empty()) return old.failure;
    IniFile changed = IniFile::Parse(old.bytes);
    for (const Waiting& entry : waiting_) {
        if (entry.file == file && !changed.SetValue(entry.section, entry.key, entry.value))
            return fmt::format("a line cannot hold the value of {}", entry.key);
    }
    const std::string bytes = changed.Bytes();
    return bytes == old.bytes ? "" : ReplaceFile(file, bytes);
}

void IniProfile::IniLogicError() {
    prompter_.StopMessage("QLN.INI file is corrupted.  Please contact support personnel.",
                          "IniFile Logic Error");
}

}  // namespace quillon
