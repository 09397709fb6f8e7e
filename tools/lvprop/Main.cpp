// lvprop: looks into routines and saved texts, through the public interfaces of the component.
#include "tools/lvprop/ComSession.h"
#include "tools/lvprop/Command.h"
#include "tools/lvprop/Terminal.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <optional>

namespace {

constexpr const char* kFooter = R"(
Exit status: 0 fine, 1 the data has faults (they are told one by one), 2 wrong use, or a file that is missing or is
not what it was given as.

  lvprop import plate.qif -o plate.json    a real measurement plan becomes a routine
  lvprop save plate.json -o plate.txt      its saved text
  lvprop audit plate.json                  what the saved text loses
"lvprop COMMAND --help" has examples for each command.)";

void AddCommands(CLI::App& tool, Action& chosen)
{
    AddShowCommand(tool, chosen);
    AddSaveCommand(tool, chosen);
    AddLoadCommand(tool, chosen);
    AddSetCommand(tool, chosen);
    AddConvertCommand(tool, chosen);
    AddDecodeCommand(tool, chosen);
    AddDiffCommand(tool, chosen);
    AddCheckCommand(tool, chosen);
    AddAuditCommand(tool, chosen);
    AddDoctorCommand(tool, chosen);
    AddImportCommand(tool, chosen);
}

/// @return whether a command is to run; otherwise `status` says how the program ends.
bool ParseArguments(CLI::App& tool, std::vector<std::string> arguments, ExitStatus& status)
{
    try {
        std::ranges::reverse(arguments); // the parser takes them from the back
        tool.parse(arguments);
        return true;
    } catch (const CLI::Success& asked) {
        tool.exit(asked, std::cout, std::cerr); // help and version
        status = ExitStatus::Fine;
    } catch (const CLI::ParseError& error) {
        std::cerr << "lvprop: " << error.what() << "\nRun with --help for more information.\n";
        status = ExitStatus::WrongUse;
    }
    return false;
}

ExitStatus RunTool(std::vector<std::string> arguments)
{
    Console console{std::cout, std::cerr};
    Action chosen;
    CLI::App tool("Looks into routines and saved texts of the property component.", "lvprop");
    tool.require_subcommand(1);
    tool.allow_windows_style_options(false); // "/plate.json" is a file on every system
    tool.footer(kFooter);
    tool.set_version_flag("--version", "lvprop " LVPROP_VERSION);
    tool.add_flag("--json", console.json, "Results as JSON, for programs");
    AddCommands(tool, chosen);
    ExitStatus status = ExitStatus::Fine;
    if (!ParseArguments(tool, std::move(arguments), status))
        return status;

    console.colours = OutputIsTerminal() && !std::getenv("NO_COLOR");
    console.progress = ErrorIsTerminal();
    std::optional<ComSession> session;
    if (!tool.got_subcommand("doctor")) // which is there for the case that no class can be made
        session.emplace();
    return chosen(console);
}

} // namespace

int main(int argc, char** argv)
{
    std::ios::sync_with_stdio(false);
    ExitStatus status = ExitStatus::WrongUse;
    try {
        status = RunTool(TakeArguments(argc, argv));
    } catch (const ToolError& error) {
        std::cerr << "lvprop: " << error.what() << '\n';
        status = error.status;
    } catch (const std::exception& error) {
        std::cerr << "lvprop: " << error.what() << '\n';
        status = ExitStatus::DataHasFaults;
    }
    std::cout.flush();
    if (!std::cout) {
        std::cerr << "lvprop: the output cannot be written\n";
        status = ExitStatus::WrongUse;
    }
    return static_cast<int>(status);
}
