// What the suite consists of: its libraries with their assemblies, and the classes that each serves.
#pragma once

#include "platform/com/Ole.h"

#include <span>
#include <string>
#include <string_view>

struct SuiteClass {
    std::string_view name; ///< the ProgID without the vendor
    CLSID id;
    bool isControl = false;         ///< needs a window system
    std::string_view neededBy = {}; ///< the class that cannot be made without this one; empty when there is none

    std::string ProgId() const { return "Tolvarin." + std::string(name); }
    /// In braces, as the registry and the manifests write it.
    std::string IdText() const;
};

struct SuiteModule {
    std::string_view dll;
    std::string_view assembly; ///< its manifest has this name and the ending ".manifest"
    std::span<const SuiteClass> classes;
};

/// The settings component comes first: what it says of the language decides whether the others speak up.
std::span<const SuiteModule> SuiteModules();

inline constexpr std::string_view kSuiteAssemblies = "Lumevor."; ///< how the names of all assemblies begin
inline constexpr std::string_view kSettingsAssembly = "Lumevor.Settings";
inline constexpr std::string_view kServerAssembly = "Lumevor.PropertyCollection";
