#include "tests/tools/HostFolder.h"
#include "tools/lvprop/doctor/Diagnosis.h"

void HostFolder::Fill() const
{
    std::wstring program(32768, L'\0');
    program.resize(GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size())));
    const std::filesystem::path build = std::filesystem::path(program).parent_path();
    const auto copy = [&](const std::string& name) { std::filesystem::copy_file(build / name, File(name)); };
    for (const SuiteModule& module : SuiteModules()) {
        copy(std::string(module.dll));
        copy(std::string(module.assembly) + ".manifest");
    }
    for (const std::string& code : LanguageCodes())
        copy(LanguageLibraryName(code));
    SetEnvironmentVariableA("LUMEVOR_SETTINGS", File("Settings.ini").c_str());
}
