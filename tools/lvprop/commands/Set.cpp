// lvprop set: values set by their text in one transaction, and the events that a sink receives at its end.
#include "platform/system/Utf8.h"
#include "tools/lvprop/Command.h"
#include "tools/lvprop/Files.h"
#include "tools/lvprop/Inputs.h"
#include "tools/lvprop/Keywords.h"

#include <charconv>
#include <optional>

namespace {

constexpr const char* kExamples =
    R"(  lvprop set plate.json 1041=12.5                     one value, and the events of the change
  lvprop set plate.json plate.txt 1041=12.5 1044=B    two values on top of a saved text
  lvprop set plate.json 1041=12.5 -o plate.txt        and the text that the tree saves afterwards

The value is everything behind the first "=".)";

constexpr size_t kValueColumns = 48;

struct SetOptions {
    std::vector<std::string> arguments; ///< ROUTINE, perhaps SAVED, then ID=TEXT ...
    LONG version = 1;
    std::string output;
};

struct Assignment {
    LONG id = 0;
    std::string text;
};

std::optional<Assignment> AssignmentIn(const std::string& argument)
{
    const size_t sign = argument.find('=');
    if (sign == std::string::npos || sign == 0)
        return std::nullopt;
    Assignment assignment;
    const auto [end, error] = std::from_chars(argument.data(), argument.data() + sign, assignment.id);
    if (error != std::errc() || end != argument.data() + sign)
        return std::nullopt;
    assignment.text = argument.substr(sign + 1);
    return assignment;
}

struct SeenEvent {
    SprpEventInfo record{};
    std::optional<std::string> oldText;
    std::string newText;
};

std::vector<SeenEvent> SetAndListen(const PropertyTree& tree, const std::vector<Assignment>& assignments)
{
    std::vector<SeenEvent> events;
    const lumevor::Subscription subscription(tree.Collection(), [&](const lumevor::EventRange& range) {
        for (const lumevor::Event& event : range) {
            SeenEvent seen{event.record, std::nullopt, {}};
            if (event.oldText)
                seen.oldText = Utf8From(*event.oldText);
            events.push_back(std::move(seen));
        }
    });
    lumevor::Transaction transaction(tree.Collection());
    for (const Assignment& assignment : assignments)
        During(NameForMessages(assignment.id), [&] {
            const auto property = tree.Collection().Find(assignment.id);
            if (!property)
                throw ToolError(ExitStatus::DataHasFaults,
                                "the routine has no property " + std::to_string(assignment.id));
            property->SetValue(lumevor::FromUtf8(assignment.text));
        });
    During("EndTransaction", [&] { transaction.End(); });
    return events;
}

void AddNewTexts(const PropertyTree& tree, std::vector<SeenEvent>& events)
{
    lumevor::Transaction transaction(tree.Collection());
    for (SeenEvent& event : events)
        if (event.record.nPropID > 0)
            if (const auto property = tree.Collection().Find(event.record.nPropID))
                event.newText = Utf8From(property->Value());
}

Json JsonOf(const SeenEvent& event)
{
    Json json = {{"event", WordOf(kEventWords, event.record.eEventType)},
                 {"id", event.record.nPropID},
                 {"collection", event.record.nPropCollectionID},
                 {"parent", event.record.nLong1},
                 {"visibilityChanged", event.record.bVisiblityChanged != 0},
                 {"dataChanged", event.record.bDataChanged != 0}};
    if (event.oldText)
        json["oldText"] = *event.oldText;
    json["text"] = event.newText;
    return json;
}

void PrintTable(const std::vector<SeenEvent>& events, const Console& console)
{
    Table table({{"event"}, {"id", true}, {"collection", true}, {"change"}, {"before"}, {"now"}});
    for (const SeenEvent& event : events) {
        const std::string change = event.record.bDataChanged        ? "value"
                                   : event.record.bVisiblityChanged ? "visibility"
                                                                    : "state";
        table.Add({WordOf(kEventWords, event.record.eEventType), std::to_string(event.record.nPropID),
                   std::to_string(event.record.nPropCollectionID), change,
                   OneLine(event.oldText.value_or(""), kValueColumns), OneLine(event.newText, kValueColumns)});
    }
    if (!table.IsEmpty())
        table.Print(console);
    console.out << Counted(events.size(), "event") << '\n';
}

ExitStatus RunSet(const SetOptions& options, const Console& console)
{
    TreeInputs inputs;
    inputs.version = options.version;
    std::vector<Assignment> assignments;
    for (const std::string& argument : options.arguments) {
        if (inputs.routine.empty())
            inputs.routine = argument;
        else if (auto assignment = AssignmentIn(argument))
            assignments.push_back(std::move(*assignment));
        else if (inputs.saved.empty() && assignments.empty())
            inputs.saved = argument;
        else
            RefuseInput("\"" + argument + "\" is no assignment of the form ID=TEXT");
    }
    if (assignments.empty())
        RefuseInput("set needs at least one ID=TEXT");

    const LoadedTree loaded = OpenTree(inputs, console);
    std::vector<SeenEvent> events = SetAndListen(loaded.tree, assignments);
    AddNewTexts(loaded.tree, events);
    const Console report = console.BesideFile(options.output);
    if (report.json) {
        Json json = Json::array();
        for (const SeenEvent& event : events)
            json.push_back(JsonOf(event));
        report.out << FormatJson({{"events", json}});
    } else {
        PrintTable(events, report);
    }
    if (!options.output.empty())
        WriteFile(options.output, Utf8From(loaded.tree.Save()) + "\n");
    return loaded.isComplete ? ExitStatus::Fine : ExitStatus::DataHasFaults;
}

} // namespace

void AddSetCommand(CLI::App& tool, Action& chosen)
{
    const auto options = std::make_shared<SetOptions>();
    CLI::App& command = AddCommand(tool, chosen, "set", "Sets values and shows the events that a sink receives",
                                   kExamples, options, &RunSet);
    command.add_option("ROUTINE [SAVED] ID=TEXT", options->arguments, "Routine file, saved text, values by id")
        ->type_name("")
        ->required();
    AddVersionOption(command, options->version);
    command.add_option("-o,--output", options->output, "File for the text that the tree saves afterwards")
        ->type_name("FILE");
}
