// lvprop save: the saved text of a routine's tree.
#include "platform/system/Utf8.h"
#include "tools/lvprop/Command.h"
#include "tools/lvprop/Files.h"
#include "tools/lvprop/Inputs.h"

namespace {

constexpr const char* kExamples = R"(  lvprop save plate.json                 the saved text on the output
  lvprop save plate.json -o plate.txt    ... in a file)";

struct SaveOptions {
    std::string routine;
    std::string output = "-";
};

ExitStatus RunSave(const SaveOptions& options, const Console& console)
{
    const PropertyTree tree(ReadRoutine(options.routine));
    const lumevor::Text text = tree.Save();
    const std::string line = Utf8From(text);
    if (console.json)
        console.out << FormatJson({{"characters", text.size()}, {"text", line}});
    if (!console.json || options.output != "-")
        WriteFile(options.output, line + "\n");
    return ExitStatus::Fine;
}

} // namespace

void AddSaveCommand(CLI::App& tool, Action& chosen)
{
    const auto options = std::make_shared<SaveOptions>();
    CLI::App& command =
        AddCommand(tool, chosen, "save", "Writes the saved text of a routine's tree", kExamples, options, &RunSave);
    command.add_option("ROUTINE", options->routine, "Routine file")->type_name("FILE")->required();
    command.add_option("-o,--output", options->output, "File to write; - for the output")->capture_default_str();
}
