#include "tests/tools/HostFolder.h"

#include "tools/lvprop/doctor/SuiteParts.h"

HostFolder::HostFolder()
{
    Fill();
    std::string program = "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">\n";
    for (const SuiteModule& module : SuiteModules())
        program += "<dependency><dependentAssembly><assemblyIdentity type=\"win32\" name=\"" +
                   std::string(module.assembly) +
                   "\" version=\"1.85.0.21\" processorArchitecture=\"amd64\"/></dependentAssembly></dependency>\n";
    Write("host.exe.manifest", program + "</assembly>\n");
}
