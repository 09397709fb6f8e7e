// Runs the tool as a process of its own, as a user does: arguments in, exit status and both outputs back.
#pragma once

#include <string>
#include <vector>

struct ToolResult {
    int status = -1; ///< exit status; -1 when the process was ended by a signal
    std::string out;
    std::string err;
};

ToolResult RunLvprop(const std::vector<std::string>& arguments);

/// Windows only: the same for any program that stands beside the test program.
ToolResult RunBesideTest(const std::string& program, const std::vector<std::string>& arguments);
