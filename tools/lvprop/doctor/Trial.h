// Making the classes for real, in the surroundings that the caller has set up.
#pragma once

#include "tools/lvprop/doctor/Facts.h"

/// Makes each class of a module once. The server opens a message box for a language that is unknown or has no library,
/// so its classes are not made when the settings name such a one; the settings' module must have been tried before.
/// Needs an apartment.
/// @param languages  codes of those whose libraries are in place.
void MakeClasses(const SuiteModule& module, const std::vector<std::string>& languages, TrialFacts& trial);
