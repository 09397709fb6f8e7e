// From facts to sentences: what is wrong, what cannot be made for it, and what to do. Pure functions.
#pragma once

#include "tools/lvprop/doctor/Facts.h"

#include <string>
#include <vector>

enum class FaultKind {
    MissingLibrary,
    WrongBitness,
    DamagedLibrary,
    RefusedLibrary,
    MissingManifest,
    UnreadableManifest,
    MissingManifestEntry,
    NotRegistered,
    RegisteredFor32Bit,
    WrongName,
    MissingLanguage,
    UnknownLanguage,
    NotMade
};

/// One word with dashes for programs, "missing-library".
std::string_view KindWord(FaultKind kind);

struct Finding {
    FaultKind kind;
    std::string subject;              ///< the file or class that the fault lies in
    std::string reason;               ///< goes on behind the subject: "is not there"
    std::string remedy;               ///< a sentence that tells what to do
    std::vector<std::string> classes; ///< that cannot be made for it
};

std::vector<Finding> DiagnoseFolder(const FolderFacts& folder);
std::vector<Finding> DiagnoseRegistrations(const std::vector<RegistrationFacts>& registrations);
std::vector<Finding> DiagnoseLanguages(const std::vector<LanguageFacts>& languages);
std::vector<Finding> DiagnoseTrial(const TrialFacts& trial);

/// True for a control that the library in place does not make: builds may leave controls out, and nothing of the
/// installation is wrong.
bool IsLeftOut(const MadeClass& made);

/// Code of a language by its number in the settings; empty for a number that is none.
std::string LanguageCode(LONG number);
/// "LV_resResources_EN.dll".
std::string LanguageLibraryName(const std::string& code);
/// All codes, in the order of their numbers.
std::vector<std::string> LanguageCodes();
