#include "tools/lvprop/doctor/Diagnosis.h"

#include "module/LanguageResources.h"
#include "platform/system/Utf8.h"

#include <algorithm>
#include <cstdio>

namespace {

using Findings = std::vector<Finding>;

struct KindName {
    FaultKind kind;
    std::string_view word;
};

constexpr KindName kKindNames[] = {
    {FaultKind::MissingLibrary, "missing-library"},
    {FaultKind::WrongBitness, "wrong-bitness"},
    {FaultKind::DamagedLibrary, "damaged-library"},
    {FaultKind::RefusedLibrary, "refused-library"},
    {FaultKind::MissingManifest, "missing-manifest"},
    {FaultKind::UnreadableManifest, "unreadable-manifest"},
    {FaultKind::MissingManifestEntry, "missing-manifest-entry"},
    {FaultKind::NotRegistered, "not-registered"},
    {FaultKind::RegisteredFor32Bit, "registered-for-32-bit"},
    {FaultKind::WrongName, "wrong-name"},
    {FaultKind::MissingLanguage, "missing-language"},
    {FaultKind::UnknownLanguage, "unknown-language"},
    {FaultKind::NotMade, "not-made"},
};

bool EqualNames(std::string_view a, std::string_view b)
{
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return std::ranges::equal(a, b, {}, lower, lower);
}

/// The classes, and those that cannot be made without them.
std::vector<std::string> LostWith(std::span<const SuiteClass> classes)
{
    std::vector<std::string> names;
    for (const SuiteClass& lost : classes) {
        names.emplace_back(lost.name);
        if (!lost.neededBy.empty())
            names.emplace_back(lost.neededBy);
    }
    return names;
}

std::string Quoted(std::string_view text)
{
    return "\"" + std::string(text) + "\"";
}

/// What is wrong with the bytes of a library that is there; the kinds are the same for all libraries.
std::optional<Finding> FaultOfImage(const LibraryFacts& library, const std::vector<std::string>& classes)
{
    if (library.image.state != PeImage::State::Whole)
        return Finding{FaultKind::DamagedLibrary, library.path, "is damaged: the file " + library.image.trouble,
                       "Copy it anew from the installation.", classes};
    if (library.image.machine != kMachineX64)
        return Finding{FaultKind::WrongBitness, library.path,
                       "is " + MachineName(library.image.machine) + "; programs and libraries of the suite are " +
                           MachineName(kMachineX64),
                       "Put the 64-bit library in its place.", classes};
    if (!library.refusal.empty())
        return Finding{FaultKind::RefusedLibrary, library.path, "is not loaded by the system: " + library.refusal,
                       "Look for a library that it needs and that is missing, and for one that is too old.", classes};
    return std::nullopt;
}

void DiagnoseManifestOfModule(const ModuleFacts& facts, Findings& findings)
{
    const SuiteModule& module = *facts.module;
    const ManifestFacts& file = facts.manifest;
    const auto add = [&](FaultKind kind, std::string reason, std::string remedy, std::vector<std::string> classes) {
        findings.push_back({kind, file.name, std::move(reason), std::move(remedy), std::move(classes)});
    };
    if (!file.isThere)
        return add(FaultKind::MissingManifest, "is not in the folder", "Copy it there, beside the library.",
                   LostWith(module.classes));
    if (!file.trouble.empty())
        return add(FaultKind::UnreadableManifest, "cannot be read: " + file.trouble,
                   "Copy it anew from the installation.", LostWith(module.classes));
    if (file.manifest.identity.name != module.assembly)
        return add(FaultKind::MissingManifestEntry,
                   "names its assembly " + Quoted(file.manifest.identity.name) + ", not " + Quoted(module.assembly),
                   "Copy it anew from the installation.", LostWith(module.classes));

    const auto entry = std::ranges::find_if(file.manifest.files,
                                            [&](const AssemblyFile& f) { return EqualNames(f.name, module.dll); });
    if (entry == file.manifest.files.end())
        return add(FaultKind::MissingManifestEntry, "has no entry for the file " + std::string(module.dll),
                   "Copy it anew from the installation.", LostWith(module.classes));
    for (const SuiteClass& served : module.classes) {
        const std::string id = served.IdText();
        if (!std::ranges::any_of(entry->classIds, [&](const std::string& written) { return EqualNames(written, id); }))
            add(FaultKind::MissingManifestEntry, "has no entry for the class " + std::string(served.name) + ' ' + id,
                "Copy it anew from the installation.", {std::string(served.name)});
    }
}

void DiagnoseModule(const ModuleFacts& facts, Findings& findings)
{
    const std::vector<std::string> classes = LostWith(facts.module->classes);
    if (!facts.library.isThere)
        findings.push_back({FaultKind::MissingLibrary, std::string(facts.module->dll), "is not in the folder",
                            "Copy it there, beside its manifest.", classes});
    else if (auto fault = FaultOfImage(facts.library, classes))
        findings.push_back(*std::move(fault));
    DiagnoseManifestOfModule(facts, findings);
}

/// A program finds the assemblies that its own manifest names, in the version that it asks for.
void DiagnoseProgram(const ManifestFacts& program, const FolderFacts& folder, Findings& findings)
{
    for (const ModuleFacts& facts : folder.modules) {
        const std::string assembly(facts.module->assembly);
        const auto named = std::ranges::find(program.manifest.dependencies, assembly, &AssemblyIdentity::name);
        const std::vector<std::string> classes = LostWith(facts.module->classes);
        if (named == program.manifest.dependencies.end()) {
            findings.push_back(
                {FaultKind::MissingManifestEntry, program.name, "does not name the assembly " + Quoted(assembly),
                 "Add a dependency on it, with the version that " + facts.manifest.name + " gives.", classes});
            continue;
        }
        const std::string& has = facts.manifest.manifest.identity.version;
        if (facts.manifest.isThere && facts.manifest.trouble.empty() && named->version != has)
            findings.push_back(
                {FaultKind::MissingManifestEntry, program.name,
                 "asks for version " + named->version + " of " + Quoted(assembly) + "; version " + has + " is there",
                 "Ask for version " + has + ".", classes});
    }
}

void DiagnoseRegistration(const RegistrationFacts& facts, Findings& findings)
{
    const std::string name(facts.suiteClass->name);
    const std::vector<std::string> classes = LostWith({facts.suiteClass, 1});
    const std::string dll(facts.module->dll);
    const std::string regsvr32 = "Run \"regsvr32 " + dll + "\" as an administrator";
    const auto add = [&](FaultKind kind, std::string reason, std::string remedy) {
        findings.push_back({kind, name, std::move(reason), std::move(remedy), classes});
    };
    if (!facts.isRegistered && facts.isRegisteredFor32Bit)
        return add(FaultKind::RegisteredFor32Bit, "is registered for 32-bit programs only",
                   regsvr32 + ", with the 64-bit regsvr32 and the 64-bit library.");
    if (!facts.isRegistered)
        return add(FaultKind::NotRegistered, "is not registered: no library is known for " + facts.suiteClass->IdText(),
                   regsvr32 + ", or use the folder of the libraries without registration.");
    if (!facts.nameLeadsHere)
        add(FaultKind::WrongName, "cannot be found by its name " + Quoted(facts.suiteClass->ProgId()),
            regsvr32 + " again.");
    if (!facts.library)
        return;
    if (!facts.library->isThere)
        return add(FaultKind::MissingLibrary, "is registered with " + facts.library->path + ", which is not there",
                   "Put the library back, or register it where it is now.");
    if (auto fault = FaultOfImage(*facts.library, classes))
        findings.push_back(*std::move(fault));
}

/// One fault of a library for all of its classes in place of one for each.
void JoinEqual(Findings& findings)
{
    Findings joined;
    for (Finding& finding : findings) {
        const auto same = std::ranges::find_if(joined, [&](const Finding& other) {
            return other.kind == finding.kind && other.subject == finding.subject && other.reason == finding.reason;
        });
        if (same == joined.end())
            joined.push_back(std::move(finding));
        else
            same->classes.insert(same->classes.end(), finding.classes.begin(), finding.classes.end());
    }
    findings = std::move(joined);
}

} // namespace

