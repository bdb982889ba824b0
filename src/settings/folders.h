#pragma once
// Where the program finds its files: the per-user settings folder and the program folder that holds
// Lang/, Themes/, Examples/ and the help files.

#include <string>

namespace aurel {

// $XDG_CONFIG_HOME/<appName>, or ~/.config/<appName> when that variable is unset or empty.
std::string SettingsFolder(const std::string& appName);

// The settings folder joined with `fileName`; empty when `fileName` is empty.
std::string SettingsFilePath(const std::string& appName, const std::string& fileName);

// Creates `folder` and its parents when missing; true when it exists afterwards.
bool EnsureFolder(const std::string& folder);

// The executable's folder if it holds Lang/, else ../share/kovra beside it. Ends with a separator.
std::string ProgramFolder();
// The same rule for an executable in `executableFolder`.
std::string ProgramFolderOf(const std::string& executableFolder);

}  // namespace aurel
