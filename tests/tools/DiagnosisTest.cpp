// What the doctor says of facts, without any system: one fault at a time in an installation that is otherwise fine.
#include "tools/lvprop/doctor/Diagnosis.h"

#include <gmock/gmock.h>

#include <set>

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

LibraryFacts FineLibrary(const std::string& path)
{
    return {path, true, {PeImage::State::Whole, {}, kMachineX64}, {}};
}

ManifestFacts FineManifest(const SuiteModule& module)
{
    ManifestFacts facts;
    facts.name = std::string(module.assembly) + ".manifest";
    facts.isThere = true;
    facts.manifest.identity = {std::string(module.assembly), "1.0.0.0", "amd64"};
    AssemblyFile file{std::string(module.dll), {}};
    for (const SuiteClass& served : module.classes)
        file.classIds.push_back(served.IdText());
    facts.manifest.files.push_back(file);
    return facts;
}

FolderFacts FineFolder()
{
    FolderFacts folder;
    folder.path = "host";
    ManifestFacts program;
    program.name = "host.exe.manifest";
    program.isThere = true;
    for (const SuiteModule& module : SuiteModules()) {
        folder.modules.push_back({&module, FineLibrary("host/" + std::string(module.dll)), FineManifest(module)});
        program.manifest.dependencies.push_back({std::string(module.assembly), "1.0.0.0", "amd64"});
    }
    folder.programs.push_back(program);
    return folder;
}

ModuleFacts& ModuleOf(FolderFacts& folder, std::string_view dll)
{
    return *std::ranges::find_if(folder.modules, [&](const ModuleFacts& m) { return m.module->dll == dll; });
}

std::vector<RegistrationFacts> FineRegistrations()
{
    std::vector<RegistrationFacts> registrations;
    for (const SuiteModule& module : SuiteModules())
        for (const SuiteClass& served : module.classes)
            registrations.push_back(
                {&module, &served, true, false, true, FineLibrary("C:\\suite\\" + std::string(module.dll))});
    return registrations;
}

RegistrationFacts& RegistrationOf(std::vector<RegistrationFacts>& registrations, std::string_view name)
{
    return *std::ranges::find_if(registrations, [&](const RegistrationFacts& r) { return r.suiteClass->name == name; });
}

/// One finding of that kind, with these words in its reason.
auto Finds(FaultKind kind, const std::string& subject, const std::string& words)
{
    return ElementsAre(AllOf(Field(&Finding::kind, kind), Field(&Finding::subject, subject),
                             Field(&Finding::reason, HasSubstr(words)),
                             Field(&Finding::remedy, testing::EndsWith("."))));
}

TEST(FolderDiagnosis, FindsNothingInAWholeFolder)
{
    EXPECT_THAT(DiagnoseFolder(FineFolder()), IsEmpty());
}

TEST(FolderDiagnosis, NamesAMissingLibraryAndTheClassesThatGoWithIt)
{
    FolderFacts folder = FineFolder();
    ModuleOf(folder, "LV_strStream.dll").library = {"host/LV_strStream.dll", false, {}, {}};
    const auto findings = DiagnoseFolder(folder);
    ASSERT_THAT(findings, Finds(FaultKind::MissingLibrary, "LV_strStream.dll", "is not in the folder"));
    EXPECT_THAT(findings[0].classes, ElementsAre("strStream", "prpPropertyCollection"));
}

TEST(FolderDiagnosis, TellsALibraryOfAnotherMachine)
{
    FolderFacts folder = FineFolder();
    ModuleOf(folder, "LV_strStream.dll").library.image.machine = kMachineX86;
    EXPECT_THAT(DiagnoseFolder(folder),
                Finds(FaultKind::WrongBitness, "host/LV_strStream.dll", "is 32-bit (x86); programs and libraries"));
}

