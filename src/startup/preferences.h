// The ten preferences: their keys in Qln.Ini and their variables. Start-up reads them, FrmPreferences writes
// them, and no other code reads or writes the file.
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

// Reads every preference in `file` into its variable. Returns the number of all keys found, including unknown
// ones; 0 also when there is no file.
int ReadPreferences(ApplicationState& state, IniProfile& profile, const std::string& file);
// The DataSet that was open when the program last ended, or "". It has its own section in the file; a failure
// to write it is ignored.
std::string LastDataSet(const std::string& file);
void WriteLastDataSet(const std::string& file, const std::string& path);

// Writes all ten in one step; false, with a message, when that fails. Does nothing without a file.
bool WritePreferences(const ApplicationState& state, IniProfile& profile, const std::string& file);

}  // namespace quillon::startup
