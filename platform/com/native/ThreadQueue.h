// What was posted to one thread and waits for it to pump.
#pragma once

#include "platform/com/EventWindow.h"

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

/// Made by the first event window of a thread and closed when that thread ends. Any thread posts, one delivers.
/// The order of posting holds across all receivers of the thread.
class ThreadQueue {
public:
    /// The calling thread's queue, made if there is none yet; null at the very end of a thread.
    static std::shared_ptr<ThreadQueue> OfThisThread();
    /// The calling thread's queue, or null.
    static ThreadQueue* IfAny() noexcept;

    ThreadQueue();
    ThreadQueue(const ThreadQueue&) = delete;
    ThreadQueue& operator=(const ThreadQueue&) = delete;

    /// Takes over one reference of each pointer when it returns true. False once the queue is closed.
    bool Post(EventReceiver& receiver, IUnknown* first, IUnknown* second) noexcept;
    /// For the queue's own thread; may be called again from within a delivery.
    ULONG Deliver(DWORD dwTimeout);
    /// Drops what waits for a receiver. On another thread than the queue's it waits for a delivery in progress.
    void Forget(EventReceiver& receiver) noexcept;
    /// Drops everything; nothing is taken any more.
    void Close() noexcept;
    bool IsOpen() const noexcept;

private:
    struct Posted {
        EventReceiver* receiver;
        IUnknown* first;
        IUnknown* second;
    };
    using Posts = std::deque<Posted>;

    static void Release(const Posts& dropped) noexcept;
    bool IsDelivering(const EventReceiver& receiver) const noexcept;

    mutable std::mutex m_mutex;
    std::condition_variable m_changed; // something was posted, or a delivery has ended
    Posts m_posts;
    std::vector<const EventReceiver*> m_delivering; // deliveries within deliveries, innermost last
    const DWORD m_dwThread;
    bool m_bOpen = true;
};