TEST(FolderDiagnosis, TellsADamagedLibrary)
{
    FolderFacts folder = FineFolder();
    ModuleOf(folder, "LV_strStream.dll").library.image = {PeImage::State::Damaged, "is cut off", kMachineX64};
    EXPECT_THAT(DiagnoseFolder(folder),
                Finds(FaultKind::DamagedLibrary, "host/LV_strStream.dll", "is damaged: the file is cut off"));
}

TEST(FolderDiagnosis, TellsTheSystemsWordsForALibraryThatItRefuses)
{
    FolderFacts folder = FineFolder();
    ModuleOf(folder, "LV_strStream.dll").library.refusal = "Module not found (error 126)";
    EXPECT_THAT(DiagnoseFolder(folder),
                Finds(FaultKind::RefusedLibrary, "host/LV_strStream.dll", "Module not found (error 126)"));
}

TEST(FolderDiagnosis, NamesAMissingManifest)
{
    FolderFacts folder = FineFolder();
    ModuleOf(folder, "LV_prpPropCollection.dll").manifest.isThere = false;
    const auto findings = DiagnoseFolder(folder);
    ASSERT_THAT(findings,
                Finds(FaultKind::MissingManifest, "Lumevor.PropertyCollection.manifest", "is not in the folder"));
    EXPECT_THAT(findings[0].classes, SizeIs(9));
}

TEST(FolderDiagnosis, TellsAManifestThatCannotBeRead)
{
    FolderFacts folder = FineFolder();
    ModuleOf(folder, "LV_strStream.dll").manifest.trouble = "Lumevor.Stream.manifest:3: not well-formed XML";
    EXPECT_THAT(DiagnoseFolder(folder),
                Finds(FaultKind::UnreadableManifest, "Lumevor.Stream.manifest", "3: not well-formed XML"));
}

TEST(FolderDiagnosis, NamesTheClassThatAManifestLeavesOut)
{
    FolderFacts folder = FineFolder();
    AssemblyFile& file = ModuleOf(folder, "LV_prpPropCollection.dll").manifest.manifest.files[0];
    file.classIds.erase(file.classIds.begin() + 2);
    const auto findings = DiagnoseFolder(folder);
    ASSERT_THAT(findings, Finds(FaultKind::MissingManifestEntry, "Lumevor.PropertyCollection.manifest",
                                "has no entry for the class prpHelpInfo {7AFCECFB-CCCF-4518-91B9-9747A53C74B0}"));
    EXPECT_THAT(findings[0].classes, ElementsAre("prpHelpInfo"));
}

TEST(FolderDiagnosis, TakesNamesAndIdsInAnyCase)
{
    FolderFacts folder = FineFolder();
    AssemblyFile& file = ModuleOf(folder, "LV_strStream.dll").manifest.manifest.files[0];
    file = {"lv_STRSTREAM.dll", {"{ae827c8c-c1eb-49b9-b89c-35a07bb6abf4}"}};
    EXPECT_THAT(DiagnoseFolder(folder), IsEmpty());
}

TEST(FolderDiagnosis, TellsAManifestOfAnotherFileOrAnotherAssembly)
{
    FolderFacts other = FineFolder();
    ModuleOf(other, "LV_strStream.dll").manifest.manifest.files[0].name = "old.dll";
    EXPECT_THAT(DiagnoseFolder(other), Finds(FaultKind::MissingManifestEntry, "Lumevor.Stream.manifest",
                                             "has no entry for the file LV_strStream.dll"));

    FolderFacts renamed = FineFolder();
    ModuleOf(renamed, "LV_strStream.dll").manifest.manifest.identity.name = "Stream";
    EXPECT_THAT(DiagnoseFolder(renamed), Finds(FaultKind::MissingManifestEntry, "Lumevor.Stream.manifest",
                                               "names its assembly \"Stream\", not \"Lumevor.Stream\""));
}

