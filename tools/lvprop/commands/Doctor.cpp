// lvprop doctor: why a class of the component cannot be made.
#include "tools/lvprop/Command.h"
#include "tools/lvprop/doctor/Diagnosis.h"
#include "tools/lvprop/doctor/FolderProbe.h"
#include "tools/lvprop/doctor/SystemProbe.h"

#include <algorithm>
#include <filesystem>

namespace {

constexpr const char* kExamples =
    R"(  lvprop doctor                        the classes as this system has them registered
  lvprop doctor C:\host                a folder that is used without registration
  lvprop doctor C:\host --languages EN,DE
                                       ... that is meant to hold these two languages only
  lvprop doctor --json                 the same for programs

On Windows each library is loaded and, when nothing is wrong so far, each class made. Elsewhere a folder is judged by
what its files say. The exit status is 1 when anything is wrong.)";

struct DoctorOptions {
    std::string folder;
    std::vector<std::string> languages;
};

/// One row of the answer.
struct ClassState {
    const SuiteClass* suiteClass = nullptr;
    std::string server; ///< library, empty for a class of the program itself
    std::string state;
    bool isFine = false;
};

struct Checkup {
    std::vector<ClassState> classes;
    std::vector<LanguageFacts> languages;
    TrialFacts trial;
    std::vector<Finding> findings;
};

void Append(std::vector<Finding>& findings, std::vector<Finding> more)
{
    std::ranges::move(more, std::back_inserter(findings));
}

std::vector<std::string> InPlace(const std::vector<LanguageFacts>& languages)
{
    std::vector<std::string> codes;
    for (const LanguageFacts& language : languages)
        if (language.library.isThere && language.library.refusal.empty())
            codes.push_back(language.code);
    return codes;
}

void JudgeClasses(Checkup& checkup)
{
    for (ClassState& state : checkup.classes) {
        const std::string name(state.suiteClass->name);
        const auto& tried = checkup.trial.classes;
        const auto made = std::ranges::find(tried, state.suiteClass, &MadeClass::suiteClass);
        const bool isNamed = std::ranges::any_of(checkup.findings, [&](const Finding& finding) {
            return std::ranges::find(finding.classes, name) != finding.classes.end();
        });
        if (isNamed)
            state.state = "cannot be made";
        else if (made == tried.end())
            state.state = "in place";
        else
            state.state = IsLeftOut(*made) ? "not in this build" : "made";
        state.isFine = !isNamed;
    }
}

Checkup CheckFolder(const DoctorOptions& options)
{
    const FolderFacts folder = LookIntoFolder(options.folder);
    Checkup checkup;
    for (const ModuleFacts& facts : folder.modules)
        for (const SuiteClass& suiteClass : facts.module->classes)
            checkup.classes.push_back({&suiteClass, facts.library.path, {}});
    checkup.findings = DiagnoseFolder(folder);
    checkup.languages = LookForLanguages(options.folder, options.languages);
    Append(checkup.findings, DiagnoseLanguages(checkup.languages));
    if (checkup.findings.empty())
        checkup.trial = TryFolder(folder, InPlace(checkup.languages));
    return checkup;
}

/// The folder of the server, beside which it looks for its texts; empty while it is not there.
std::string FolderOfServer(const std::vector<RegistrationFacts>& registrations)
{
    const auto server = std::ranges::find_if(registrations, [](const RegistrationFacts& facts) {
        return facts.suiteClass->name == "prpPropertyCollection" && facts.library && facts.library->isThere;
    });
    if (server == registrations.end())
        return {};
    const std::string& path = server->library->path;
    return path.substr(0, path.find_last_of("\\/") + 1);
}

Checkup CheckRegistered(const DoctorOptions& options)
{
    const std::vector<RegistrationFacts> registrations = ReadRegistrations();
    Checkup checkup;
    for (const RegistrationFacts& facts : registrations)
        checkup.classes.push_back({facts.suiteClass, facts.library ? facts.library->path : std::string(), {}});
    checkup.findings = DiagnoseRegistrations(registrations);
    if (const std::string folder = FolderOfServer(registrations); !folder.empty()) {
        checkup.languages = LookForLanguages(folder, options.languages);
        Append(checkup.findings, DiagnoseLanguages(checkup.languages));
    }
    if (checkup.findings.empty())
        checkup.trial = TryRegistered(InPlace(checkup.languages));
    return checkup;
}

void PrintJson(const Checkup& checkup, const Console& console)
{
    Json faults = Json::array();
    for (const Finding& finding : checkup.findings)
        faults.push_back({{"kind", KindWord(finding.kind)},
                          {"subject", finding.subject},
                          {"reason", finding.reason},
                          {"remedy", finding.remedy},
                          {"classes", finding.classes}});
    Json classes = Json::array();
    for (const ClassState& state : checkup.classes)
        classes.push_back({{"name", state.suiteClass->ProgId()},
                           {"clsid", state.suiteClass->IdText()},
                           {"library", state.server},
                           {"state", state.state}});
    Json json = {{"faults", faults}, {"classes", classes}, {"languages", InPlace(checkup.languages)}};
    if (checkup.trial.language)
        json["currentLanguage"] = *checkup.trial.language;
    console.out << FormatJson(json);
}

void PrintFinding(const Finding& finding, const Console& console)
{
    console.out << console.Paint(Colour::Red, "fault") << "  " << finding.subject << ' ' << finding.reason << ".\n"
                << "       " << finding.remedy << '\n';
    if (finding.classes.empty() || finding.classes == std::vector{finding.subject})
        return;
    console.out << "       Cannot be made:";
    for (const std::string& name : finding.classes)
        console.out << ' ' << name;
    console.out << '\n';
}

void PrintText(const Checkup& checkup, const Console& console)
{
    for (const Finding& finding : checkup.findings)
        PrintFinding(finding, console);
    if (!checkup.findings.empty())
        console.out << '\n';

    Table table({{"class"}, {"state"}, {"library"}});
    for (const ClassState& state : checkup.classes)
        table.Add({std::string(state.suiteClass->name),
                   {state.state, state.isFine ? Colour::Green : Colour::Red},
                   state.server});
    table.Print(console);
    const auto bad = std::ranges::count(checkup.classes, false, &ClassState::isFine);
    console.out << '\n'
                << Counted(checkup.findings.size(), "fault") << "; " << bad << " of " << checkup.classes.size()
                << " classes cannot be made\n";
}

ExitStatus RunDoctor(const DoctorOptions& options, const Console& console)
{
    Checkup checkup = options.folder.empty() ? CheckRegistered(options) : CheckFolder(options);
    Append(checkup.findings, DiagnoseTrial(checkup.trial));
    JudgeClasses(checkup);
    if (console.json)
        PrintJson(checkup, console);
    else
        PrintText(checkup, console);
    return checkup.findings.empty() ? ExitStatus::Fine : ExitStatus::DataHasFaults;
}

} // namespace

void AddDoctorCommand(CLI::App& tool, Action& chosen)
{
    const auto options = std::make_shared<DoctorOptions>();
    options->languages = LanguageCodes();
    CLI::App& command = AddCommand(tool, chosen, "doctor", "Tells why a class of the component cannot be made",
                                   kExamples, options, &RunDoctor);
    command.add_option("FOLDER", options->folder, "Folder that is used without registration");
    command.add_option("--languages", options->languages, "Languages that are to be there; all unless given")
        ->type_name("CODE,...")
        ->delimiter(',')
        ->check(CLI::IsMember(LanguageCodes()));
}
