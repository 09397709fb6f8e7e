#include <lumevor/Lumevor.h>

#include <gmock/gmock.h>

#include <thread>

namespace {

using lumevor::Collection;
using lumevor::Error;
using lumevor::Event;
using lumevor::EventRange;
using lumevor::OutcomeError;
using lumevor::Property;
using lumevor::Subscription;
using lumevor::Text;
using lumevor::Transaction;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

template <class Range>
std::vector<LONG> IdsOf(const Range& range)
{
    std::vector<LONG> ids;
    for (const Property& property : range)
        ids.push_back(property.Id());
    return ids;
}

/// Two slots at the top level; the first has two children, and one of those a child.
class Kit : public testing::Test {
protected:
    static void SetUpTestSuite() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }

    Kit()
    {
        const Transaction transaction(collection);
        collection.Add({.id = 10, .type = E_PROP_DT_CATEGORY, .name = OLESTR("Probing")});
        collection.Add({.id = 20, .parent = 10, .type = E_PROP_DT_LINEAR, .name = OLESTR("Depth")});
        collection.Add({.id = 30, .parent = 10, .type = E_PROP_DT_LONG, .name = OLESTR("Points")});
        collection.Add({.id = 40, .parent = 30, .type = E_PROP_DT_STRING_ANSI, .name = OLESTR("Remark")});
        collection.Add({.id = 50, .type = E_PROP_DT_DOUBLE, .name = OLESTR("Speed")});
    }

    /// Another thread could start a transaction at once.
    bool IsFree()
    {
        bool isFree = false;
        std::thread([&] {
            isFree = SUCCEEDED(collection->StartTransaction(0));
            if (isFree)
                collection->EndTransaction(VARIANT_FALSE);
        }).join();
        return isFree;
    }

    Collection collection = Collection::Create();
};

TEST_F(Kit, WalksTheTopLevelTheChildrenAndTheWholeTree)
{
    const Transaction transaction(collection);
    EXPECT_THAT(IdsOf(collection.TopLevel()), ElementsAre(10, 50));
    EXPECT_THAT(IdsOf(collection.At(10).Children()), ElementsAre(20, 30));
    EXPECT_THAT(IdsOf(collection.Descendants()), ElementsAre(10, 20, 30, 40, 50));
    EXPECT_THAT(IdsOf(collection.At(50).Children()), IsEmpty());
}

TEST_F(Kit, WalksAnEmptyCollectionInNoStep)
{
    const Collection empty = Collection::Create();
    const Transaction transaction(empty);
    EXPECT_THAT(IdsOf(empty.TopLevel()), IsEmpty());
    EXPECT_THAT(IdsOf(empty.Descendants()), IsEmpty());
}

TEST_F(Kit, ReadsAndWritesTypedValues)
{
    const Transaction transaction(collection);
    collection.At(20).SetDouble(12.5);
    collection.At(30).SetLong(7);
    collection.At(40).SetValue(OLESTR("first pass"));
    EXPECT_EQ(collection.At(20).Double(), 12.5);
    EXPECT_EQ(collection.At(20).Value(), OLESTR("12.5"));
    EXPECT_EQ(collection.At(30).Long(), 7);
    EXPECT_EQ(collection.At(40).Value(), OLESTR("first pass"));
    EXPECT_EQ(collection.At(40).Name(), OLESTR("Remark"));
    EXPECT_EQ(collection.At(40).ParentId(), 30);
    EXPECT_EQ(collection.At(10).ParentId(), E_PROP_ID_TOP_LEVEL);
}

TEST_F(Kit, ThrowsTheOutcomeOfAnAccessorThatDoesNotFitTheType)
{
    const Transaction transaction(collection);
    try {
        collection.At(40).Long();
        FAIL() << "nothing was thrown";
    } catch (const OutcomeError& error) {
        EXPECT_EQ(error.Outcome(), E_PROP_ERROR_WRONG_DATA_TYPE);
    }
}

