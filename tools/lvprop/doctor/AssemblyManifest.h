// What a side-by-side manifest says: who the assembly is, which classes its files serve, which assemblies it needs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct AssemblyIdentity {
    std::string name;
    std::string version;
    std::string architecture;
};

struct AssemblyFile {
    std::string name;
    std::vector<std::string> classIds; ///< as they are written, with braces
};

struct AssemblyManifest {
    AssemblyIdentity identity;
    std::vector<AssemblyFile> files;
    std::vector<AssemblyIdentity> dependencies;
};

/// Throws ToolError "name:line: reason" for what is not well-formed or is no manifest.
/// @param name  as it is told in that sentence.
AssemblyManifest ReadAssemblyManifest(const std::string& name, std::string_view bytes);
