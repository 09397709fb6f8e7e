#include "viewer/EventRecords.h"

#include "frame/Raise.h"
#include "viewer/ViewerSource.h"

EventRecords::EventRecords(IqorStream& stream) : m_spStream(&stream)
{
    EStreamError error = E_STREAM_ERROR_NONE;
    Must(stream.Seek(0, E_STREAM_ORIGIN_START, &error));
}

bool EventRecords::Next(SprpEventInfo& record)
{
    constexpr LONG kSize = sizeof record;
    LONG read = 0;
    EStreamError error = E_STREAM_ERROR_NONE;
    Must(m_spStream->Read(&record, kSize, &read, &error));
    if (error == E_STREAM_ERROR_END_OF_FILE)
        return false;
    if (read < kSize)
        ThrowFormatted(InViewer(), OLESTR("Error reading from stream. Expected %d bytes but read %d bytes"), kSize,
                       read);
    if (error != E_STREAM_ERROR_NONE)
        ThrowFormatted(InViewer(), OLESTR("There was an error reading the events stream"));
    if (record.eEventType == E_PROP_EVENT_PROP_EDITED && record.bDataChanged != VARIANT_FALSE) {
        CComBSTR oldText;
        LONG length = 0;
        Must(m_spStream->ReadString(&oldText, &length, &error));
    }
    return true;
}

bool EventRecords::ChangesRows(const SprpEventInfo& record)
{
    return record.eEventType == E_PROP_EVENT_PROP_EDITED || record.eEventType == E_PROP_EVENT_PROP_ADDED ||
           record.eEventType == E_PROP_EVENT_PROP_DELETED;
}
