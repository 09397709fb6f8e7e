// lvprop convert: the tree in the other unit system, with both values of every field that changed.
#include "platform/system/Utf8.h"
#include "tools/lvprop/Command.h"
#include "tools/lvprop/Files.h"
#include "tools/lvprop/Inputs.h"
#include "tools/lvprop/Keywords.h"
#include "tools/lvprop/PropertyFields.h"
#include "tools/lvprop/RoutineFile.h"

#include <unordered_map>

namespace {

constexpr const char* kExamples = R"(  lvprop convert plate.json --to imperial                       what would change
  lvprop convert plate.json --to imperial -o plate-inch.json    and the routine in the other unit
  lvprop convert plate.json plate.txt --to metric --saved m.txt and the saved text in it)";

struct ConvertOptions {
    TreeInputs inputs;
    std::string target;
    std::string output;
    std::string savedOutput;
};

/// The routine with the values and bounds that the tree has now. Names, rules and items stay those of the routine.
Routine WithValuesOf(Routine routine, const std::vector<TreeProperty>& properties, EprpUnitMode mode)
{
    std::unordered_map<LONG, const RoutineProperty*> read;
    for (const TreeProperty& property : properties)
        read.emplace(property.property.id, &property.property);
    routine.unitMode = mode;
    for (RoutineProperty& property : routine.properties) {
        const auto found = read.find(property.id);
        if (found == read.end())
            continue;
        property.value = found->second->value;
        property.text.reset();
        property.lowerBound = found->second->lowerBound;
        property.upperBound = found->second->upperBound;
        property.error = found->second->error;
    }
    return routine;
}

Json JsonOf(const FieldDifference& difference)
{
    return {{"id", difference.id},       {"name", difference.property}, {"type", difference.type},
            {"field", difference.field}, {"before", difference.before}, {"after", difference.after}};
}

void PrintTable(const std::vector<FieldDifference>& differences, const Console& console)
{
    Table table({{"id", true}, {"name"}, {"type"}, {"field"}, {"before", true}, {"after", true}});
    for (const FieldDifference& difference : differences)
        table.Add({std::to_string(difference.id), OneLine(difference.property, 40), difference.type, difference.field,
                   OneLine(difference.before, 48), OneLine(difference.after, 48)});
    if (!table.IsEmpty())
        table.Print(console);
    console.out << Counted(differences.size(), "field") << " changed\n";
}

ExitStatus RunConvert(const ConvertOptions& options, const Console& console)
{
    const LoadedTree loaded = OpenTree(options.inputs, console);
    const auto mode = static_cast<EprpUnitMode>(ValueOf(kUnitModeWords, options.target).value_or(E_METRIC));
    const std::vector<TreeProperty> before = loaded.tree.Read();
    // A conversion to the present mode would multiply all the same.
    if (mode == loaded.routine.unitMode)
        console.err << options.inputs.routine << ": the routine is " << options.target
                    << " already; nothing is converted\n";
    else
        loaded.tree.ConvertTo(mode);
    const std::vector<TreeProperty> after = loaded.tree.Read();
    const std::vector<FieldDifference> differences = CompareTrees(before, after);

    const Console report = console.BesideFile(options.savedOutput == "-" ? options.savedOutput : options.output);
    if (report.json) {
        Json json = Json::array();
        for (const FieldDifference& difference : differences)
            json.push_back(JsonOf(difference));
        report.out << FormatJson({{"unitMode", options.target}, {"changes", json}});
    } else {
        PrintTable(differences, report);
    }
    if (!options.output.empty())
        WriteFile(options.output, WriteRoutine(WithValuesOf(loaded.routine, after, mode)));
    if (!options.savedOutput.empty())
        WriteFile(options.savedOutput, Utf8From(loaded.tree.Save()) + "\n");
    return loaded.isComplete ? ExitStatus::Fine : ExitStatus::DataHasFaults;
}

} // namespace

void AddConvertCommand(CLI::App& tool, Action& chosen)
{
    const auto options = std::make_shared<ConvertOptions>();
    CLI::App& command = AddCommand(tool, chosen, "convert", "Converts a tree between metric and imperial", kExamples,
                                   options, &RunConvert);
    AddTreeOptions(command, options->inputs);
    command.add_option("--to", options->target, "Unit system")
        ->required()
        ->check(CLI::IsMember({"metric", "imperial"}));
    command.add_option("-o,--output", options->output, "File for the routine in the new unit")->type_name("FILE");
    command.add_option("--saved", options->savedOutput, "File for the saved text in the new unit")->type_name("FILE");
}
