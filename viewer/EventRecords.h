// Reading the records of an event stream, one by one.
#pragma once

#include "LV_prpPropCollection.h"
#include "platform/atl/ComPtr.h"

class EventRecords {
public:
    /// Goes to the start of the stream.
    explicit EventRecords(IqorStream& stream);

    /// The next record; the text behind a data edit is read with it and dropped.
    /// Raises a failing call, a record that is cut off, and any report but that of the end.
    /// @return false at the end of the stream
    bool Next(SprpEventInfo& record);

    /// True for records that change rows; the others are left to hosts.
    static bool ChangesRows(const SprpEventInfo& record);

private:
    CComPtr<IqorStream> m_spStream;
};
