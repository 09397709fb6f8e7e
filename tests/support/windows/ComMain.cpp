// main of the tests that make objects by COM: an apartment, and an activation context by which the DLLs that were
// built beside the program serve their classes without a registry entry.
#include "platform/com/Ole.h"

#include <gmock/gmock.h>

#include <cstdio>

namespace {

/// A fault ends the process with a status that no wrapper takes for success.
LONG WINAPI Fatal(EXCEPTION_POINTERS* pointers)
{
    std::fprintf(stderr, "fault %08lx at %p\n", pointers->ExceptionRecord->ExceptionCode,
                 pointers->ExceptionRecord->ExceptionAddress);
    TerminateProcess(GetCurrentProcess(), 3);
    return EXCEPTION_EXECUTE_HANDLER;
}

bool ActivateManifest(const wchar_t* name)
{
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring manifest(path);
    manifest.replace(manifest.find_last_of(L'\\') + 1, std::wstring::npos, name);
    ACTCTXW context{};
    context.cbSize = sizeof context;
    context.lpSource = manifest.c_str();
    const HANDLE handle = CreateActCtxW(&context);
    ULONG_PTR cookie = 0;
    return handle != INVALID_HANDLE_VALUE && ActivateActCtx(handle, &cookie);
}

} // namespace

int main(int argc, char** argv)
{
    SetUnhandledExceptionFilter(Fatal);
    testing::InitGoogleMock(&argc, argv);
    if (testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    if (!ActivateManifest(L"LV_prpPropCollection.manifest") || FAILED(OleInitialize(nullptr)))
        return 90;
    const int result = RUN_ALL_TESTS();
    OleUninitialize();
    return result;
}
