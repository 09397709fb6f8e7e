// Registration of a component DLL: its scripts and its type library, in the order that DllRegisterServer promises.
#pragma once

#include "platform/com/Ole.h"

#include <span>

/// What a DLL writes into the registry. Refers to data of static storage.
struct ModuleRegistration {
    const OLECHAR* appId = nullptr;   ///< stands for %APPID%; null when no script uses it
    const OLECHAR* oleMisc = nullptr; ///< stands for %OLEMISC%, a decimal number; null when no script uses it
    UINT applicationScript = 0;       ///< REGISTRY resource run first and undone last; 0 for none
    std::span<const UINT> classScripts;
    HRESULT (*extraStep)(bool registering) = nullptr; ///< runs last, and is undone first
};

/// Runs the application script, the class scripts, the type library and the extra step, with the system's default as
/// the thread's locale. Stops at the first failure.
HRESULT RegisterModule(const ModuleRegistration& registration);

/// The reverse. Goes on after a failure, so that as little as possible is left, and gives the first one.
HRESULT UnregisterModule(const ModuleRegistration& registration);
