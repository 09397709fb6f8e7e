// What a look at the system or at a folder found out, without any judgement. The diagnosis reads nothing else.
#pragma once

#include "tools/lvprop/doctor/AssemblyManifest.h"
#include "tools/lvprop/doctor/PeImage.h"
#include "tools/lvprop/doctor/SuiteParts.h"

#include <optional>
#include <string>
#include <vector>

struct LibraryFacts {
    std::string path;
    bool isThere = false;
    PeImage image;
    std::string refusal; ///< the system's words when it does not load the file; empty when it does, or was not asked
};

struct ManifestFacts {
    std::string name; ///< of the file
    bool isThere = false;
    std::string trouble; ///< why it can't be read, with its line; empty when it could
    AssemblyManifest manifest;
};

/// A library of the suite that is used from its folder, without registration.
struct ModuleFacts {
    const SuiteModule* module = nullptr;
    LibraryFacts library;
    ManifestFacts manifest;
};

struct FolderFacts {
    std::string path;
    std::vector<ModuleFacts> modules;
    std::vector<ManifestFacts> programs; ///< manifests of programs that name an assembly of the suite
};

/// What the system's table of classes says of one.
struct RegistrationFacts {
    const SuiteModule* module = nullptr;
    const SuiteClass* suiteClass = nullptr;
    bool isRegistered = false;
    bool isRegisteredFor32Bit = false;   ///< in the view of 32-bit programs
    bool nameLeadsHere = false;          ///< the ProgID gives this class
    std::optional<LibraryFacts> library; ///< nothing where the class is part of the program itself
};

struct LanguageFacts {
    std::string code; ///< "EN"
    LibraryFacts library;
};

/// What came of asking for one class.
struct MadeClass {
    const SuiteClass* suiteClass = nullptr;
    HRESULT result = E_FAIL;
    std::string words; ///< the system's for a failure
};

struct TrialFacts {
    std::string refusedManifest;    ///< the first that the system does not take; empty when it takes all
    std::string refusal;            ///< ... and its words for that
    std::optional<LONG> language;   ///< the number in the settings
    std::vector<MadeClass> classes; ///< in the order of the suite; ends where going on would open a message box
};
