// The one exception of the tool and the exit statuses that every command keeps to.
#pragma once

#include <stdexcept>
#include <string>

enum class ExitStatus {
    Fine = 0,
    DataHasFaults = 1, ///< the input was read and told about; something in it is wrong
    WrongUse = 2       ///< bad options, or a file that is missing or is not what it was given as
};

/// Ends a command: the sentence goes to standard error, nothing is written to any file.
struct ToolError : std::runtime_error {
    ToolError(ExitStatus exitStatus, const std::string& sentence) : std::runtime_error(sentence), status(exitStatus) {}
    ExitStatus status;
};

/// A file cannot be taken as what it was given as.
[[noreturn]] inline void RefuseInput(const std::string& sentence)
{
    throw ToolError(ExitStatus::WrongUse, sentence);
}