TEST(FolderDiagnosis, NamesTheAssemblyThatAProgramLeavesOut)
{
    FolderFacts folder = FineFolder();
    std::erase_if(folder.programs[0].manifest.dependencies,
                  [](const AssemblyIdentity& assembly) { return assembly.name == "Lumevor.Stream"; });
    const auto findings = DiagnoseFolder(folder);
    ASSERT_THAT(findings, Finds(FaultKind::MissingManifestEntry, "host.exe.manifest",
                                "does not name the assembly \"Lumevor.Stream\""));
    EXPECT_THAT(findings[0].classes, ElementsAre("strStream", "prpPropertyCollection"));
}

TEST(FolderDiagnosis, TellsAProgramThatAsksForAnotherVersion)
{
    FolderFacts folder = FineFolder();
    folder.programs[0].manifest.dependencies[1].version = "0.9.0.0";
    EXPECT_THAT(DiagnoseFolder(folder),
                Finds(FaultKind::MissingManifestEntry, "host.exe.manifest",
                      "asks for version 0.9.0.0 of \"Lumevor.Stream\"; version 1.0.0.0 is there"));
}

TEST(RegistryDiagnosis, FindsNothingInAWholeRegistration)
{
    EXPECT_THAT(DiagnoseRegistrations(FineRegistrations()), IsEmpty());
}

TEST(RegistryDiagnosis, NamesAClassThatIsNotRegistered)
{
    auto registrations = FineRegistrations();
    RegistrationOf(registrations, "prpHelpInfo").isRegistered = false;
    const auto findings = DiagnoseRegistrations(registrations);
    ASSERT_THAT(findings, Finds(FaultKind::NotRegistered, "prpHelpInfo", "{7AFCECFB-CCCF-4518-91B9-9747A53C74B0}"));
    EXPECT_THAT(findings[0].remedy, HasSubstr("regsvr32 LV_prpPropCollection.dll"));
}

TEST(RegistryDiagnosis, TellsAClassThatOnly32BitProgramsSee)
{
    auto registrations = FineRegistrations();
    RegistrationOf(registrations, "strStream").isRegistered = false;
    RegistrationOf(registrations, "strStream").isRegisteredFor32Bit = true;
    EXPECT_THAT(DiagnoseRegistrations(registrations),
                Finds(FaultKind::RegisteredFor32Bit, "strStream", "is registered for 32-bit programs only"));
}

TEST(RegistryDiagnosis, TellsANameThatLeadsElsewhere)
{
    auto registrations = FineRegistrations();
    RegistrationOf(registrations, "strStream").nameLeadsHere = false;
    EXPECT_THAT(DiagnoseRegistrations(registrations),
                Finds(FaultKind::WrongName, "strStream", "by its name \"Tolvarin.strStream\""));
}

TEST(RegistryDiagnosis, TellsARegisteredLibraryThatIsNotThere)
{
    auto registrations = FineRegistrations();
    RegistrationOf(registrations, "strStream").library->isThere = false;
    EXPECT_THAT(DiagnoseRegistrations(registrations),
                Finds(FaultKind::MissingLibrary, "strStream", "is registered with C:\\suite\\LV_strStream.dll"));
}

TEST(RegistryDiagnosis, TellsTheFaultOfALibraryOnceForAllOfItsClasses)
{
    auto registrations = FineRegistrations();
    for (RegistrationFacts& facts : registrations)
        if (facts.module->dll == "LV_prpPropCollection.dll")
            facts.library->image.machine = kMachineX86;
    const auto findings = DiagnoseRegistrations(registrations);
    ASSERT_THAT(findings, Finds(FaultKind::WrongBitness, "C:\\suite\\LV_prpPropCollection.dll", "is 32-bit (x86)"));
    EXPECT_THAT(findings[0].classes, SizeIs(9));
}

TEST(RegistryDiagnosis, AsksNoLibraryOfClassesThatArePartOfTheProgram)
{
    auto registrations = FineRegistrations();
    for (RegistrationFacts& facts : registrations)
        facts.library.reset();
    EXPECT_THAT(DiagnoseRegistrations(registrations), IsEmpty());
}

