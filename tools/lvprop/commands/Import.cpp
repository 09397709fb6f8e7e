// lvprop import: a QIF document into a routine file.
#include "tools/lvprop/Command.h"
#include "tools/lvprop/Files.h"
#include "tools/lvprop/QifImport.h"
#include "tools/lvprop/RoutineFile.h"

namespace {

constexpr const char* kExamples =
    R"(  lvprop import plate.qif -o plate.json          a routine of the plan, and a report of what it holds
  lvprop import plate.qif > plate.json           the routine on the output, the report on the error stream
  lvprop import plate.qif -o plate.json --json   the report for a program
  lvprop import odd.qif -o odd.json --unit inch  a document that names no unit)";

struct ImportOptions {
    std::string document;
    std::string output = "-";
    QifOptions qif;
};

Json JsonOf(const QifImportResult& result)
{
    const QifReport& report = result.report;
    Json definitions = Json::array();
    for (const QifKindCount& entry : report.definitions)
        definitions.push_back({{"kind", entry.kind}, {"family", QifFamilyName(entry.family)}, {"count", entry.count}});
    return {{"version", report.version},  {"unit", report.unit},    {"properties", result.routine.properties.size()},
            {"definitions", definitions}, {"kept", report.carried}, {"keptOtherwise", report.altered},
            {"leftOut", report.left},     {"faults", report.faults}};
}

void PrintCounts(const std::string& title, const std::map<std::string, size_t>& counts, std::ostream& out,
                 const Console& console)
{
    if (counts.empty())
        return;
    out << '\n' << console.Paint(Colour::Bold, title) << '\n';
    size_t width = 0;
    for (const auto& [kind, count] : counts)
        width = std::max(width, std::to_string(count).size());
    for (const auto& [kind, count] : counts) {
        const std::string number = std::to_string(count);
        out << "  " << std::string(width - number.size(), ' ') << number << "  " << kind << '\n';
    }
}

void PrintReport(const ImportOptions& options, const QifImportResult& result, std::ostream& out, const Console& console)
{
    const QifReport& report = result.report;
    out << options.document << ": QIF " << report.version << ", unit " << report.unit << ", "
        << result.routine.properties.size() << " properties\n\n"
        << console.Paint(Colour::Bold, "Characteristics by kind:") << '\n';
    for (const QifFamily family : {QifFamily::Geometric, QifFamily::Linear, QifFamily::Angular, QifFamily::None}) {
        std::string kinds;
        for (const QifKindCount& entry : report.definitions)
            if (entry.family == family)
                kinds += (kinds.empty() ? "  " : ", ") + entry.kind + " " + std::to_string(entry.count);
        const std::string name = family == QifFamily::None ? "no counterpart" : std::string(QifFamilyName(family));
        out << "  " << name << std::string(16 - name.size(), ' ') << report.CountOf(family) << kinds << '\n';
    }
    PrintCounts("Kept:", report.carried, out, console);
    PrintCounts("Kept in another form:", report.altered, out, console);
    PrintCounts("No counterpart, left out:", report.left, out, console);
    for (const std::string& fault : report.faults)
        out << console.Paint(Colour::Red, fault) << '\n';
}

ExitStatus RunImport(const ImportOptions& options, const Console& console)
{
    const std::string bytes = ReadFile(options.document);
    const QifImportResult result = ImportQif(options.document, bytes, options.qif);
    WriteFile(options.output, WriteRoutine(result.routine));
    std::ostream& out = options.output == "-" ? console.err : console.out;
    if (console.json)
        out << FormatJson(JsonOf(result));
    else
        PrintReport(options, result, out, console);
    return result.report.faults.empty() ? ExitStatus::Fine : ExitStatus::DataHasFaults;
}

} // namespace

void AddImportCommand(CLI::App& tool, Action& chosen)
{
    const auto options = std::make_shared<ImportOptions>();
    CLI::App& command = AddCommand(tool, chosen, "import", "Reads a QIF document (2.x, 3.0) into a routine file",
                                   kExamples, options, &RunImport);
    command.add_option("FILE", options->document, "QIF document")->type_name("FILE")->required();
    command.add_option("-o,--output", options->output, "Routine file to write; - for the output")
        ->capture_default_str();
    command.add_option("--unit", options->qif.assumedUnit, "Unit of a document that names none")
        ->check(CLI::IsMember({"mm", "inch"}));
    command.add_flag("--modifiers-in-names", options->qif.modifiersInDatumNames,
                     "Write the material modifier of a datum behind its name, as B(M)");
}
