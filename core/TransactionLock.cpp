// The slow half of the transaction lock: waiting for another owner, and waking those who wait.
#include "core/TransactionLock.h"

#include <chrono>

bool TransactionLock::Wait(uint64_t me, uint32_t milliseconds)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    std::unique_lock gate(m_gate);
    ++m_waiting;
    bool taken = TakeOrAnnounce(me);
    for (bool late = false; !taken && !late; taken = TakeOrAnnounce(me)) {
        if (milliseconds == kEndless)
            m_freed.wait(gate);
        else
            late = m_freed.wait_until(gate, deadline) == std::cv_status::timeout;
    }
    --m_waiting;
    return taken;
}

// Takes the lock if it is free, else makes sure that its owner will wake somebody. Runs under the gate, which a waker
// needs as well, so the wake can't slip in before the wait. A thread that gives up passes here too: a wake that was
// meant for it is not lost, because either it gets the lock or the new owner has been told of the others.
bool TransactionLock::TakeOrAnnounce(uint64_t me)
{
    uint64_t seen = m_word.load(std::memory_order_relaxed);
    for (;;) {
        const bool isFree = OwnerOf(seen) == 0;
        const bool othersWait = m_waiting > 1;
        const uint64_t wanted = isFree ? me | (othersWait ? kSomebodyWaits : 0) : seen | kSomebodyWaits;
        if (m_word.compare_exchange_weak(seen, wanted, std::memory_order_acquire, std::memory_order_relaxed)) {
            if (isFree)
                m_count = 1;
            return isFree;
        }
    }
}

void TransactionLock::WakeOne()
{
    const std::scoped_lock gate(m_gate);
    m_freed.notify_one();
}
