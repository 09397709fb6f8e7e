// The events of a collection as the lines that the sample host shows.
#include "samples/host/EventLog.h"

#include <gmock/gmock.h>

using lumevor::Collection;
using lumevor::Text;
using lumevor::Transaction;
using testing::ElementsAre;

namespace {

class HostEventLog : public testing::Test {
protected:
    HostEventLog()
    {
        const Transaction transaction(collection);
        collection.Add({.id = 10, .type = E_PROP_DT_CATEGORY, .name = OLESTR("Probe")});
        collection.Add({.id = 26, .parent = 10, .type = E_PROP_DT_LINEAR, .name = OLESTR("Depth")}).SetDouble(12.5);
    }
    /// Lines of one transaction with the changes.
    template <class Body>
    void Hear(const Body& change)
    {
        const lumevor::Subscription listener(
            collection, [this](const lumevor::EventRange& events) { log.Add(events, collection); });
        const Transaction transaction(collection);
        change();
    }
    std::vector<Text> Words() const
    {
        std::vector<Text> words;
        for (std::size_t line = 0; line < log.Size(); ++line)
            words.push_back(log[line].what);
        return words;
    }

    const lumevor::Apartment apartment;
    const Collection collection = Collection::Create();
    EventLog log{4};
};

} // namespace

TEST_F(HostEventLog, AValueIsToldWithItsNameBeforeAndAfter)
{
    Hear([&] { collection.At(26).SetDouble(8.25); });
    ASSERT_EQ(log.Size(), 1u);
    EXPECT_EQ(log[0].what, OLESTR("value"));
    EXPECT_EQ(log[0].id, OLESTR("26"));
    EXPECT_EQ(log[0].name, OLESTR("Depth"));
    EXPECT_EQ(log[0].before, OLESTR("12.5"));
    EXPECT_EQ(log[0].after, OLESTR("8.25"));
}

TEST_F(HostEventLog, VisibilityAndStateHaveWordsOfTheirOwn)
{
    Hear([&] { collection.At(26).SetVisible(false); });
    Hear([&] { collection.At(26).SetVisible(true); });
    Hear([&] { collection.At(26).SetReadOnly(true); });
    Hear([&] { collection.At(26).SetErrorText(OLESTR("too deep")); });
    EXPECT_THAT(Words(), ElementsAre(OLESTR("hidden"), OLESTR("shown"), OLESTR("state"), OLESTR("state")));
    EXPECT_EQ(log[2].after, OLESTR("read-only"));
    EXPECT_EQ(log[3].after, OLESTR("too deep"));
}

TEST_F(HostEventLog, APropertyThatIsGoneKeepsItsIdAlone)
{
    Hear([&] { collection.Add({.id = 30, .type = E_PROP_DT_LONG, .name = OLESTR("Count")}); });
    Hear([&] { collection.Remove(30); });
    ASSERT_THAT(Words(), ElementsAre(OLESTR("added"), OLESTR("removed")));
    EXPECT_EQ(log[0].name, OLESTR("Count"));
    EXPECT_EQ(log[1].id, OLESTR("30"));
    EXPECT_EQ(log[1].name, OLESTR(""));
}

TEST_F(HostEventLog, ALoadIsOneLineOfTheWholeCollection)
{
    Text saved;
    {
        const Transaction transaction(collection);
        saved = collection.Save();
    }
    Hear([&] { collection.Load(saved); });
    ASSERT_THAT(Words(), ElementsAre(OLESTR("loaded")));
    EXPECT_EQ(log[0].id, OLESTR(""));
}

TEST_F(HostEventLog, KeepsTheNewestLinesAndCountsAll)
{
    for (int value = 1; value <= 6; ++value)
        Hear([&] { collection.At(26).SetDouble(value); });
    EXPECT_EQ(log.Size(), 4u);
    EXPECT_EQ(log.Total(), 6u);
    EXPECT_EQ(log[0].after, OLESTR("3"));
    EXPECT_EQ(log[3].after, OLESTR("6"));
}

TEST_F(HostEventLog, ReadingTheValuesMakesNoFurtherEvents)
{
    int streams = 0;
    const lumevor::Subscription counter(collection, [&](const lumevor::EventRange&) { ++streams; });
    Hear([&] { collection.At(26).SetDouble(3); });
    EXPECT_EQ(streams, 1);
}
