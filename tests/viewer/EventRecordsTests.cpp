// Reading event streams: whole ones, cut ones, broken ones.
#include "tests/core/ModelFixture.h"
#include "tests/support/FakeStream.h"
#include "tests/support/Framed.h"
#include "viewer/EventRecords.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

std::string BytesOf(const SprpEventInfo& record)
{
    return std::string(reinterpret_cast<const char*>(&record), sizeof record);
}

/// Ids of all records; the result of the reading goes into `hr`.
std::vector<LONG> IdsOf(IqorStream& stream, HRESULT& hr)
{
    std::vector<LONG> ids;
    hr = Framed([&] {
        EventRecords records(stream);
        SprpEventInfo record{};
        while (records.Next(record))
            ids.push_back(record.nPropID);
    });
    return ids;
}

constexpr SprpEventInfo kAdded{E_PROP_EVENT_PROP_ADDED, 4, 0, -1, VARIANT_FALSE, VARIANT_FALSE};

} // namespace

class EventStream : public ModelTest {};

TEST_F(EventStream, IsReadFromItsStartPastTheTextsOfDataEdits)
{
    const auto number = Add(5, E_PROP_DT_DOUBLE);
    std::vector<LONG> ids;
    HRESULT hr = E_FAIL;
    sink->onStream = [&](IqorStream* stream) { ids = IdsOf(*stream, hr); };
    InTransaction([&] {
        SetDouble(number, 1.5);
        SetErrorText(number, OLESTR("Too long"));
        EXPECT_EQ(AddTo(collection, {.id = 6}), S_OK);
    });
    EXPECT_EQ(hr, S_OK);
    EXPECT_THAT(ids, ElementsAre(5, 5, 6));
}

TEST(EventRecord, ThatIsCutOffIsRaisedWithItsLength)
{
    OwnFakeStream stream;
    stream->answers = {{BytesOf(kAdded)}, {BytesOf(kAdded).substr(0, 19)}};
    HRESULT hr = S_OK;
    EXPECT_THAT(IdsOf(*stream, hr), ElementsAre(4));
    ExpectRefusal(hr, OLESTR("Error reading from stream. Expected 20 bytes but read 19 bytes"));
}

TEST(EventRecord, WithAReportIsRaised)
{
    OwnFakeStream stream;
    stream->answers = {{BytesOf(kAdded)}, {BytesOf(kAdded), E_STREAM_ERROR_UNKNOWN_ERROR}};
    HRESULT hr = S_OK;
    EXPECT_THAT(IdsOf(*stream, hr), ElementsAre(4));
    ExpectRefusal(hr, OLESTR("There was an error reading the events stream"));
}

TEST(EventRecord, EndsTheReadingWithTheReportOfTheEnd)
{
    OwnFakeStream stream;
    stream->answers = {{BytesOf(kAdded)}, {BytesOf(kAdded), E_STREAM_ERROR_END_OF_FILE}};
    HRESULT hr = E_FAIL;
    EXPECT_THAT(IdsOf(*stream, hr), ElementsAre(4));
    EXPECT_EQ(hr, S_OK);
}

TEST(EventRecord, RaisesWhatTheStreamAnswers)
{
    OwnFakeStream stream;
    HRESULT hr = S_OK;
    stream->seek = E_ACCESSDENIED;
    IdsOf(*stream, hr);
    EXPECT_EQ(hr, E_ACCESSDENIED);
    stream->seek = S_OK;
    stream->answers = {{{}, E_STREAM_ERROR_NONE, E_ABORT}};
    IdsOf(*stream, hr);
    EXPECT_EQ(hr, E_ABORT);
}

TEST(EventRecord, ChangesRowsUnlessItTellsOfALoad)
{
    SprpEventInfo record = kAdded;
    EXPECT_TRUE(EventRecords::ChangesRows(record));
    record.eEventType = E_PROP_EVENT_PROP_EDITED;
    EXPECT_TRUE(EventRecords::ChangesRows(record));
    record.eEventType = E_PROP_EVENT_PROP_DELETED;
    EXPECT_TRUE(EventRecords::ChangesRows(record));
    record.eEventType = E_PROP_EVENT_COLLECTION_LOADED;
    EXPECT_FALSE(EventRecords::ChangesRows(record));
    record.eEventType = E_PROP_EVENT_NONE;
    EXPECT_FALSE(EventRecords::ChangesRows(record));
}
