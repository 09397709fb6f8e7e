// The event stream of one collection: records of one transaction in the order of queueing, each value edit followed
// by its old text. Owns the stream component until a transaction publishes it.
#pragma once

#include "LV_prpPropCollection.h"
#include "core/ValueText.h"
#include "platform/atl/ComPtr.h"

/// Size of a record on the stream: no padding, little endian.
inline constexpr LONG kEventRecordBytes = 20;
static_assert(sizeof(SprpEventInfo) == kEventRecordBytes);

class EventQueue {
public:
    /// Makes the first stream. The result of a failing step is for the creator of the collection.
    HRESULT Create();
    void Release() { m_stream.Release(); }

    /// Appends a record. Raises what the stream reports.
    void Append(const SprpEventInfo& record);
    /// Appends a record of a value edit and the text that the value had.
    void Append(const SprpEventInfo& record, const ValueText& oldText);

    LONG ItemCount() const;
    void Clear();
    /// Hands the filled stream over and starts a new one.
    CComPtr<IqorStream> Take();

private:
    static HRESULT MakeStream(CComPtr<IqorStream>& stream);

    CComPtr<IqorStream> m_stream;
};
