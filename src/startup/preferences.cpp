#include "startup/preferences.h"

#include <array>
#include <filesystem>
#include <system_error>
#include <vector>

#include "core/file_replace.h"
#include "core/ini_file.h"
#include "core/text.h"

namespace quillon::startup {

namespace {

constexpr std::string_view kLastRunSection = "Last Run";
constexpr std::string_view kLastDataSetKey = "DataSet";

constexpr std::array<Preference, 10> kPreferences = {{
    {kKingdomKey, &ApplicationState::gKingdomName},
    {"Rank", &ApplicationState::gPrefRank},
    {"DataSet", &ApplicationState::gPrefDataSet},
    {"Author", &ApplicationState::gPrefAuthor},
    {"Warnings", &ApplicationState::gPrefWarnings},
    {"Save References", &ApplicationState::gPrefSaveReferences},
    {"Save Author", &ApplicationState::gPrefSaveAuthor},
    {"Save Parent", &ApplicationState::gPrefSaveParent},
    {"Save Comments", &ApplicationState::gPrefSaveComments},
    {"Save Other Fields", &ApplicationState::gPrefSaveOtherFields},
}};

}  // namespace

std::span<const Preference> Preferences() {
    return kPreferences;
}

int ReadPreferences(ApplicationState& state, IniProfile& profile, const std::string& file) {
    profile.IniSetTarget(kPreferencesSection, file);
    std::vector<IniProfile::KeyAndValue> table;
    const int count = profile.IniGetAllKeys(table);
    for (const auto& [key, value] : table) {
        for (const Preference& preference : kPreferences) {
            if (EqualText(key, preference.key)) state.*preference.variable = value;
        }
    }
    return count;
}

std::string LastDataSet(const std::string& file) {
    if (file.empty()) return "";
    return IniFile::Read(file).Value(kLastRunSection, kLastDataSetKey).value_or("");
}

void WriteLastDataSet(const std::string& file, const std::string& path) {
    if (file.empty()) return;
    const SmallFile old = ReadSmallFile(file);
    if (!old.failure.empty()) return;
    std::error_code failure;
    const std::string absolute = std::filesystem::absolute(path, failure).string();
    IniFile changed = IniFile::Parse(old.bytes);
    if (failure || !changed.SetValue(kLastRunSection, kLastDataSetKey, absolute)) return;
    if (const std::string bytes = changed.Bytes(); bytes != old.bytes) ReplaceFile(file, bytes);
}

bool WritePreferences(const ApplicationState& state, IniProfile& profile, const std::string& file) {
    if (file.empty()) return true;
    profile.IniSetTarget(kPreferencesSection, file);
    for (const Preference& preference : kPreferences)
        profile.IniWriteValue(kPreferencesSection, file, preference.key, state.*preference.variable);
    return profile.IniFlush();
}

}  // namespace quillon::startup
