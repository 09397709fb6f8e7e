#include "platform/system/Utf8.h"
#include "tests/tools/ToolFiles.h"
#include "tests/tools/ToolRunner.h"

namespace {

std::wstring PathBesideTest(const std::string& program)
{
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.find_last_of(L"\\/") + 1) + TextFromUtf8(program);
}

/// The rule by which a program's start-up takes a command line apart again.
std::wstring Quoted(const std::wstring& argument)
{
    std::wstring quoted = L"\"";
    size_t backslashes = 0;
    for (const wchar_t c : argument) {
        if (c == L'"')
            quoted.append(backslashes + 1, L'\\');
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        quoted += c;
    }
    return quoted.append(backslashes, L'\\') + L"\"";
}

HANDLE Inheritable(const std::string& name, DWORD access, DWORD disposition)
{
    SECURITY_ATTRIBUTES attributes{sizeof attributes, nullptr, TRUE};
    return CreateFileW(TextFromUtf8(name).c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &attributes, disposition,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

} // namespace

ToolResult RunLvprop(const std::vector<std::string>& arguments)
{
    return RunBesideTest("lvprop.exe", arguments);
}

ToolResult RunBesideTest(const std::string& program, const std::vector<std::string>& arguments)
{
    const ToolFiles files;
    const std::wstring path = PathBesideTest(program);
    std::wstring line = Quoted(path);
    for (const std::string& argument : arguments)
        line += L" " + Quoted(TextFromUtf8(argument));

    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = Inheritable("NUL", GENERIC_READ, OPEN_EXISTING);
    start.hStdOutput = Inheritable(files.Path("out"), GENERIC_WRITE, CREATE_ALWAYS);
    start.hStdError = Inheritable(files.Path("err"), GENERIC_WRITE, CREATE_ALWAYS);
    PROCESS_INFORMATION process{};
    const BOOL started =
        CreateProcessW(path.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &process);
    DWORD status = static_cast<DWORD>(-1);
    if (started) {
        WaitForSingleObject(process.hProcess, INFINITE);
        GetExitCodeProcess(process.hProcess, &status);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    for (const HANDLE handle : {start.hStdInput, start.hStdOutput, start.hStdError})
        CloseHandle(handle);
    return {static_cast<int>(status), ToolFiles::Read(files.Path("out")), ToolFiles::Read(files.Path("err"))};
}
