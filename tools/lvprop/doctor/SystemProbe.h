// What the doctor asks of the system itself. Each system has a body of its own.
#pragma once

#include "tools/lvprop/doctor/Facts.h"

#include <string>
#include <vector>

/// The system's words for why it does not load a library; empty when it does, or when it is not the library's system.
std::string LoadRefusal(const std::string& path);

/// What the system's table of classes says: the registry on Windows, the classes of the program natively.
std::vector<RegistrationFacts> ReadRegistrations();

/// Makes each class as any program would.
/// @param languages  those whose libraries are in place.
TrialFacts TryRegistered(const std::vector<std::string>& languages);

/// Makes each class with the manifest of its module in force; nothing on a system that has none.
TrialFacts TryFolder(const FolderFacts& folder, const std::vector<std::string>& languages);
