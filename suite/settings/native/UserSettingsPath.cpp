#include "suite/settings/SettingsFile.h"

#include <cstdlib>
#include <filesystem>

Text UserSettingsPath()
{
    const auto variable = [](const char* name) { return std::getenv(name) ? std::getenv(name) : ""; };
    if (const std::filesystem::path file = variable("LUMEVOR_SETTINGS"); !file.empty())
        return file.u16string();
    std::filesystem::path folder = variable("XDG_CONFIG_HOME");
    if (folder.empty()) {
        folder = variable("HOME");
        if (folder.empty())
            return {};
        folder /= ".config";
    }
    return (folder / "Tolvarin Plc" / "Lumevor" / "Settings.ini").u16string();
}