TEST_F(Kit, FindsNothingUnderAnUnknownId)
{
    const Transaction transaction(collection);
    EXPECT_FALSE(collection.Find(99));
    EXPECT_FALSE(collection.Contains(99));
    EXPECT_TRUE(collection.Contains(40));
    EXPECT_THROW(collection.At(99), OutcomeError);
    collection.Remove(50);
    EXPECT_FALSE(collection.Find(50));
    EXPECT_THROW(collection.Remove(50), OutcomeError);
}

TEST_F(Kit, TurnsAWrongCallIntoAnExceptionWithItsDescription)
{
    try {
        collection.At(20);
        FAIL() << "nothing was thrown";
    } catch (const Error& error) {
        EXPECT_TRUE(error.IsUsage());
        EXPECT_FALSE(error.IsInternal());
        EXPECT_EQ(error.Description().find(OLESTR("A transaction has not been started!")), 0u);
        EXPECT_THAT(error.what(), testing::HasSubstr("A transaction has not been started!"));
    }
}

TEST_F(Kit, TellsAnInternalErrorApart)
{
    const Transaction transaction(collection);
    try {
        collection.Add({.id = 10, .type = E_PROP_DT_LONG});
        FAIL() << "nothing was thrown";
    } catch (const Error& error) {
        EXPECT_TRUE(error.IsInternal());
        EXPECT_FALSE(error.IsUsage());
    }
}

TEST_F(Kit, EndsATransactionWhenAnExceptionPasses)
{
    try {
        const Transaction transaction(collection);
        EXPECT_FALSE(IsFree());
        throw std::runtime_error("the host's own");
    } catch (const std::runtime_error&) {
    }
    EXPECT_TRUE(IsFree());
}

TEST_F(Kit, JoinsAnOuterTransactionOfTheSameCollection)
{
    {
        const Transaction outer(collection);
        {
            const Transaction inner(collection);
            collection.At(20).SetDouble(1);
        }
        EXPECT_FALSE(IsFree()) << "the inner scope must not end the outer one's transaction";
        EXPECT_EQ(collection.At(20).Double(), 1);
    }
    EXPECT_TRUE(IsFree());
}

TEST_F(Kit, KeepsTransactionsOfDifferentCollectionsApart)
{
    const Collection other = Collection::Create();
    const Transaction transaction(collection);
    {
        const Transaction second(other);
        other.Add({.id = 1, .type = E_PROP_DT_LONG});
    }
    EXPECT_FALSE(IsFree());
}

TEST_F(Kit, LeavesNoLockBehindWhenAStartFails)
{
    const Transaction held(collection);
    std::thread([&] { EXPECT_THROW(Transaction(collection, 0), Error); }).join();
    EXPECT_FALSE(IsFree());
}

TEST_F(Kit, HandsEachTransactionsEventsToASubscription)
{
    std::vector<Event> events;
    const Subscription subscription(collection, [&](const EventRange& range) {
        for (const Event& event : range)
            events.push_back(event);
    });
    {
        const Transaction transaction(collection);
        collection.At(30).SetLong(5);
        collection.Add({.id = 60, .parent = 10, .type = E_PROP_DT_LONG});
        collection.At(20).SetVisible(false);
    }
    ASSERT_THAT(events, SizeIs(3));
    EXPECT_EQ(events[0].PropertyId(), 30);
    EXPECT_TRUE(events[0].IsValueChange());
    EXPECT_EQ(events[0].oldText, OLESTR("0"));
    EXPECT_EQ(events[1].Type(), E_PROP_EVENT_PROP_ADDED);
    EXPECT_EQ(events[1].ParentId(), 10);
    EXPECT_FALSE(events[1].oldText);
    EXPECT_TRUE(events[2].IsVisibilityChange());
}

