// main of the tests that make objects by COM: an apartment, and an end that no wrapper takes for success when the
// program faults. The manifest beside the program names the DLLs that serve the classes.
#include "platform/com/Ole.h"

#include <gmock/gmock.h>

#include <cstdio>

namespace {

LONG WINAPI Fatal(EXCEPTION_POINTERS* pointers)
{
    std::fprintf(stderr, "fault %08lx at %p\n", pointers->ExceptionRecord->ExceptionCode,
                 pointers->ExceptionRecord->ExceptionAddress);
    TerminateProcess(GetCurrentProcess(), 3);
    return EXCEPTION_EXECUTE_HANDLER;
}

} // namespace

int main(int argc, char** argv)
{
    SetUnhandledExceptionFilter(Fatal);
    testing::InitGoogleMock(&argc, argv);
    if (testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    if (FAILED(OleInitialize(nullptr)))
        return 90;
    const int result = RUN_ALL_TESTS();
    OleUninitialize();
    return result;
}
