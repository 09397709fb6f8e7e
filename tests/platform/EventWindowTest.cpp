#include "platform/com/EventWindow.h"
#include "platform/com/PumpThreadQueue.h"
#include "tests/platform/CountedUnknown.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <future>
#include <thread>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr UINT kMessage = 37379;

/// Writes down what arrives and on which thread, and releases it.
class Recorder final : public EventReceiver {
public:
    void OnPosted(IUnknown* first, IUnknown* second) noexcept override
    {
        pairs.emplace_back(first, second);
        thread = GetCurrentThreadId();
        if (during)
            during();
        first->Release();
        second->Release();
    }

    std::vector<std::pair<IUnknown*, IUnknown*>> pairs;
    DWORD thread = 0;
    std::function<void()> during;
};

class EventWindows : public testing::Test {
protected:
    std::unique_ptr<EventWindow> Make(EventReceiver& receiver)
    {
        auto window = EventWindow::Create(receiver, OLESTR("Events of a test"), kMessage);
        EXPECT_NE(window, nullptr);
        return window;
    }
    static bool PostWithReferences(EventWindow& window, CountedUnknown& first, CountedUnknown& second)
    {
        first.AddRef();
        second.AddRef();
        return window.Post(&first, &second);
    }

    CountedUnknown a, b, c, d;
};

TEST_F(EventWindows, DeliverNothingBeforeTheThreadPumps)
{
    Recorder recorder;
    const auto window = Make(recorder);
    EXPECT_TRUE(PostWithReferences(*window, a, b));
    EXPECT_THAT(recorder.pairs, IsEmpty());
    EXPECT_EQ(a.Count(), 2u);
    EXPECT_GE(PumpThreadQueue(0), 1u);
    EXPECT_THAT(recorder.pairs, ElementsAre(std::pair<IUnknown*, IUnknown*>(&a, &b)));
    EXPECT_EQ(a.Count(), 1u);
    EXPECT_EQ(b.Count(), 1u);
}

TEST_F(EventWindows, DeliverOnTheirOwnThreadInOrderOfPosting)
{
    Recorder recorder;
    const auto window = Make(recorder);
    std::thread([&] {
        PostWithReferences(*window, a, b);
        PostWithReferences(*window, c, d);
    }).join();
    PostWithReferences(*window, b, a);
    PumpThreadQueue(0);
    EXPECT_THAT(recorder.pairs,
                ElementsAre(std::pair<IUnknown*, IUnknown*>(&a, &b), std::pair<IUnknown*, IUnknown*>(&c, &d),
                            std::pair<IUnknown*, IUnknown*>(&b, &a)));
    EXPECT_EQ(recorder.thread, GetCurrentThreadId());
}

TEST_F(EventWindows, OfOneThreadKeepTheOrderBetweenThem)
{
    std::vector<int> order;
    Recorder first;
    Recorder second;
    first.during = [&] { order.push_back(1); };
    second.during = [&] { order.push_back(2); };
    const auto one = Make(first);
    const auto two = Make(second);
    PostWithReferences(*two, a, b);
    PostWithReferences(*one, a, b);
    PostWithReferences(*two, a, b);
    PumpThreadQueue(0);
    EXPECT_THAT(order, ElementsAre(2, 1, 2));
}

TEST_F(EventWindows, WakeAWaitingPump)
{
    Recorder recorder;
    const auto window = Make(recorder);
    std::thread poster([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        PostWithReferences(*window, a, b);
    });
    while (recorder.pairs.empty())
        PumpThreadQueue(INFINITE);
    poster.join();
    EXPECT_EQ(recorder.pairs.size(), 1u);
}

TEST_F(EventWindows, LetAPumpGiveUpWaiting)
{
    Recorder recorder;
    const auto window = Make(recorder);
    PumpThreadQueue(0);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(PumpThreadQueue(20), 0u);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(15));
}

TEST_F(EventWindows, DeliverWhatIsPostedDuringADelivery)
{
    Recorder recorder;
    const auto window = Make(recorder);
    recorder.during = [&] {
        if (recorder.pairs.size() == 1)
            PostWithReferences(*window, c, d);
    };
    PostWithReferences(*window, a, b);
    PumpThreadQueue(0);
    EXPECT_EQ(recorder.pairs.size(), 2u);
}

TEST_F(EventWindows, DeliverWithinADelivery)
{
    Recorder recorder;
    const auto window = Make(recorder);
    recorder.during = [&] {
        if (recorder.pairs.size() == 1)
            PumpThreadQueue(0);
    };
    PostWithReferences(*window, a, b);
    PostWithReferences(*window, c, d);
    PumpThreadQueue(0);
    EXPECT_EQ(recorder.pairs.size(), 2u);
    EXPECT_EQ(d.Count(), 1u);
}

TEST_F(EventWindows, TakeNothingOnceDestroyed)
{
    Recorder recorder;
    const auto window = Make(recorder);
    EXPECT_TRUE(window->Exists());
    window->Destroy();
    EXPECT_FALSE(window->Exists());
    EXPECT_FALSE(window->Post(&a, &b));
    EXPECT_EQ(a.Count(), 1u) << "the references stay with the caller";
    window->Destroy();
    PumpThreadQueue(0);
    EXPECT_THAT(recorder.pairs, IsEmpty());
}

TEST_F(EventWindows, MayBeDestroyedDuringADelivery)
{
    Recorder recorder;
    auto window = Make(recorder);
    recorder.during = [&] { window.reset(); };
    PostWithReferences(*window, a, b);
    PumpThreadQueue(0);
    EXPECT_EQ(recorder.pairs.size(), 1u);
    EXPECT_EQ(a.Count(), 1u);
}

TEST_F(EventWindows, MayBeDestroyedByAnotherThreadWhileTheirOwnPumps)
{
    Recorder recorder;
    const auto window = Make(recorder);
    std::promise<void> done;
    std::future<void> isDone = done.get_future();
    std::thread destroyer([&] {
        window->Destroy();
        done.set_value();
    });
    while (isDone.wait_for(std::chrono::milliseconds(0)) != std::future_status::ready)
        PumpThreadQueue(1);
    destroyer.join();
    EXPECT_FALSE(window->Exists());
    EXPECT_FALSE(window->Post(&a, &b));
}

TEST_F(EventWindows, DieWithTheirThread)
{
    Recorder recorder;
    std::unique_ptr<EventWindow> window;
    std::thread([&] { window = Make(recorder); }).join();
    EXPECT_FALSE(window->Exists());
    EXPECT_FALSE(window->Post(&a, &b));
    EXPECT_EQ(a.Count(), 1u);
}

TEST_F(EventWindows, TakePairsFromManyThreadsAtOnce)
{
    Recorder recorder;
    const auto window = Make(recorder);
    constexpr std::size_t kThreads = 4;
    constexpr std::size_t kPosts = 200;
    std::vector<CountedUnknown> objects(kThreads);
    std::vector<std::thread> threads;
    for (CountedUnknown& object : objects) {
        threads.emplace_back([&] {
            for (std::size_t i = 0; i < kPosts; ++i)
                EXPECT_TRUE(PostWithReferences(*window, object, object));
        });
    }
    while (recorder.pairs.size() < kThreads * kPosts)
        PumpThreadQueue(10);
    for (std::thread& thread : threads)
        thread.join();
    for (const CountedUnknown& object : objects)
        EXPECT_EQ(object.Count(), 1u);
}

} // namespace
