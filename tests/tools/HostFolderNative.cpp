#include "tests/tools/HostFolder.h"
#include "tests/tools/PeBytes.h"
#include "tools/lvprop/doctor/Diagnosis.h"

#include <cstdlib>

namespace {

std::string ManifestOf(const SuiteModule& module)
{
    std::string text = "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">\n"
                       "<assemblyIdentity type=\"win32\" name=\"" +
                       std::string(module.assembly) + "\" version=\"1.85.0.21\"/>\n<file name=\"" +
                       std::string(module.dll) + "\">\n";
    for (const SuiteClass& served : module.classes)
        text += "<comClass clsid=\"" + served.IdText() + "\"/>\n";
    return text + "</file>\n</assembly>\n";
}

} // namespace

void HostFolder::Fill() const
{
    for (const SuiteModule& module : SuiteModules()) {
        Write(std::string(module.dll), PeBytes());
        Write(std::string(module.assembly) + ".manifest", ManifestOf(module));
    }
    for (const std::string& code : LanguageCodes())
        Write(LanguageLibraryName(code), PeBytes());
    setenv("LUMEVOR_SETTINGS", File("Settings.ini").c_str(), 1);
}
