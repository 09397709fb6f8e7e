// main of the tests that make objects by COM: the thread enters an apartment first.
#include "platform/com/Ole.h"

#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)))
        return 90;
    const int result = RUN_ALL_TESTS();
    CoUninitialize();
    return result;
}
