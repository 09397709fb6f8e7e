#include "core/EventQueue.h"

#include "frame/Raise.h"
#include "idl/SuiteClasses.h"

#include <utility>

HRESULT EventQueue::MakeStream(CComPtr<IqorStream>& stream)
{
    const HRESULT hr = stream.CoCreateInstance(CLSID_qorStream);
    return FAILED(hr) ? hr : stream->SetStreamMode(E_STREAM_MODE_BINARY);
}

HRESULT EventQueue::Create()
{
    const HRESULT hr = MakeStream(m_stream);
    if (FAILED(hr))
        return hr;
    EStreamError error = E_STREAM_ERROR_NONE;
    return m_stream->Seek(0, E_STREAM_ORIGIN_START, &error);
}

void EventQueue::Append(const SprpEventInfo& record)
{
    Must(m_stream->Write(const_cast<SprpEventInfo*>(&record), kEventRecordBytes));
}

void EventQueue::Append(const SprpEventInfo& record, const ValueText& oldText)
{
    Append(record);
    const CComBSTR text(oldText.ToText());
    Must(m_stream->WriteString(text, VARIANT_TRUE));
}

LONG EventQueue::ItemCount() const
{
    LONG count = 0;
    Must(m_stream->GetItemCount(&count));
    return count;
}

void EventQueue::Clear()
{
    Must(m_stream->ClearStream());
}

CComPtr<IqorStream> EventQueue::Take()
{
    CComPtr<IqorStream> fresh;
    Must(MakeStream(fresh));
    return std::exchange(m_stream, std::move(fresh));
}
