#include "samples/host/CommandLine.h"

#include "tools/lvprop/ToolError.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <sstream>

namespace {

constexpr const char* kFooter = R"(
Exit status: 0 fine, 1 the data has faults, 2 wrong use, or a file that is missing or is not what it was given as.

  lvhost plate.json                      shows a routine
  lvhost plate.qif                       imports a measurement plan and shows it
  lvhost plate.json --saved plate.txt    ... with the values of a saved line
  lvhost plate.json --shots pictures     leaves pictures of prepared states and ends)";

} // namespace

std::optional<CommandLineAnswer> ParseCommandLine(std::vector<std::string> arguments, HostOptions& options)
{
    CLI::App program("Shows a property collection in the grid, and the events of its changes beside it.", "lvhost");
    program.footer(kFooter);
    program.add_option("ROUTINE", options.document, "Routine file or QIF document")->type_name("FILE");
    CLI::Option* const saved = program.add_option("--saved", options.saved, "Saved line to load")->type_name("FILE");
    CLI::Option* const shots =
        program.add_option("--shots", options.shots, "Folder for pictures of prepared states")->type_name("FOLDER");
    for (CLI::Option* const option : {saved, shots})
        option->needs(program.get_option("ROUTINE"));

    std::ostringstream text;
    try {
        std::ranges::reverse(arguments); // the parser takes them from the back
        program.parse(arguments);
        return std::nullopt;
    } catch (const CLI::Success& asked) {
        program.exit(asked, text, text);
        return CommandLineAnswer{text.str(), static_cast<int>(ExitStatus::Fine)};
    } catch (const CLI::ParseError& error) {
        text << "lvhost: " << error.what() << "\nRun with --help for more information.\n";
        return CommandLineAnswer{text.str(), static_cast<int>(ExitStatus::WrongUse)};
    }
}
