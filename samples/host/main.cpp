// lvhost: shows a property collection in the grid of the component, and the events of its changes beside it.
#include "samples/host/CommandLine.h"
#include "samples/host/Dialogs.h"
#include "samples/host/MainWindow.h"
#include "samples/host/Shots.h"
#include "tools/lvprop/ToolError.h"

#include <commctrl.h>
#include <shellapi.h>

#include <iostream>
#include <memory>

namespace {

/// OLE on the one thread of the program; everything of the component ends before it does.
class OleSession {
public:
    OleSession() { lumevor::Check(OleInitialize(nullptr)); }
    ~OleSession() { OleUninitialize(); }
    OleSession(const OleSession&) = delete;
    OleSession& operator=(const OleSession&) = delete;
};

/// In UTF-8, without the program's name.
std::vector<std::string> Arguments()
{
    int count = 0;
    const std::unique_ptr<wchar_t*, decltype(&LocalFree)> words(CommandLineToArgvW(GetCommandLineW(), &count),
                                                                &LocalFree);
    std::vector<std::string> arguments;
    for (int word = 1; word < count; ++word)
        arguments.push_back(lumevor::ToUtf8(words.get()[word]));
    return arguments;
}

/// A program with a window has a standard output only where somebody gave it one.
void Say(std::ostream& stream, DWORD handle, const std::string& text)
{
    if (GetStdHandle(handle))
        stream << text << std::flush;
    else
        TellFault(nullptr, text);
}

int RunHost(const HostOptions& options)
{
    const OleSession ole;
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES};
    InitCommonControlsEx(&controls);

    MainWindow window;
    if (!options.document.empty())
        window.Open(options.document);
    if (!options.saved.empty())
        window.LoadSaved(options.saved);
    ShowWindow(window.Window(), SW_SHOWDEFAULT);
    if (options.shots.empty())
        return window.Loop();
    TakeShots(window, options.shots);
    return 0;
}

} // namespace

int main()
{
    int status = static_cast<int>(ExitStatus::WrongUse);
    try {
        HostOptions options;
        const auto answer = ParseCommandLine(Arguments(), options);
        if (!answer)
            return RunHost(options);
        if (answer->status == 0)
            Say(std::cout, STD_OUTPUT_HANDLE, answer->text);
        else
            Say(std::cerr, STD_ERROR_HANDLE, answer->text);
        return answer->status;
    } catch (const ToolError& error) {
        Say(std::cerr, STD_ERROR_HANDLE, std::string("lvhost: ") + error.what() + "\n");
        status = static_cast<int>(error.status);
    } catch (const std::exception& error) {
        Say(std::cerr, STD_ERROR_HANDLE, std::string("lvhost: ") + error.what() + "\n");
        status = static_cast<int>(ExitStatus::DataHasFaults);
    }
    return status;
}