TEST(LanguageDiagnosis, NamesEachMissingAndEachDamagedLibrary)
{
    std::vector<LanguageFacts> languages = {{"EN", FineLibrary("LV_resResources_EN.dll")},
                                            {"DE", {"LV_resResources_DE.dll", false, {}, {}}}};
    EXPECT_THAT(DiagnoseLanguages(languages),
                Finds(FaultKind::MissingLanguage, "LV_resResources_DE.dll", "is not there"));
    languages[1].library = FineLibrary("LV_resResources_DE.dll");
    languages[1].library.image.state = PeImage::State::NoImage;
    EXPECT_THAT(DiagnoseLanguages(languages), Finds(FaultKind::DamagedLibrary, "LV_resResources_DE.dll", "is damaged"));
}

/// A trial in which that came of making these classes.
TrialFacts TrialOf(std::vector<MadeClass> classes)
{
    TrialFacts trial;
    trial.classes = std::move(classes);
    return trial;
}

TEST(TrialDiagnosis, FindsNothingWhenAllIsMadeOrAControlLeftOutOfTheBuild)
{
    const SuiteClass& settings = SuiteModules()[0].classes[0];
    const SuiteClass& control = SuiteModules()[2].classes[8];
    ASSERT_TRUE(control.isControl);
    TrialFacts trial = TrialOf({{&settings, S_OK, {}}, {&control, CLASS_E_CLASSNOTAVAILABLE, "left out"}});
    trial.language = 7014;
    EXPECT_THAT(DiagnoseTrial(trial), IsEmpty());
    trial.classes[0].result = CLASS_E_CLASSNOTAVAILABLE;
    EXPECT_THAT(DiagnoseTrial(trial), Finds(FaultKind::NotMade, "setSettings", "80040111"));
}

TEST(TrialDiagnosis, TellsTheCodeAndTheWordsOfAFailure)
{
    const SuiteClass& first = SuiteModules()[0].classes[0];
    EXPECT_THAT(DiagnoseTrial(TrialOf({{&first, E_NOINTERFACE, "No such interface"}})),
                Finds(FaultKind::NotMade, "setSettings", "80004002, No such interface"));
}

TEST(TrialDiagnosis, TellsALanguageThatIsNone)
{
    TrialFacts trial;
    trial.language = 7018;
    EXPECT_THAT(DiagnoseTrial(trial), Finds(FaultKind::UnknownLanguage, "The settings", "7018, which is none"));
}

TEST(TrialDiagnosis, TellsAManifestThatTheSystemDoesNotTake)
{
    TrialFacts trial;
    trial.refusedManifest = "Lumevor.Stream.manifest";
    trial.refusal = "no such assembly (error 14001)";
    EXPECT_THAT(DiagnoseTrial(trial), Finds(FaultKind::NotMade, "Lumevor.Stream.manifest", "error 14001"));
}

TEST(Languages, HaveCodesAndLibrariesByTheirNumbers)
{
    EXPECT_THAT(LanguageCodes(), ElementsAre("EN", "DE", "FR", "IT", "ES", "JP", "KO", "TC", "SC", "CZ"));
    EXPECT_EQ(LanguageCode(7061), "CZ");
    EXPECT_EQ(LanguageCode(7018), "");
    EXPECT_EQ(LanguageLibraryName("CZ"), "LV_resResources_CZ.dll");
}

TEST(FaultKinds, HaveAWordEach)
{
    std::set<std::string_view> words;
    for (int kind = 0; kind <= static_cast<int>(FaultKind::NotMade); ++kind)
        words.insert(KindWord(static_cast<FaultKind>(kind)));
    EXPECT_THAT(words, SizeIs(static_cast<int>(FaultKind::NotMade) + 1));
    EXPECT_THAT(words, Contains("missing-library"));
}

} // namespace
