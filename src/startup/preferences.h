// The ten preferences: their keys in Qln.Ini and the variables that they stand for. Start-up reads them,
// FrmPreferences writes them, and no other code reads or writes the file.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "core/application_state.h"
#include "core/ini_profile.h"

namespace quillon::startup {

inline constexpr std::string_view kPreferencesSection = "Taxonomic Quillon";
inline constexpr std::string_view kPreferencesFile = "Qln.Ini";
inline constexpr std::string_view kKingdomKey = "Kingdom";

struct Preference {
    std::string_view key;
    std::string ApplicationState::*variable;
};
// In the order of writing.
std::span<const Preference> Preferences();

// Stores every key of `file` that is a preference in its variable. Returns the number of all keys found,
// those that the program does not know among them; 0 also when there is no file.
int ReadPreferences(ApplicationState& state, IniProfile& profile, const std::string& file);
// The DataSet that was open when the program ended last, "" when none was noted. It stands in a section of
// its own, beside the preferences, and a note that cannot be written is left out without a message.
std::string LastDataSet(const std::string& file);
void WriteLastDataSet(const std::string& file, const std::string& path);

// All ten, in one step; false, with a message, when they could not be written.
bool WritePreferences(const ApplicationState& state, IniProfile& profile, const std::string& file);

}  // namespace quillon::startup
