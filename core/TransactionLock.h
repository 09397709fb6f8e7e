// The lock of a collection's transactions: recursive, timed, and indifferent to an Unlock by a stranger.
//
// One atomic word tells all: 0 while free, else the owner's thread id, with one more bit while somebody waits.
// Taking a free lock is one compare-exchange and giving it back one exchange; mutex, condition and clock are touched
// only by threads that have to wait, and by the owner who has to wake them.
#pragma once

#include "platform/com/Ole.h"

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>

class TransactionLock {
public:
    static constexpr uint32_t kEndless = 0xFFFFFFFF;

    TransactionLock() = default;
    TransactionLock(const TransactionLock&) = delete;
    TransactionLock& operator=(const TransactionLock&) = delete;

    /// Takes the lock, or takes it once more if this thread has it. Waits at most that long: 0 only asks,
    /// kEndless never gives up. False means that another thread kept it.
    [[nodiscard]] bool Lock(uint32_t milliseconds)
    {
        const uint64_t me = GetCurrentThreadId();
        uint64_t free = 0;
        if (m_word.compare_exchange_strong(free, me, std::memory_order_acquire, std::memory_order_relaxed)) {
            m_count = 1;
            return true;
        }
        if (OwnerOf(free) == me) {
            ++m_count;
            return true;
        }
        return milliseconds != 0 && Wait(me, milliseconds);
    }

    /// Gives one Lock of this thread back; has no effect on any other thread.
    void Unlock()
    {
        if (!IsMine() || --m_count != 0)
            return;
        if (m_word.exchange(0, std::memory_order_release) & kSomebodyWaits)
            WakeOne();
    }

    /// Whether the calling thread holds the lock. About any other thread it tells nothing.
    [[nodiscard]] bool IsMine() const
    {
        return OwnerOf(m_word.load(std::memory_order_relaxed)) == GetCurrentThreadId();
    }

private:
    static constexpr uint64_t kSomebodyWaits = uint64_t{1} << 32; // thread ids have 32 bits

    static constexpr uint64_t OwnerOf(uint64_t word) { return word & (kSomebodyWaits - 1); }

    bool Wait(uint64_t me, uint32_t milliseconds);
    bool TakeOrAnnounce(uint64_t me);
    void WakeOne();

    std::atomic<uint64_t> m_word{0};
    uint32_t m_count = 0;   // Locks of the owner that are not given back; touched by the owner alone
    uint32_t m_waiting = 0; // threads in Wait; guarded by m_gate
    std::mutex m_gate;
    std::condition_variable m_freed;
};
