#include "platform/com/Ole.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

constexpr CLSID kAbsent = {0xA2000000, 0, 0, {0, 0, 0, 0, 0, 0, 0, 1}};

HRESULT TryToCreate()
{
    void* object = nullptr;
    return CoCreateInstance(kAbsent, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, &object);
}

TEST(Apartment, IsEnteredOnceAndCountedAfterThat)
{
    std::thread([] {
        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
        EXPECT_EQ(CoInitialize(nullptr), S_FALSE);
        CoUninitialize();
        EXPECT_EQ(TryToCreate(), REGDB_E_CLASSNOTREG);
        CoUninitialize();
        EXPECT_EQ(TryToCreate(), CO_E_NOTINITIALIZED);
    }).join();
}

TEST(Apartment, DoesNotChangeItsKind)
{
    std::thread([] {
        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), RPC_E_CHANGED_MODE);
        CoUninitialize();
    }).join();
}

TEST(Apartment, OfManyThreadsTakesInThoseThatNeverEnteredIt)
{
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
    std::thread([] { EXPECT_EQ(TryToCreate(), REGDB_E_CLASSNOTREG); }).join();
    CoUninitialize();
    std::thread([] { EXPECT_EQ(TryToCreate(), CO_E_NOTINITIALIZED); }).join();
}

TEST(Apartment, ForgivesOneLeaveTooMany)
{
    std::thread([] {
        CoUninitialize();
        EXPECT_EQ(CoInitialize(nullptr), S_OK);
        CoUninitialize();
    }).join();
}

TEST(Apartment, RefusesAReservedArgument)
{
    int reserved = 0;
    EXPECT_EQ(CoInitialize(&reserved), E_INVALIDARG);
}

} // namespace
