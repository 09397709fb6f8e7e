#include "platform/com/native/ThreadQueue.h"
#include "platform/com/PumpThreadQueue.h"
#include "tests/platform/CountedUnknown.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace {

/// Holds each delivery until it is let go.
class SlowReceiver final : public EventReceiver {
public:
    void OnPosted(IUnknown*, IUnknown*) noexcept override
    {
        inside = true;
        inside.notify_all();
        mayLeave.wait(false);
        left = true;
    }
    std::atomic<bool> inside{false};
    std::atomic<bool> mayLeave{false};
    std::atomic<bool> left{false};
};

struct IdleReceiver final : EventReceiver {
    void OnPosted(IUnknown*, IUnknown*) noexcept override {}
};

TEST(ThreadQueue, ReleasesWhatWasNotDeliveredWhenItsThreadEnds)
{
    CountedUnknown object;
    std::thread([&] {
        IdleReceiver receiver;
        object.AddRef();
        object.AddRef();
        EXPECT_TRUE(ThreadQueue::OfThisThread()->Post(receiver, &object, &object));
        EXPECT_EQ(object.Count(), 3u);
    }).join();
    EXPECT_EQ(object.Count(), 1u);
}

TEST(ThreadQueue, ReleasesOnlyWhatWaitsForTheForgottenReceiver)
{
    CountedUnknown kept, dropped;
    std::thread([&] {
        IdleReceiver one, other;
        const auto queue = ThreadQueue::OfThisThread();
        for (CountedUnknown* object : {&kept, &dropped}) {
            object->AddRef();
            object->AddRef();
        }
        queue->Post(one, &kept, &kept);
        queue->Post(other, &dropped, &dropped);
        queue->Forget(other);
        EXPECT_EQ(dropped.Count(), 1u);
        EXPECT_EQ(kept.Count(), 3u);
        EXPECT_EQ(queue->Deliver(0), 1u);
    }).join();
}

TEST(ThreadQueue, ForgetsOnAnotherThreadOnlyAfterADeliveryInProgress)
{
    CountedUnknown object;
    SlowReceiver receiver;
    std::shared_ptr<ThreadQueue> queue;
    std::thread owner([&] {
        queue = ThreadQueue::OfThisThread();
        queue->Post(receiver, &object, &object);
        PumpThreadQueue(0);
    });
    receiver.inside.wait(false);
    std::thread release([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        receiver.mayLeave = true;
        receiver.mayLeave.notify_all();
    });
    queue->Forget(receiver);
    EXPECT_TRUE(receiver.left);
    release.join();
    owner.join();
}

TEST(ThreadQueue, IsNotMadeByAPump)
{
    std::thread([] {
        EXPECT_EQ(PumpThreadQueue(INFINITE), 0u) << "nothing can ever come to this thread";
        EXPECT_EQ(ThreadQueue::IfAny(), nullptr);
    }).join();
}

} // namespace
