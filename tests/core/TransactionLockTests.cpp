// The lock of the transactions: nesting, time-outs, strangers, and many threads at once.
#include "core/TransactionLock.h"

#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>
#include <vector>

using namespace std::chrono_literals;

namespace {
bool LockElsewhere(TransactionLock& lock, uint32_t milliseconds)
{
    return std::async(std::launch::async,
                      [&] {
                          const bool taken = lock.Lock(milliseconds);
                          if (taken)
                              lock.Unlock();
                          return taken;
                      })
        .get();
}
} // namespace

TEST(TransactionLock, IsFreeAtFirstAndAfterEachPair)
{
    TransactionLock lock;
    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(lock.Lock(0));
        EXPECT_TRUE(lock.IsMine());
        lock.Unlock();
        EXPECT_FALSE(lock.IsMine());
    }
    EXPECT_TRUE(LockElsewhere(lock, 0));
}

TEST(TransactionLock, NestsForItsOwnerAndIsFreeOnlyAfterAsManyUnlocks)
{
    TransactionLock lock;
    ASSERT_TRUE(lock.Lock(0));
    ASSERT_TRUE(lock.Lock(0));
    lock.Unlock();
    EXPECT_FALSE(LockElsewhere(lock, 0));
    lock.Unlock();
    EXPECT_TRUE(LockElsewhere(lock, 0));
}

TEST(TransactionLock, IgnoresAnUnlockByAThreadThatDoesNotHoldIt)
{
    TransactionLock lock;
    lock.Unlock();
    ASSERT_TRUE(lock.Lock(0));
    std::thread([&] { lock.Unlock(); }).join();
    EXPECT_TRUE(lock.IsMine());
    EXPECT_FALSE(LockElsewhere(lock, 0));
    lock.Unlock();
    lock.Unlock();
    EXPECT_TRUE(LockElsewhere(lock, 0));
}

TEST(TransactionLock, WithZeroMillisecondsOnlyAsks)
{
    TransactionLock lock;
    ASSERT_TRUE(lock.Lock(TransactionLock::kEndless));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(LockElsewhere(lock, 0));
    EXPECT_LT(std::chrono::steady_clock::now() - start, 5s);
    lock.Unlock();
}

TEST(TransactionLock, WaitsForAsLongAsItWasTold)
{
    TransactionLock lock;
    ASSERT_TRUE(lock.Lock(0));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(LockElsewhere(lock, 60));
    EXPECT_GE(std::chrono::steady_clock::now() - start, 59ms);
    lock.Unlock();
}

TEST(TransactionLock, IsUsableAsBeforeAfterSomebodyGaveUp)
{
    TransactionLock lock;
    ASSERT_TRUE(lock.Lock(0));
    EXPECT_FALSE(LockElsewhere(lock, 1));
    lock.Unlock();
    EXPECT_TRUE(LockElsewhere(lock, 0));
    ASSERT_TRUE(lock.Lock(0));
    lock.Unlock();
}

TEST(TransactionLock, WakesAThreadThatWaitsWithoutEnd)
{
    TransactionLock lock;
    ASSERT_TRUE(lock.Lock(0));
    auto other = std::async(std::launch::async, [&] {
        const bool taken = lock.Lock(TransactionLock::kEndless);
        lock.Unlock();
        return taken;
    });
    EXPECT_EQ(other.wait_for(20ms), std::future_status::timeout);
    lock.Unlock();
    EXPECT_TRUE(other.get());
}

TEST(TransactionLock, WakesEveryWaiterInTheEnd)
{
    TransactionLock lock;
    ASSERT_TRUE(lock.Lock(0));
    std::atomic<int> through{0};
    std::vector<std::thread> waiters;
    for (int i = 0; i < 6; ++i)
        waiters.emplace_back([&] {
            ASSERT_TRUE(lock.Lock(TransactionLock::kEndless));
            ++through;
            lock.Unlock();
        });
    std::this_thread::sleep_for(10ms);
    lock.Unlock();
    for (auto& waiter : waiters)
        waiter.join();
    EXPECT_EQ(through, 6);
}

// Waiters with short and endless patience together: a wake that reaches one who gives up must not be lost.
TEST(TransactionLock, KeepsItsPromiseUnderContentionWithTimeOuts)
{
    TransactionLock lock;
    constexpr int kThreads = 6;
    constexpr int kRounds = 3000;
    int inside = 0; // guarded by the lock alone
    int entered = 0;
    std::atomic<int> gaveUp{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t)
        threads.emplace_back([&, t] {
            for (int i = 0; i < kRounds; ++i) {
                const uint32_t patience = (t + i) % 3 == 0 ? TransactionLock::kEndless : static_cast<uint32_t>(i % 2);
                if (!lock.Lock(patience)) {
                    ++gaveUp;
                    continue;
                }
                EXPECT_EQ(++inside, 1);
                ++entered;
                if (i % 64 == 0)
                    std::this_thread::yield();
                --inside;
                lock.Unlock();
            }
        });
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(entered + gaveUp, kThreads * kRounds);
    EXPECT_TRUE(lock.Lock(0));
    lock.Unlock();
}
