// Looks into a folder of Windows files, on any system: which parts of the suite are there, what the files say.
#pragma once

#include "tools/lvprop/doctor/Facts.h"

#include <string>
#include <vector>

/// Throws ToolError when there is no such folder.
FolderFacts LookIntoFolder(const std::string& folder);

/// The language libraries of these codes.
std::vector<LanguageFacts> LookForLanguages(const std::string& folder, const std::vector<std::string>& codes);

/// One library, which need not be there. Where the system can load it, it is asked to.
LibraryFacts LookAtLibrary(const std::string& path);
