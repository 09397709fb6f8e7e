#include "core/EventQueue.h"

#include "core/EventTexts.h"
#include "frame/Raise.h"
#include "idl/SuiteClasses.h"

#include <stdexcept>
#include <utility>

namespace {

/// Sizes and numbers on a stream are LONG, and an event takes two items at most.
constexpr std::size_t kMostRecords = 0x7FFFFFFF / kEventRecordBytes / 2;
constexpr std::size_t kMostValueWords = 0x7FFFFFFF / sizeof(uint64_t);

/// Memory that is kept from one transaction to the next.
constexpr std::size_t kKeptRecords = std::size_t{1} << 15;

template <class Element>
void Empty(std::vector<Element>& elements)
{
    if (elements.capacity() > kKeptRecords)
        std::vector<Element>().swap(elements);
    elements.clear();
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
    Append(record);
    if (!m_direct) [[unlikely]] {
        const CComBSTR text(oldText.ToText());
        Must(m_stream->WriteString(text, VARIANT_TRUE));
        return;
    }
    const auto value = static_cast<uint32_t>(m_values.size() * sizeof(uint64_t));
    const uint32_t bytes = PackText(oldText, m_values);
    m_texts.push_back({static_cast<uint32_t>(m_records.size() * sizeof(SprpEventInfo)), value, bytes});
}

void EventQueue::Write(const SprpEventInfo& record)
{
    Must(m_stream->Write(const_cast<SprpEventInfo*>(&record), kEventRecordBytes));
}

void EventQueue::MakeRoom() const
{
    if (m_records.size() >= kMostRecords || m_values.size() >= kMostValueWords) [[unlikely]]
        throw std::length_error("events of a transaction");
}

LONG EventQueue::ItemCount() const
{
    if (m_direct) [[likely]]
        return static_cast<LONG>(m_records.size() + m_texts.size());
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
    Must(m_direct->AppendBatch(m_records.data(), static_cast<LONG>(m_records.size() * sizeof(SprpEventInfo)),
                               static_cast<LONG>(m_records.size()),
                               reinterpret_cast<const unsigned char*>(m_values.data()),
                               static_cast<LONG>(m_values.size() * sizeof(uint64_t)), m_texts.data(),
                               static_cast<LONG>(m_texts.size()), &PackedTextRenderer()));
    Forget();
}

void EventQueue::Forget()
{
    Empty(m_records);
    Empty(m_texts);
    Empty(m_values);
}
