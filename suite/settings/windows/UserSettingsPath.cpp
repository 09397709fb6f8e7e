#include "suite/settings/SettingsFile.h"

#include <shlobj.h>

Text UserSettingsPath()
{
    OLECHAR path[32768]; // the longest value that a variable can have
    const DWORD length = GetEnvironmentVariableW(OLESTR("LUMEVOR_SETTINGS"), path, static_cast<DWORD>(std::size(path)));
    if (length > 0 && length < std::size(path))
        return {path, length};
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, path)))
        return {};
    return Text(path) + OLESTR("\\Tolvarin Plc\\Lumevor\\Settings.ini");
}
