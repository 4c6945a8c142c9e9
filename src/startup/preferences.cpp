#include "startup/preferences.h"

#include <array>
#include <vector>

#include "core/text.h"

namespace quillon::startup {

namespace {

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

bool WritePreferences(const ApplicationState& state, IniProfile& profile, const std::string& file) {
    profile.IniSetTarget(kPreferencesSection, file);
    for (const Preference& preference : kPreferences)
        profile.IniWriteValue(kPreferencesSection, file, preference.key, state.*preference.variable);
    return profile.IniFlush();
}

}  // namespace quillon::startup
