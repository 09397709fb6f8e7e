#include "viewer/StateStreams.h"

#include "frame/Raise.h"
#include "viewer/ViewerSource.h"

#include <cstdint>

namespace {

constexpr const OLECHAR* kWrongStreamText =
    OLESTR("The stream mode is invalid. Please use a binary stream for initializing the category state map");

struct ReadResult {
    LONG bytes = 0;
    EStreamError error = E_STREAM_ERROR_NONE;

    bool IsWhole(LONG wanted) const { return error == E_STREAM_ERROR_NONE && bytes == wanted; }
    /// Nothing more will come of this stream.
    bool IsEnd() const { return error == E_STREAM_ERROR_END_OF_FILE && bytes == 0; }
};

template <class Value>
ReadResult ReadValue(IqorStream& stream, Value& value)
{
    ReadResult result;
    Must(stream.Read(&value, sizeof value, &result.bytes, &result.error));
    return result;
}

template <class Value>
void WriteValue(IqorStream& stream, Value value)
{
    Must(stream.Write(&value, sizeof value));
}

void SeekToStart(IqorStream& stream)
{
    EStreamError error = E_STREAM_ERROR_NONE;
    Must(stream.Seek(0, E_STREAM_ORIGIN_START, &error));
}

} // namespace

/// On purpose: the count is read in 4 bytes although 8 are written; hosts with saved states rely on either.
void ReadCategoryStates(IqorStream& stream, CategoryStates& states)
{
    constexpr unsigned kWrongModeLine = 468;
    EStreamMode mode = E_STREAM_MODE_NOT_SET;
    Must(stream.GetStreamMode(&mode));
    if (mode != E_STREAM_MODE_BINARY)
        ThrowFormatted({kViewerSource, kWrongModeLine}, kWrongStreamText);
    SeekToStart(stream);
    int32_t count = 0;
    if (!ReadValue(stream, count).IsWhole(sizeof count))
        return;
    states.clear();
    for (int32_t i = 0; i < count; ++i) {
        int32_t id = -1;
        uint8_t flag = 0;
        const ReadResult idRead = ReadValue(stream, id);
        const ReadResult flagRead = ReadValue(stream, flag);
        states[id] = flag;
        if (idRead.IsEnd() && flagRead.IsEnd())
            return; // every further entry would be this one again
    }
}

/// On purpose: the type is checked here and the mode in reading, both under the same message.
void WriteCategoryStates(IqorStream& stream, const CategoryStates& states)
{
    constexpr unsigned kWrongTypeLine = 517;
    EStreamType type = E_STREAM_TYPE_FILE;
    Must(stream.GetStreamType(&type));
    if (type != E_STREAM_TYPE_MEMORY)
        ThrowFormatted({kViewerSource, kWrongTypeLine}, kWrongStreamText);
    Must(stream.ClearStream());
    WriteValue(stream, uint64_t{states.size()});
    for (const auto& [id, flag] : states) {
        WriteValue(stream, int32_t{id});
        WriteValue(stream, uint8_t{flag});
    }
}

VisibilityOverrides ReadVisibilityOverrides(IqorStream& stream)
{
    VisibilityOverrides overrides;
    SeekToStart(stream);
    for (;;) {
        SprpVisibilityOverride record{};
        if (!ReadValue(stream, record).IsWhole(sizeof record))
            return overrides;
        overrides[record.nPropertyID] = record.bVisible != VARIANT_FALSE;
    }
}
