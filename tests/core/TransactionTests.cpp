// Transactions: the lock, the flag, the rules at the end, and what reaches the sinks on which thread.
#include "platform/com/PumpThreadQueue.h"
#include "tests/core/HostRule.h"
#include "tests/core/ModelFixture.h"

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <thread>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

/// A thread in an apartment of its own, as one must be that ends transactions.
class Worker {
public:
    template <class Body>
    explicit Worker(Body body)
        : m_thread([body] {
              EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
              body();
              CoUninitialize();
          })
    {
    }
    void join() { m_thread.join(); }

private:
    std::thread m_thread;
};

class Transactions : public ModelTest {
protected:
    HRESULT TryFromAnotherThread(LONG timeout = 0)
    {
        HRESULT hr = E_FAIL;
        Worker([&] {
            hr = collection->StartTransaction(timeout);
            m_message = LastErrorMessage();
            if (SUCCEEDED(hr)) {
                EXPECT_EQ(collection->EndTransaction(VARIANT_FALSE), S_OK);
            }
        }).join();
        return hr;
    }
    Text m_message;
};

} // namespace

TEST_F(Transactions, OpenAndCloseForOneThreadAfterTheOther)
{
    InTransaction([] {});
    EXPECT_EQ(TryFromAnotherThread(), S_OK);
}

TEST_F(Transactions, RefuseAThreadAtOnceThatOnlyPolls)
{
    ASSERT_EQ(collection->StartTransaction(-1), S_OK);
    EXPECT_TRUE(FAILED(TryFromAnotherThread()));
    EXPECT_EQ(m_message.substr(0, 45), OLESTR("Failed to start a transaction for the thread "));
    EXPECT_NE(m_message.find(OLESTR(" due to a lock by thread ")), Text::npos);
    LONG id = 0;
    EXPECT_EQ(collection->GetCollectionID(&id), S_OK); // still open
    ASSERT_EQ(collection->EndTransaction(VARIANT_FALSE), S_OK);
}

TEST_F(Transactions, NameTheThreadThatWaitsInSmallAndTheOneThatHoldsInCapitalDigits)
{
    ASSERT_EQ(collection->StartTransaction(-1), S_OK);
    const DWORD holder = GetCurrentThreadId();
    DWORD waiting = 0;
    Worker([&] {
        waiting = GetCurrentThreadId();
        EXPECT_TRUE(FAILED(collection->StartTransaction(0)));
        m_message = LastErrorMessage();
    }).join();
    char expected[120];
    std::snprintf(expected, sizeof expected,
                  "Failed to start a transaction for the thread %x due to a lock by thread %X",
                  static_cast<unsigned>(waiting), static_cast<unsigned>(holder));
    EXPECT_EQ(m_message, Text(expected, expected + std::strlen(expected)));
    ASSERT_EQ(collection->EndTransaction(VARIANT_FALSE), S_OK);
}

TEST_F(Transactions, LeaveEventsOfTheirRulesForTheNextThatFires)
{
    const auto property = Add(1, E_PROP_DT_LINEAR);
    const auto rule = MakeHostRule();
    InTransaction([&] { EXPECT_EQ(property->SetVisibilityInfo(rule), S_OK); });
    rule->visible = VARIANT_FALSE;
    Transact(
        collection, [&] { SetDouble(property, 1.5); }, false);
    EXPECT_THAT(sink->Records(), IsEmpty());
    InTransaction([&] { EXPECT_FALSE(FlagOf(property, &IqorProperty::IsVisible)); });
    EXPECT_THAT(sink->Records(), ElementsAre(StateEdit(1, true)));
    EXPECT_EQ(property->ClearVisibilityInfo(), S_OK);
}

TEST_F(Transactions, ApplyTheRuleOfARemovedPropertyThatAHostHolds)
{
    const auto held = Add(1, E_PROP_DT_LINEAR);
    const auto rule = MakeHostRule();
    InTransaction([&] {
        EXPECT_EQ(held->SetVisibilityInfo(rule), S_OK);
        EprpPropError error = E_PROP_ERROR_NONE;
        EXPECT_EQ(collection->RemoveProperty(1, &error), S_OK);
        rule->visible = VARIANT_FALSE;
    });
    EXPECT_THAT(sink->Records(), ElementsAre(Deleted(1), StateEdit(1, true)));
    EXPECT_EQ(held->ClearVisibilityInfo(), S_OK);
}

