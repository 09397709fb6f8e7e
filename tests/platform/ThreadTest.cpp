#include "platform/com/Ole.h"

#include <gtest/gtest.h>

#include <set>
#include <thread>

namespace {

TEST(Thread, HasAnIdOfItsOwnThatIsNeverGivenAgain)
{
    std::set<DWORD> ids{GetCurrentThreadId()};
    for (int i = 0; i < 20; ++i) {
        std::thread([&] { EXPECT_TRUE(ids.insert(GetCurrentThreadId()).second); }).join();
    }
    EXPECT_FALSE(ids.contains(0));
    EXPECT_TRUE(ids.contains(GetCurrentThreadId()));
}

TEST(Thread, KeepsItsLastErrorToItself)
{
    SetLastError(5);
    std::thread([] {
        EXPECT_EQ(GetLastError(), 0u);
        SetLastError(6);
    }).join();
    EXPECT_EQ(GetLastError(), 5u);
    SetLastError(0);
}

TEST(Thread, KeepsItsLastErrorAcrossAThrow)
{
    SetLastError(32);
    try {
        throw 1;
    } catch (...) {
        EXPECT_EQ(GetLastError(), 32u);
    }
    SetLastError(0);
}

TEST(Clock, NeverGoesBack)
{
    const ULONGLONG before = GetTickCount64();
    std::this_thread::sleep_for(std::chrono::milliseconds(3));
    EXPECT_GE(GetTickCount64(), before + 2);
}

} // namespace
