// What the program is asked to do.
#pragma once

#include <optional>
#include <string>
#include <vector>

struct HostOptions {
    std::string document; ///< routine file or QIF document; empty starts without one
    std::string saved;    ///< saved line to load into it; empty for none
    std::string shots;    ///< folder for pictures; empty keeps the window open for a user
};

/// A command line that is no order to go on: the text to show, and the status to end with.
struct CommandLineAnswer {
    std::string text;
    int status = 0; ///< 0 for a question such as --help, 2 for wrong use
};

/// Fills the options. @return the answer when the program ends here.
std::optional<CommandLineAnswer> ParseCommandLine(std::vector<std::string> arguments, HostOptions& options);
