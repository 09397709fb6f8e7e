// main of the tests that make windows: a desktop of their own, so that parallel tests do not take the focus from each
// other, an apartment, and a pointer out of the way of all windows.
#include "platform/com/Ole.h"

#include <commctrl.h>

#include <gmock/gmock.h>

#include <cstdio>

namespace {

/// A fault ends the process with a status that no wrapper takes for success.
LONG WINAPI Fatal(EXCEPTION_POINTERS* pointers)
{
    std::fprintf(stderr, "fault %08lx at %p, module at %p\n", pointers->ExceptionRecord->ExceptionCode,
                 pointers->ExceptionRecord->ExceptionAddress, static_cast<void*>(GetModuleHandleW(nullptr)));
    TerminateProcess(GetCurrentProcess(), 3);
    return EXCEPTION_EXECUTE_HANDLER;
}

bool MakeDesktop()
{
    const std::wstring name = L"t" + std::to_wstring(GetCurrentProcessId());
    const HDESK desktop = CreateDesktopW(name.c_str(), nullptr, nullptr, 0, GENERIC_ALL, nullptr);
    return desktop && SetThreadDesktop(desktop);
}

} // namespace

int main(int argc, char** argv)
{
    SetUnhandledExceptionFilter(Fatal);
    testing::InitGoogleMock(&argc, argv);
    if (testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    if (!MakeDesktop() || FAILED(OleInitialize(nullptr)))
        return 90;
    const INITCOMMONCONTROLSEX controls{sizeof controls, 0xFF};
    InitCommonControlsEx(&controls);
    SetCursorPos(0, 0);
    const int result = RUN_ALL_TESTS();
    OleUninitialize();
    return result;
}
