// What the tool asks of the console it runs in. The bodies are a file for each system.
#pragma once

#include <string>
#include <vector>

/// Arguments in UTF-8, without the program's name. Called once, at the start: it also sets the standard streams to
/// pass bytes through unchanged.
std::vector<std::string> TakeArguments(int argc, char** argv);

bool OutputIsTerminal();
bool ErrorIsTerminal();
