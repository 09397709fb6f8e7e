#include "platform/com/native/ThreadQueue.h"

#include "platform/com/PumpThreadQueue.h"

#include <algorithm>
#include <chrono>
#include <new>

namespace {

constinit thread_local ThreadQueue* t_pQueue = nullptr;
constinit thread_local bool t_bThreadEnds = false;

/// Closes the thread's queue when the thread ends; event windows may hold it longer.
struct QueueOfThread {
    std::shared_ptr<ThreadQueue> queue = std::make_shared<ThreadQueue>();

    QueueOfThread() { t_pQueue = queue.get(); }
    ~QueueOfThread()
    {
        t_bThreadEnds = true;
        t_pQueue = nullptr;
        queue->Close();
    }
    QueueOfThread(const QueueOfThread&) = delete;
    QueueOfThread& operator=(const QueueOfThread&) = delete;
};

} // namespace

std::shared_ptr<ThreadQueue> ThreadQueue::OfThisThread()
{
    if (t_bThreadEnds)
        return nullptr;
    thread_local const QueueOfThread own;
    return own.queue;
}

ThreadQueue* ThreadQueue::IfAny() noexcept
{
    return t_pQueue;
}

ThreadQueue::ThreadQueue() : m_dwThread(GetCurrentThreadId()) {}

bool ThreadQueue::Post(EventReceiver& receiver, IUnknown* first, IUnknown* second) noexcept
{
    try {
        const std::lock_guard guard(m_mutex);
        if (!m_bOpen)
            return false;
        m_posts.push_back({&receiver, first, second});
    } catch (const std::bad_alloc&) {
        return false;
    }
    m_changed.notify_all();
    return true;
}

ULONG ThreadQueue::Deliver(DWORD dwTimeout)
{
    std::unique_lock guard(m_mutex);
    const auto hasPosts = [this] { return !m_posts.empty(); };
    if (dwTimeout == INFINITE)
        m_changed.wait(guard, hasPosts);
    else if (dwTimeout != 0)
        m_changed.wait_for(guard, std::chrono::milliseconds(dwTimeout), hasPosts);

    ULONG delivered = 0;
    while (!m_posts.empty()) {
        const Posted post = m_posts.front();
        m_delivering.push_back(post.receiver);
        m_posts.pop_front();
        guard.unlock();
        post.receiver->OnPosted(post.first, post.second);
        ++delivered;
        guard.lock();
        m_delivering.pop_back();
        m_changed.notify_all();
    }
    return delivered;
}

bool ThreadQueue::IsDelivering(const EventReceiver& receiver) const noexcept
{
    return std::find(m_delivering.begin(), m_delivering.end(), &receiver) != m_delivering.end();
}

void ThreadQueue::Forget(EventReceiver& receiver) noexcept
{
    Posts dropped;
    {
        std::unique_lock guard(m_mutex);
        const auto firstDropped = std::stable_partition(m_posts.begin(), m_posts.end(),
                                                        [&](const Posted& post) { return post.receiver != &receiver; });
        dropped.assign(firstDropped, m_posts.end());
        m_posts.erase(firstDropped, m_posts.end());
        if (GetCurrentThreadId() != m_dwThread)
            m_changed.wait(guard, [&] { return !IsDelivering(receiver); });
    }
    Release(dropped); // outside the lock: a last release may come back to this queue
}

void ThreadQueue::Close() noexcept
{
    Posts dropped;
    {
        const std::lock_guard guard(m_mutex);
        m_bOpen = false;
        dropped.swap(m_posts);
    }
    Release(dropped);
}

bool ThreadQueue::IsOpen() const noexcept
{
    const std::lock_guard guard(m_mutex);
    return m_bOpen;
}

void ThreadQueue::Release(const Posts& dropped) noexcept
{
    for (const Posted& post : dropped) {
        post.first->Release();
        post.second->Release();
    }
}

ULONG PumpThreadQueue(DWORD dwTimeout)
{
    ThreadQueue* const queue = ThreadQueue::IfAny();
    return queue ? queue->Deliver(dwTimeout) : 0;
}
