#include "samples/host/Relaunch.h"

#include "tools/lvprop/ToolError.h"

#include <windows.h>

#include <lumevor/Text.h>

namespace {

std::wstring ProgramPath()
{
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

/// The names of files hold no quotation marks.
std::wstring Quoted(const std::wstring& word)
{
    return L" \"" + word + L"\"";
}

} // namespace

void Relaunch(const HostOptions& options)
{
    const std::wstring program = ProgramPath();
    std::wstring line = Quoted(program).substr(1);
    if (!options.document.empty())
        line += Quoted(lumevor::FromUtf8(options.document));
    if (!options.saved.empty())
        line += L" --saved" + Quoted(lumevor::FromUtf8(options.saved));
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process))
        RefuseInput("the program cannot be started once more");
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}