std::string_view KindWord(FaultKind kind)
{
    return std::ranges::find(kKindNames, kind, &KindName::kind)->word;
}

Findings DiagnoseFolder(const FolderFacts& folder)
{
    Findings findings;
    for (const ModuleFacts& module : folder.modules)
        DiagnoseModule(module, findings);
    for (const ManifestFacts& program : folder.programs)
        DiagnoseProgram(program, folder, findings);
    return findings;
}

Findings DiagnoseRegistrations(const std::vector<RegistrationFacts>& registrations)
{
    Findings findings;
    for (const RegistrationFacts& facts : registrations)
        DiagnoseRegistration(facts, findings);
    JoinEqual(findings);
    return findings;
}

Findings DiagnoseLanguages(const std::vector<LanguageFacts>& languages)
{
    Findings findings;
    for (const LanguageFacts& language : languages) {
        if (!language.library.isThere)
            findings.push_back({FaultKind::MissingLanguage,
                                LanguageLibraryName(language.code),
                                "is not there",
                                "Copy it beside LV_prpPropCollection.dll: whoever chose this language is told that it "
                                "is missing, and reads English.",
                                {}});
        else if (auto fault = FaultOfImage(language.library, {}))
            findings.push_back(*std::move(fault));
    }
    return findings;
}

Findings DiagnoseTrial(const TrialFacts& trial)
{
    Findings findings;
    if (!trial.refusedManifest.empty())
        findings.push_back({FaultKind::NotMade,
                            trial.refusedManifest,
                            "is not taken by the system: " + trial.refusal,
                            "Compare it with that of the installation.",
                            {}});
    if (trial.language && LanguageCode(*trial.language).empty())
        findings.push_back({FaultKind::UnknownLanguage,
                            "The settings",
                            "name the language " + std::to_string(*trial.language) + ", which is none",
                            "Choose one of 7014 to 7061 that the guide lists; until then everyone is warned, and reads "
                            "English.",
                            {}});
    for (const MadeClass& made : trial.classes) {
        if (SUCCEEDED(made.result) || IsLeftOut(made))
            continue;
        char code[16];
        std::snprintf(code, sizeof code, "%08X", static_cast<unsigned>(made.result));
        findings.push_back({FaultKind::NotMade,
                            std::string(made.suiteClass->name),
                            "cannot be made although all is in place: " + std::string(code) + ", " + made.words,
                            "Compare the versions of the libraries.",
                            {std::string(made.suiteClass->name)}});
    }
    return findings;
}

bool IsLeftOut(const MadeClass& made)
{
    return made.suiteClass->isControl && made.result == CLASS_E_CLASSNOTAVAILABLE;
}

std::string LanguageCode(LONG number)
{
    const auto* language = std::ranges::find(kLanguages, number, &Language::setting);
    return language == std::end(kLanguages) ? std::string() : Utf8From(TextView(language->suffix).substr(1));
}

std::string LanguageLibraryName(const std::string& code)
{
    return "LV_resResources_" + code + ".dll";
}

std::vector<std::string> LanguageCodes()
{
    std::vector<std::string> codes;
    for (const Language& language : kLanguages)
        codes.push_back(LanguageCode(language.setting));
    return codes;
}
