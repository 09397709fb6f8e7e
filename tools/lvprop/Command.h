// The commands of the tool. Each has a file of its own that tells its options and does its work; an option parser
// fills the options and picks the action, which runs once the whole command line is known to be right.
#pragma once

#include "tools/lvprop/Console.h"
#include "tools/lvprop/ToolError.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <memory>
#include <string>

using Action = std::function<ExitStatus(const Console&)>;

void AddShowCommand(CLI::App& tool, Action& chosen);
void AddSaveCommand(CLI::App& tool, Action& chosen);
void AddLoadCommand(CLI::App& tool, Action& chosen);
void AddSetCommand(CLI::App& tool, Action& chosen);
void AddConvertCommand(CLI::App& tool, Action& chosen);
void AddDecodeCommand(CLI::App& tool, Action& chosen);
void AddDiffCommand(CLI::App& tool, Action& chosen);
void AddCheckCommand(CLI::App& tool, Action& chosen);
void AddAuditCommand(CLI::App& tool, Action& chosen);
void AddDoctorCommand(CLI::App& tool, Action& chosen);
void AddImportCommand(CLI::App& tool, Action& chosen);

/// A command with options of its own kind. The returned parser takes the options; `run` gets them with the console.
template <class Options>
CLI::App& AddCommand(CLI::App& tool, Action& chosen, const std::string& name, const std::string& description,
                     const std::string& examples, const std::shared_ptr<Options>& options,
                     ExitStatus (*run)(const Options&, const Console&))
{
    CLI::App& command = *tool.add_subcommand(name, description);
    command.fallthrough();
    command.footer("\nExamples:\n" + examples);
    command.callback([&chosen, options, run] {
        chosen = [options, run](const Console& console) { return run(*options, console); };
    });
    return command;
}
