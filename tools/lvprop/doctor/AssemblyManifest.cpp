#include "tools/lvprop/doctor/AssemblyManifest.h"

#include "tools/lvprop/ToolError.h"
#include "tools/lvprop/XmlDocument.h"

namespace {

std::string AttributeOf(const XmlElement& element, std::string_view name)
{
    const std::string* value = element.Attribute(name);
    return value ? *value : std::string();
}

AssemblyIdentity IdentityOf(const XmlElement* element)
{
    if (!element)
        return {};
    return {AttributeOf(*element, "name"), AttributeOf(*element, "version"),
            AttributeOf(*element, "processorArchitecture")};
}

AssemblyFile FileOf(const XmlElement& element)
{
    AssemblyFile file{AttributeOf(element, "name"), {}};
    for (const XmlElement* served : element.Children("comClass"))
        file.classIds.push_back(AttributeOf(*served, "clsid"));
    return file;
}

} // namespace

AssemblyManifest ReadAssemblyManifest(const std::string& name, std::string_view bytes)
{
    const XmlElement root = ParseXmlDocument(name, bytes);
    if (root.name != "assembly")
        RefuseInput(name + ":" + std::to_string(root.line) + ": this is no manifest of an assembly; its root is \"" +
                    root.name + "\"");
    AssemblyManifest manifest;
    manifest.identity = IdentityOf(root.Child("assemblyIdentity"));
    for (const XmlElement* file : root.Children("file"))
        manifest.files.push_back(FileOf(*file));
    for (const XmlElement* dependency : root.Children("dependency"))
        for (const XmlElement* assembly : dependency->Children("dependentAssembly"))
            manifest.dependencies.push_back(IdentityOf(assembly->Child("assemblyIdentity")));
    return manifest;
}
