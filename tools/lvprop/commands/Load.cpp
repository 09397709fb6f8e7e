// lvprop load: a saved text into a routine's tree, with everything that did not fit.
#include "platform/system/Utf8.h"
#include "tools/lvprop/Command.h"
#include "tools/lvprop/Files.h"
#include "tools/lvprop/Inputs.h"
#include "tools/lvprop/Keywords.h"

namespace {

constexpr const char* kExamples =
    R"(  lvprop load plate.json plate.txt                  what was taken, and what was not
  lvprop load plate.json old.txt --version 0        a text of the format before the present one
  lvprop load plate.json plate.txt -o again.txt     and the text that the tree saves afterwards)";

constexpr size_t kValueColumns = 60;

struct LoadOptions {
    TreeInputs inputs;
    std::string output;
};

using CategoryGetter = HRESULT (STDMETHODCALLTYPE IqorPropertyCollection::*)(LONG*);

/// The properties that the load has put under one of its two categories.
std::vector<TreeProperty> KeptUnder(const PropertyTree& tree, const std::vector<TreeProperty>& properties,
                                    CategoryGetter get)
{
    LONG category = E_PROP_ID_INVALID;
    During("the categories cannot be read", [&] { lumevor::Check((tree.Collection().Get()->*get)(&category)); });
    std::vector<TreeProperty> kept;
    for (const TreeProperty& read : properties)
        if (read.property.parent == category)
            kept.push_back(read);
    return kept;
}

Json JsonOf(const std::vector<TreeProperty>& kept)
{
    Json list = Json::array();
    for (const TreeProperty& read : kept)
        list.push_back(
            {{"id", read.property.id}, {"type", WordOf(kDataTypeWords, read.property.type)}, {"value", read.shown}});
    return list;
}

void PrintKept(const std::string& title, const std::vector<TreeProperty>& kept, const Console& console)
{
    if (kept.empty())
        return;
    console.out << '\n' << console.Paint(Colour::Bold, title) << '\n';
    Table table({{"id", true}, {"saved type"}, {"value"}});
    for (const TreeProperty& read : kept)
        table.Add({std::to_string(read.property.id), WordOf(kDataTypeWords, read.property.type),
                   OneLine(read.shown, kValueColumns)});
    table.Print(console);
}

void PrintOutcome(size_t records, const LoadOutcome& outcome, const std::vector<TreeProperty>& unused,
                  const std::vector<TreeProperty>& mismatched, const Console& console)
{
    if (console.json) {
        console.out << FormatJson({{"records", records},
                                   {"complete", outcome.isComplete},
                                   {"faults", outcome.faults},
                                   {"endedEarly", outcome.raised},
                                   {"unused", JsonOf(unused)},
                                   {"mismatched", JsonOf(mismatched)}});
    } else {
        console.out << Counted(records, "record") << ", " << Counted(outcome.faults.size(), "fault") << '\n';
        for (const std::string& fault : outcome.faults)
            console.out << console.Paint(Colour::Red, "  " + fault) << '\n';
        if (!outcome.raised.empty())
            console.out << console.Paint(Colour::Red, "The load ended early: " + outcome.raised) << '\n';
        PrintKept("Unused saved data, kept:", unused, console);
        PrintKept("Mismatched saved data, kept:", mismatched, console);
    }
}

ExitStatus RunLoad(const LoadOptions& options, const Console& console)
{
    const Routine routine = ReadRoutine(options.inputs.routine);
    const SavedFile saved = OpenSaved(options.inputs.saved);
    const PropertyTree tree(routine);
    size_t records = 0;
    saved.ForEachRecord([&](size_t, size_t, const Text&) { ++records; });
    const LoadOutcome outcome = tree.Load(saved.WholeText(), options.inputs.version);
    const std::vector<TreeProperty> properties = tree.Read();
    const auto unused = KeptUnder(tree, properties, &IqorPropertyCollection::GetUnusedSaveDataCategoryID);
    const auto mismatched = KeptUnder(tree, properties, &IqorPropertyCollection::GetMismatchedSaveDataCategoryID);
    PrintOutcome(records, outcome, unused, mismatched, console.BesideFile(options.output));
    if (!options.output.empty() && outcome.raised.empty())
        WriteFile(options.output, Utf8From(tree.Save()) + "\n");
    return outcome.isComplete && outcome.raised.empty() ? ExitStatus::Fine : ExitStatus::DataHasFaults;
}

} // namespace

void AddLoadCommand(CLI::App& tool, Action& chosen)
{
    const auto options = std::make_shared<LoadOptions>();
    CLI::App& command =
        AddCommand(tool, chosen, "load", "Loads a saved text and tells what did not fit", kExamples, options, &RunLoad);
    command.add_option("ROUTINE", options->inputs.routine, "Routine file")->type_name("FILE")->required();
    command.add_option("SAVED", options->inputs.saved, "Saved text")->type_name("FILE")->required();
    AddVersionOption(command, options->inputs.version);
    command.add_option("-o,--output", options->output, "File for the text that the tree saves afterwards")
        ->type_name("FILE");
}
