#include "platform/system/Utf8.h"
#include "tools/lvprop/Terminal.h"

#include <fcntl.h>
#include <io.h>

#include <memory>

namespace {

/// A console takes UTF-8 once it is told so, and colours once it is told to look for them.
bool PrepareConsole(DWORD handleId)
{
    const HANDLE handle = GetStdHandle(handleId);
    DWORD mode = 0;
    if (!GetConsoleMode(handle, &mode))
        return false;
    SetConsoleMode(handle, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
    return true;
}

} // namespace

std::vector<std::string> TakeArguments(int, char**)
{
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    SetConsoleOutputCP(CP_UTF8);

    int count = 0;
    const std::unique_ptr<wchar_t*, decltype(&LocalFree)> list(CommandLineToArgvW(GetCommandLineW(), &count),
                                                               &LocalFree);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i)
        arguments.push_back(Utf8From(list.get()[i]));
    return arguments;
}

bool OutputIsTerminal()
{
    return PrepareConsole(STD_OUTPUT_HANDLE);
}

bool ErrorIsTerminal()
{
    return PrepareConsole(STD_ERROR_HANDLE);
}
