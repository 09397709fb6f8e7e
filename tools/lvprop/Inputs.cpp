#include "tools/lvprop/Inputs.h"

#include "tools/lvprop/Files.h"
#include "tools/lvprop/RoutineFile.h"
#include "tools/lvprop/ToolError.h"

void AddVersionOption(CLI::App& command, LONG& version)
{
    command.add_option("--version", version, "Format of the saved text: 1, or 0 for the one before it")
        ->check(CLI::IsMember({0, 1}))
        ->capture_default_str();
}

void AddTreeOptions(CLI::App& command, TreeInputs& inputs)
{
    command.add_option("ROUTINE", inputs.routine, "Routine file")->type_name("FILE")->required();
    command.add_option("SAVED", inputs.saved, "Saved text to load into the tree")->type_name("FILE");
    AddVersionOption(command, inputs.version);
}

Routine ReadRoutine(const std::string& name)
{
    return ParseRoutine(name, ReadFile(name));
}

SavedFile OpenSaved(const std::string& name)
{
    SavedFile file = SavedFile::Open(name);
    if (!file.IsEmpty() && !file.BeginsWithMarker())
        throw ToolError(ExitStatus::DataHasFaults, name + ": the text begins with \"" + file.FirstCharacter() +
                                                       "\", not with the record marker \"~\"");
    return file;
}

LoadedTree OpenTree(const TreeInputs& inputs, const Console& console)
{
    Routine routine = ReadRoutine(inputs.routine);
    LoadedTree loaded{routine, PropertyTree(routine)};
    if (inputs.saved.empty())
        return loaded;
    const LoadOutcome outcome = loaded.tree.Load(OpenSaved(inputs.saved).WholeText(), inputs.version);
    for (const std::string& fault : outcome.faults)
        console.err << inputs.saved << ": " << fault << '\n';
    if (!outcome.raised.empty())
        console.err << inputs.saved << ": the load ended early: " << outcome.raised << '\n';
    loaded.isComplete = outcome.isComplete && outcome.raised.empty();
    return loaded;
}
