#include "platform/mfc/Mutex.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>
#include <vector>

namespace {

using namespace std::chrono_literals;

/// What another thread gets when it tries for the mutex; it gives back what it got.
bool OtherThreadGets(CMutex& mutex, DWORD timeout = 0)
{
    bool got = false;
    std::thread([&] {
        got = mutex.Lock(timeout);
        if (got)
            mutex.Unlock();
    }).join();
    return got;
}

TEST(Mutex, IsFreeAtFirst)
{
    CMutex mutex;
    EXPECT_TRUE(OtherThreadGets(mutex));
    EXPECT_TRUE(mutex.Lock(0));
    EXPECT_FALSE(OtherThreadGets(mutex));
    EXPECT_TRUE(mutex.Unlock());
    EXPECT_TRUE(OtherThreadGets(mutex));
}

TEST(Mutex, IsHeldUntilEveryLockIsGivenBack)
{
    CMutex mutex;
    EXPECT_TRUE(mutex.Lock());
    EXPECT_TRUE(mutex.Lock(0));
    EXPECT_TRUE(mutex.Unlock());
    EXPECT_FALSE(OtherThreadGets(mutex));
    EXPECT_TRUE(mutex.Unlock());
    EXPECT_TRUE(OtherThreadGets(mutex));
}

TEST(Mutex, IgnoresAnUnlockByAThreadThatDoesNotHoldIt)
{
    CMutex mutex;
    EXPECT_FALSE(mutex.Unlock());
    mutex.Lock();
    std::thread([&] { EXPECT_FALSE(mutex.Unlock()); }).join();
    EXPECT_FALSE(OtherThreadGets(mutex));
    EXPECT_TRUE(mutex.Unlock());
    EXPECT_FALSE(mutex.Unlock());
}

TEST(Mutex, GivesUpWhenItsTimeIsOver)
{
    CMutex mutex;
    mutex.Lock();
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(OtherThreadGets(mutex, 30));
    EXPECT_GE(std::chrono::steady_clock::now() - start, 30ms);
    mutex.Unlock();
}

TEST(Mutex, IsPassedToAWaitingThread)
{
    CMutex mutex;
    mutex.Lock();
    std::thread waiter([&] {
        EXPECT_TRUE(mutex.Lock());
        EXPECT_TRUE(mutex.Unlock());
    });
    std::this_thread::sleep_for(5ms);
    mutex.Unlock();
    waiter.join();
    EXPECT_TRUE(mutex.Lock(0));
    mutex.Unlock();
}

TEST(Mutex, LetsOneThreadInAtATime)
{
    CMutex mutex;
    int shared = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < 2000; ++round) {
                const CSingleLock lock(&mutex, TRUE);
                ++shared;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(shared, 8000);
}

TEST(SingleLock, HoldsItsMutexForAScope)
{
    CMutex mutex;
    {
        CSingleLock lock(&mutex);
        EXPECT_FALSE(lock.IsLocked());
        EXPECT_TRUE(lock.Lock(0));
        EXPECT_FALSE(OtherThreadGets(mutex));
        EXPECT_TRUE(lock.Unlock());
        EXPECT_TRUE(OtherThreadGets(mutex));
        EXPECT_TRUE(lock.Lock());
    }
    EXPECT_TRUE(OtherThreadGets(mutex));
}

TEST(SingleLock, DoesNotUnlockWhatItDidNotGet)
{
    CMutex mutex;
    mutex.Lock();
    std::thread([&] {
        CSingleLock lock(&mutex);
        EXPECT_FALSE(lock.Lock(0));
    }).join();
    EXPECT_FALSE(OtherThreadGets(mutex));
    mutex.Unlock();
}

} // namespace
