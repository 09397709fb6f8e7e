// Where the settings lie and how they get there and back: one small UTF-8 text for each user, read whole at each
// question and replaced whole at each change, so that several programs see each other's changes.
#pragma once

#include "suite/settings/SettingsText.h"

#include <optional>

/// Full path of the calling user's settings: the environment variable LUMEVOR_SETTINGS where it is set, else
/// "Tolvarin Plc/Lumevor/Settings.ini" in the user's folder for application data. Empty when there is no such folder.
Text UserSettingsPath();

/// Content of a settings file. A file that does not exist reads as an empty one.
/// @return nothing when the file exists and can't be read.
std::optional<SettingsText> ReadSettingsFile(const Text& path);

/// Replaces the file by way of a second one beside it, so that a reader sees the old content or the new. Folders that
/// are missing are made. False when the system refuses; the old content then stands.
bool WriteSettingsFile(const Text& path, const SettingsText& settings);