TEST_F(Transactions, WaitForALockAsLongAsTheyMay)
{
    ASSERT_EQ(collection->StartTransaction(-1), S_OK);
    std::atomic<bool> waiting{false};
    HRESULT hr = E_FAIL;
    Worker other([&] {
        waiting = true;
        hr = collection->StartTransaction(60'000);
        if (SUCCEEDED(hr)) {
            EXPECT_EQ(collection->EndTransaction(VARIANT_FALSE), S_OK);
        }
    });
    while (!waiting)
        std::this_thread::yield();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    ASSERT_EQ(collection->EndTransaction(VARIANT_FALSE), S_OK);
    other.join();
    EXPECT_EQ(hr, S_OK);
}

TEST_F(Transactions, DoNotNestAndStayHeldOneLevelDeeperAfterTheAttempt)
{
    ASSERT_EQ(collection->StartTransaction(-1), S_OK);
    ExpectRefusal(collection->StartTransaction(-1),
                  OLESTR("A transaction is already in progress! Memory leaks may occur."));
    LONG id = 0;
    EXPECT_EQ(collection->GetCollectionID(&id), S_OK); // the first goes on
    ASSERT_EQ(collection->EndTransaction(VARIANT_FALSE), S_OK);
    ExpectNoTransaction(collection->GetCollectionID(&id));

    EXPECT_TRUE(FAILED(TryFromAnotherThread()));
    EXPECT_TRUE(m_message.ends_with(OLESTR(" due to a lock by thread 0"))) << "nobody has begun one";
    ASSERT_EQ(collection->EndTransaction(VARIANT_FALSE), S_OK);
    EXPECT_EQ(TryFromAnotherThread(), S_OK);
}

TEST_F(Transactions, AreEndedByAStrangerWithoutEffectOnTheLock)
{
    ASSERT_EQ(collection->StartTransaction(-1), S_OK);
    Worker([&] { EXPECT_EQ(collection->EndTransaction(VARIANT_FALSE), S_OK); }).join();
    LONG id = 0;
    ExpectNoTransaction(collection->GetCollectionID(&id)); // the flag is plain
    EXPECT_TRUE(FAILED(TryFromAnotherThread()));           // the lock is not
    ASSERT_EQ(collection->EndTransaction(VARIANT_FALSE), S_OK);
    EXPECT_EQ(TryFromAnotherThread(), S_OK);
}

TEST_F(Transactions, EndQuietlyWhenNoneIsOpen)
{
    EXPECT_EQ(collection->EndTransaction(VARIANT_TRUE), S_OK);
    EXPECT_THAT(sink->streams, IsEmpty());
}

TEST_F(Transactions, LetEveryThreadThroughTheFlagWhileOneRuns)
{
    ASSERT_EQ(collection->StartTransaction(-1), S_OK);
    Worker([&] {
        LONG id = 0;
        EXPECT_EQ(collection->GetCollectionID(&id), S_OK);
    }).join();
    ASSERT_EQ(collection->EndTransaction(VARIANT_FALSE), S_OK);
}

TEST_F(Transactions, WithoutChangesFireNothing)
{
    InTransaction([] {});
    EXPECT_THAT(sink->streams, IsEmpty());
}

TEST_F(Transactions, HandTheChangesOverInOneCallPerSink)
{
    const auto property = Add(1, E_PROP_DT_LINEAR);
    ConnectedSink second{collection};
    InTransaction([&] {
        SetDouble(property, 1.5);
        SetDouble(property, 2.5);
    });
    EXPECT_THAT(sink->streams, SizeIs(1));
    EXPECT_THAT(sink->Records(), ElementsAre(ValueEdit(1, OLESTR("0")), ValueEdit(1, OLESTR("1.5"))));
    EXPECT_EQ(second->Records(), sink->Records());
}

TEST_F(Transactions, CallTheNextSinkAlthoughOneFails)
{
    const auto property = Add(1, E_PROP_DT_LINEAR);
    ConnectedSink second{collection};
    sink->answer = E_FAIL;
    InTransaction([&] { SetDouble(property, 1.5); });
    EXPECT_THAT(second->streams, SizeIs(1));
}

TEST_F(Transactions, DropTheirChangesWhenToldNotToFire)
{
    const auto property = Add(1, E_PROP_DT_LINEAR);
    Transact(
        collection, [&] { SetDouble(property, 1.5); }, false);
    InTransaction([] {});
    EXPECT_THAT(sink->streams, IsEmpty());
}

TEST_F(Transactions, WriteTheCollectionsIdIntoEachRecord)
{
    const auto property = Add(1, E_PROP_DT_LINEAR);
    InTransaction([&] {
        EXPECT_EQ(collection->SetCollectionID(7), S_OK);
        SetDouble(property, 1.5);
    });
    EXPECT_THAT(sink->Records(), ElementsAre(ValueEdit(1, OLESTR("0"), 7)));
}

TEST_F(Transactions, MayBeStartedBySinksWhichThenFireNested)
{
    const auto property = Add(1, E_PROP_DT_LINEAR);
    int depth = 0;
    sink->onStream = [&](IqorStream*) {
        if (++depth == 1)
            Transact(collection, [&] { SetDouble(property, 9); });
    };
    InTransaction([&] { SetDouble(property, 1.5); });
    EXPECT_THAT(sink->Records(), ElementsAre(ValueEdit(1, OLESTR("0")), ValueEdit(1, OLESTR("1.5"))));
    EXPECT_EQ(TryFromAnotherThread(), S_OK);
}

TEST_F(Transactions, FireOnTheMainThreadWithTheLockStillHeld)
{
    const auto property = Add(1, E_PROP_DT_LINEAR);
    HRESULT other = S_OK;
    sink->onStream = [&](IqorStream*) { other = TryFromAnotherThread(); };
    InTransaction([&] { SetDouble(property, 1.5); });
    EXPECT_TRUE(FAILED(other));
}

TEST_F(Transactions, SurviveASinkThatReleasesTheCollection)
{
    const auto property = Add(1, E_PROP_DT_LINEAR);
    IqorPropertyCollection* raw = collection;
    sink->onStream = [&](IqorStream*) { collection.Release(); };
    ASSERT_EQ(raw->StartTransaction(-1), S_OK);
    SetDouble(property, 1.5);
    EXPECT_EQ(raw->EndTransaction(VARIANT_TRUE), S_OK);
    EXPECT_THAT(sink->streams, SizeIs(1));
}

TEST_F(Transactions, OfAWorkerArriveOnTheRegisteringThreadInOrder)
{
    const auto property = Add(1, E_PROP_DT_LINEAR);
    Worker([&] {
        for (double value = 1; value < 4; ++value)
            Transact(collection, [&] { SetDouble(property, value); });
    }).join();
    EXPECT_THAT(sink->streams, IsEmpty());
    PumpThreadQueue(0);
    EXPECT_THAT(sink->Records(),
                ElementsAre(ValueEdit(1, OLESTR("0")), ValueEdit(1, OLESTR("1")), ValueEdit(1, OLESTR("2"))));
    EXPECT_THAT(sink->threads, testing::Each(std::this_thread::get_id()));
}

TEST_F(Transactions, OfAWorkerKeepTheCollectionAliveUntilTheyArrive)
{
    const auto property = Add(1, E_PROP_DT_LINEAR);
    Worker([&] { Transact(collection, [&] { SetDouble(property, 5); }); }).join();
    collection.Release();
    PumpThreadQueue(0);
    EXPECT_THAT(sink->streams, SizeIs(1));
}

TEST_F(Transactions, OfAWorkerGoToTheHelperOfTheCollectionsOwnNumber)
{
    const GUID number{0x1234567, 1, 2, {3, 4, 5, 6, 7, 8, 9, 10}};
    EXPECT_EQ(collection->SetUniqueNumber(number), S_OK);
    const auto property = Add(1, E_PROP_DT_LINEAR);
    Worker([&] { Transact(collection, [&] { SetDouble(property, 5); }); }).join();
    PumpThreadQueue(0);
    EXPECT_THAT(sink->streams, SizeIs(1));
}

TEST_F(Transactions, ContendFourAtATimeWithoutLosingAChange)
{
    const auto property = Add(1, E_PROP_DT_LONG);
    constexpr int kThreads = 4;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(LV_CONTENTION_SECONDS);
    std::atomic<int> done{0};
    std::vector<Worker> threads;
    for (int thread = 0; thread < kThreads; ++thread)
        threads.emplace_back([&] {
            while (std::chrono::steady_clock::now() < end) {
                if (FAILED(collection->StartTransaction(5)))
                    continue; // the time ran out while another thread had the lock
                SetLong(property, LongOf(property) + 1);
                EXPECT_EQ(collection->EndTransaction(VARIANT_TRUE), S_OK);
                ++done;
            }
        });
    for (auto& thread : threads)
        thread.join();
    PumpThreadQueue(0);
    InTransaction([&] { EXPECT_EQ(LongOf(property), done); });
    EXPECT_GT(done, 0);

    // Every change arrived, each record with the value that the one before it left.
    const auto records = sink->Records();
    ASSERT_EQ(records.size(), static_cast<std::size_t>(done));
    for (std::size_t i = 0; i < records.size(); ++i) {
        const std::string expected = std::to_string(i);
        ASSERT_EQ(records[i].oldText, Text(expected.begin(), expected.end()));
    }
}

TEST_F(Transactions, WriteRecordsOf20BytesWithTheLeastSignificantFirst)
{
    const auto property = Add(0x01020304, E_PROP_DT_LINEAR);
    std::vector<unsigned char> bytes(20);
    sink->onStream = [&](IqorStream* stream) {
        LONG read = 0;
        EStreamError error = E_STREAM_ERROR_NONE;
        EXPECT_EQ(stream->Seek(0, E_STREAM_ORIGIN_START, &error), S_OK);
        EXPECT_EQ(stream->Read(bytes.data(), 20, &read, &error), S_OK);
        EXPECT_EQ(read, 20);
    };
    InTransaction([&] {
        EXPECT_EQ(collection->SetCollectionID(0x0A0B), S_OK);
        SetDouble(property, 1.5);
    });
    EXPECT_THAT(bytes, ElementsAre(1, 0, 0, 0, 4, 3, 2, 1, 0x0B, 0x0A, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0xFF, 0xFF));
}
