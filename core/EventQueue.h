// The events of one collection since its last publication: records in the order of queueing, each value edit followed
// by its old text. Owns the stream component until a transaction publishes it.
//
// Where the stream lets it, the events are gathered here and go onto the stream when it is handed over, old values
// still as values: a transaction whose events nobody wants, or whose old texts nobody reads, never makes them. To any
// other stream each event is written at once.
#pragma once

#include "LV_prpPropCollection.h"
#include "LV_suiteStream.h"
#include "core/ValueText.h"
#include "platform/atl/ComPtr.h"
#include "platform/memory/GrowingBuffer.h"

#include <cstdint>

/// Size of a record on the stream: no padding, little endian.
inline constexpr LONG kEventRecordBytes = 20;
static_assert(sizeof(SprpEventInfo) == kEventRecordBytes);

class EventQueue {
public:
    /// Makes the first stream. The result of a failing step is for the creator of the collection.
    HRESULT Create();
    void Release();

    /// Appends a record. Raises what the stream reports.
    void Append(const SprpEventInfo& record)
    {
        if (!m_direct) [[unlikely]]
            return Write(record);
        if (m_records.Size() >= kMostRecords) [[unlikely]]
            FailFull();
        m_records.Append(record);
    }
    /// Appends a record of a value edit and the text that the value had.
    void Append(const SprpEventInfo& record, const ValueText& oldText);

    LONG ItemCount() const;
    void Clear();
    /// Hands the filled stream over and starts a new one.
    CComPtr<IqorStream> Take();

private:
    /// Sizes and numbers on a stream are LONG, and an event takes two items at most.
    static constexpr std::size_t kMostRecords = 0x7FFFFFFF / kEventRecordBytes / 2;

    static HRESULT MakeStream(CComPtr<IqorStream>& stream);

    void Write(const SprpEventInfo& record);
    [[noreturn]] static void FailFull();
    void Flush();
    void Forget();

    CComPtr<IqorStream> m_stream;
    CComPtr<IqorStreamDirect> m_direct; ///< of m_stream; null when that is somebody else's
    GrowingBuffer<SprpEventInfo> m_records;
    GrowingBuffer<SqorDeferredText> m_texts; ///< places in m_records, values in m_values, both in bytes
    GrowingBuffer<uint64_t> m_values;
};
