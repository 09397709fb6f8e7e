// Native body: a place in the queue of the creating thread. Title and message number have no use here.
#include "platform/com/EventWindow.h"

#include "platform/com/native/ThreadQueue.h"

#include <atomic>
#include <utility>

namespace {

class QueuedEventWindow final : public EventWindow {
public:
    QueuedEventWindow(EventReceiver& receiver, std::shared_ptr<ThreadQueue> queue)
        : m_receiver(receiver), m_queue(std::move(queue))
    {
    }
    ~QueuedEventWindow() override { QueuedEventWindow::Destroy(); }

    bool Post(IUnknown* first, IUnknown* second) noexcept override
    {
        return !m_bDestroyed && m_queue->Post(m_receiver, first, second);
    }
    bool Exists() const noexcept override { return !m_bDestroyed && m_queue->IsOpen(); }
    void Destroy() noexcept override
    {
        if (!m_bDestroyed.exchange(true))
            m_queue->Forget(m_receiver);
    }

private:
    EventReceiver& m_receiver;
    const std::shared_ptr<ThreadQueue> m_queue;
    std::atomic<bool> m_bDestroyed{false};
};

} // namespace

std::unique_ptr<EventWindow> EventWindow::Create(EventReceiver& receiver, const OLECHAR*, UINT)
{
    std::shared_ptr<ThreadQueue> queue = ThreadQueue::OfThisThread();
    return queue ? std::make_unique<QueuedEventWindow>(receiver, std::move(queue)) : nullptr;
}
