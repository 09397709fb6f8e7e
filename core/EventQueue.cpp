#include "core/EventQueue.h"

#include "core/EventTexts.h"
#include "frame/Raise.h"
#include "idl/SuiteClasses.h"

#include <stdexcept>
#include <utility>

namespace {

constexpr std::size_t kMostValueWords = 0x7FFFFFFF / sizeof(uint64_t);

/// Memory that is kept from one transaction to the next.
constexpr std::size_t kKeptRecords = std::size_t{1} << 15;

template <class Element>
void Empty(GrowingBuffer<Element>& elements)
{
    if (elements.Capacity() > kKeptRecords)
        elements = {};
    else
        elements.Cut(0);
}

} // namespace

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
    m_stream.QueryInterface(&m_direct);
    EStreamError error = E_STREAM_ERROR_NONE;
    return m_stream->Seek(0, E_STREAM_ORIGIN_START, &error);
}

void EventQueue::Release()
{
    Forget();
    m_direct.Release();
    m_stream.Release();
}

void EventQueue::Append(const SprpEventInfo& record, const ValueText& oldText)
{
    if (m_values.Size() >= kMostValueWords) [[unlikely]]
        FailFull();
    Append(record);
    if (!m_direct) [[unlikely]] {
        const CComBSTR text(oldText.ToText());
        Must(m_stream->WriteString(text, VARIANT_TRUE));
        return;
    }
    const auto value = static_cast<uint32_t>(m_values.Size() * sizeof(uint64_t));
    const uint32_t bytes = PackText(oldText, m_values);
    m_texts.Append({static_cast<uint32_t>(m_records.Size() * sizeof(SprpEventInfo)), value, bytes});
}

void EventQueue::Write(const SprpEventInfo& record)
{
    Must(m_stream->Write(const_cast<SprpEventInfo*>(&record), kEventRecordBytes));
}

void EventQueue::FailFull()
{
    throw std::length_error("events of a transaction");
}

LONG EventQueue::ItemCount() const
{
    if (m_direct) [[likely]]
        return static_cast<LONG>(m_records.Size() + m_texts.Size());
    LONG count = 0;
    Must(m_stream->GetItemCount(&count));
    return count;
}

void EventQueue::Clear()
{
    Forget();
    if (!m_direct)
        Must(m_stream->ClearStream());
}

CComPtr<IqorStream> EventQueue::Take()
{
    CComPtr<IqorStream> fresh;
    Must(MakeStream(fresh));
    Flush();
    m_direct.Release();
    fresh.QueryInterface(&m_direct);
    return std::exchange(m_stream, std::move(fresh));
}

void EventQueue::Flush()
{
    if (!m_direct)
        return;
    Must(m_direct->AppendBatch(m_records.Data(), static_cast<LONG>(m_records.Size() * sizeof(SprpEventInfo)),
                               static_cast<LONG>(m_records.Size()),
                               reinterpret_cast<const unsigned char*>(m_values.Data()),
                               static_cast<LONG>(m_values.Size() * sizeof(uint64_t)), m_texts.Data(),
                               static_cast<LONG>(m_texts.Size()), &PackedTextRenderer()));
    Forget();
}

void EventQueue::Forget()
{
    Empty(m_records);
    Empty(m_texts);
    Empty(m_values);
}
