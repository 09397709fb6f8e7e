#include "tools/lvprop/Terminal.h"

#include <unistd.h>

std::vector<std::string> TakeArguments(int argc, char** argv)
{
    return argc > 0 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

bool OutputIsTerminal()
{
    return isatty(STDOUT_FILENO) != 0;
}

bool ErrorIsTerminal()
{
    return isatty(STDERR_FILENO) != 0;
}
