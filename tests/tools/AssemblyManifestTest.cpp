#include "tools/lvprop/doctor/AssemblyManifest.h"

#include "tools/lvprop/ToolError.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

std::string RefusalOf(std::string_view bytes)
{
    try {
        (void)ReadAssemblyManifest("x.manifest", bytes);
    } catch (const ToolError& error) {
        return error.what();
    }
    return "not refused";
}

TEST(AssemblyManifest, TellsItsIdentityItsFilesAndTheirClasses)
{
    const AssemblyManifest manifest = ReadAssemblyManifest("x.manifest", R"(<?xml version="1.0"?>
<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">
    <assemblyIdentity type="win32" name="Lumevor.X" version="1.2.3.4" processorArchitecture="amd64"/>
    <file name="x.dll">
        <comClass clsid="{1}" progid="A.B.1"><progid>A.B</progid></comClass>
        <comClass clsid="{2}"/>
        <typelib tlbid="{3}" version="1.0" helpdir=""/>
    </file>
    <file name="y.dll"/>
</assembly>)");
    EXPECT_EQ(manifest.identity.name, "Lumevor.X");
    EXPECT_EQ(manifest.identity.version, "1.2.3.4");
    EXPECT_EQ(manifest.identity.architecture, "amd64");
    ASSERT_EQ(manifest.files.size(), 2u);
    EXPECT_EQ(manifest.files[0].name, "x.dll");
    EXPECT_THAT(manifest.files[0].classIds, ElementsAre("{1}", "{2}"));
    EXPECT_THAT(manifest.files[1].classIds, IsEmpty());
    EXPECT_THAT(manifest.dependencies, IsEmpty());
}

TEST(AssemblyManifest, TellsWhatAProgramDependsOn)
{
    const AssemblyManifest manifest = ReadAssemblyManifest("p.exe.manifest", R"(<a:assembly xmlns:a="urn:x">
<a:dependency><a:dependentAssembly><a:assemblyIdentity name="One" version="1"/></a:dependentAssembly></a:dependency>
<a:dependency><a:dependentAssembly><a:assemblyIdentity name="Two" version="2"/></a:dependentAssembly></a:dependency>
</a:assembly>)");
    ASSERT_EQ(manifest.dependencies.size(), 2u);
    EXPECT_EQ(manifest.dependencies[0].name, "One");
    EXPECT_EQ(manifest.dependencies[1].version, "2");
}

TEST(AssemblyManifest, RefusesWhatIsNotXmlOrNoAssembly)
{
    EXPECT_THAT(RefusalOf("<assembly><file></assembly>"), HasSubstr("x.manifest:1: "));
    EXPECT_THAT(RefusalOf(""), HasSubstr("x.manifest:"));
    EXPECT_THAT(RefusalOf("\n<html/>"), HasSubstr("x.manifest:2: this is no manifest"));
}

} // namespace