TEST_F(Kit, ReadsTheSameEventsTwice)
{
    std::vector<std::size_t> counts;
    const Subscription subscription(collection, [&](const EventRange& range) {
        for (int walk = 0; walk < 2; ++walk) {
            std::size_t count = 0;
            for ([[maybe_unused]] const Event& event : range)
                ++count;
            counts.push_back(count);
        }
    });
    {
        const Transaction transaction(collection);
        collection.At(20).SetDouble(3);
        collection.At(40).SetValue(OLESTR(""));
        collection.At(40).SetValue(OLESTR("x"));
    }
    EXPECT_THAT(counts, ElementsAre(2u, 2u));
}

TEST_F(Kit, MayStartATransactionInsideASubscription)
{
    LONG seen = 0;
    const Subscription subscription(collection, [&](const EventRange&) {
        const Transaction transaction(collection);
        seen = collection.At(30).Long();
    });
    {
        Transaction transaction(collection);
        collection.At(30).SetLong(9);
        transaction.End();
        EXPECT_EQ(seen, 9);
    }
    EXPECT_TRUE(IsFree());
}

TEST_F(Kit, DropsTheEventsOfATransactionOnRequest)
{
    int calls = 0;
    const Subscription subscription(collection, [&](const EventRange&) { ++calls; });
    {
        Transaction transaction(collection);
        collection.At(30).SetLong(5);
        transaction.DropEvents();
    }
    EXPECT_EQ(calls, 0);
    const Transaction transaction(collection);
    EXPECT_EQ(collection.At(30).Long(), 5);
}

TEST_F(Kit, HearsNothingAfterASubscriptionHasEnded)
{
    int calls = 0;
    {
        const Subscription subscription(collection, [&](const EventRange&) { ++calls; });
    }
    const Transaction transaction(collection);
    collection.At(30).SetLong(5);
    EXPECT_EQ(calls, 0);
}

TEST_F(Kit, KeepsTheExceptionsOfASubscriptionAwayFromTheComponent)
{
    int calls = 0;
    const Subscription failing(collection, [](const EventRange&) { throw std::runtime_error("the host's own"); });
    const Subscription next(collection, [&](const EventRange&) { ++calls; });
    {
        const Transaction transaction(collection);
        collection.At(30).SetLong(5);
    }
    EXPECT_EQ(calls, 1);
}

TEST_F(Kit, LoadsWhatItSavedIntoTheTreeBuiltAgain)
{
    Text saved;
    {
        const Transaction transaction(collection);
        collection.At(20).SetDouble(12.5);
        collection.At(40).SetValue(OLESTR("a ~ b | c"));
        saved = collection.Save();
        collection.At(20).SetDouble(0);
        collection.At(40).SetValue(OLESTR(""));
    }
    const Transaction transaction(collection);
    const lumevor::LoadResult result = collection.Load(saved);
    EXPECT_TRUE(result.complete);
    EXPECT_THAT(result.problems, IsEmpty());
    EXPECT_EQ(collection.At(20).Double(), 12.5);
    EXPECT_EQ(collection.At(40).Value(), OLESTR("a ~ b | c"));
}

TEST_F(Kit, TellsTheProblemsOfALoadOneByOne)
{
    const Transaction transaction(collection);
    const lumevor::LoadResult result = collection.Load(OLESTR("~14h21.5~zz"));
    EXPECT_FALSE(result.complete);
    ASSERT_THAT(result.problems, SizeIs(1));
    EXPECT_EQ(result.problems[0].find(OLESTR("A parsing error has occurred (")), 0u);
    EXPECT_EQ(collection.At(20).Double(), 1.5);
}

TEST_F(Kit, KeepsCopiesOfAPropertyOnOneValue)
{
    const Transaction transaction(collection);
    const Property one = collection.At(30);
    const Property two = one;
    one.SetLong(3);
    EXPECT_EQ(two.Long(), 3);
}

} // namespace
