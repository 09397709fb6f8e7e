#include "suite/stream/StreamStorage.h"

#include "suite/CodePages.h"

#include <bit>
#include <limits>
#include <new>
#include <stdexcept>

// Frames and 16-bit text are kept as they lie in memory.
static_assert(std::endian::native == std::endian::little);

namespace {

constexpr std::size_t kFrameHead = sizeof(std::uint32_t);

/// Memory that Clear keeps, so that a stream filled again and again asks for none.
constexpr std::size_t kKeptBytes = std::size_t{1} << 20;

void AppendFrame(ByteBuffer& out, TextView text)
{
    const std::size_t bytes = text.size() * sizeof(OLECHAR);
    const auto head = static_cast<std::uint32_t>(bytes);
    unsigned char* const place = out.Extend(kFrameHead + bytes);
    std::memcpy(place, &head, kFrameHead);
    if (bytes != 0)
        std::memcpy(place + kFrameHead, text.data(), bytes);
}

} // namespace

StreamStorage::StreamStorage() : m_codePage(kCodePageUtf16)
{
    SetDelimiter(OLESTR("\r\n"));
}

void StreamStorage::SetMode(EStreamMode mode)
{
    if (mode == E_STREAM_MODE_TEXT)
        WriteOutPending();
    m_mode = mode;
}

void StreamStorage::SetCodePage(LONG codePage)
{
    ByteBuffer delimiter;
    EncodeText(m_delimiter, codePage, delimiter);
    m_delimiterBytes = std::move(delimiter);
    m_codePage = codePage;
}

void StreamStorage::SetDelimiter(TextView delimiter)
{
    Text kept(delimiter);
    ByteBuffer bytes;
    EncodeText(kept, m_codePage, bytes);
    m_delimiter = std::move(kept);
    m_delimiterBytes = std::move(bytes);
}

void StreamStorage::CheckRoom(std::size_t bytes) const
{
    if (bytes > kMaxBytes - m_bytes.Size())
        throw std::length_error("stream content");
}

void StreamStorage::Append(ByteView bytes, std::uint32_t items)
{
    CheckRoom(bytes.size());
    m_bytes.Append(bytes);
    m_items += items;
}

void StreamStorage::AppendString(TextView text, bool lineEnd)
{
    if (IsText()) {
        ByteBuffer line;
        EncodeText(text, m_codePage, line);
        if (lineEnd)
            line.Append(m_delimiterBytes.View());
        Append(line.View());
        return;
    }
    if (text.size() > (kMaxBytes - kFrameHead) / sizeof(OLECHAR))
        throw std::length_error("stream content");
    CheckRoom(kFrameHead + text.size() * sizeof(OLECHAR));
    AppendFrame(m_bytes, text);
    ++m_items;
}

void StreamStorage::AddPending(ByteView value)
{
    if (value.size() > kMaxBytes - m_values.Size())
        throw std::length_error("stream content");
    const auto begin = static_cast<std::uint32_t>(m_values.Size());
    m_values.Append(value);
    m_pending.push_back({static_cast<std::uint32_t>(m_bytes.Size()), begin, static_cast<std::uint32_t>(value.size()),
                         static_cast<std::uint32_t>(m_sources.size() - 1)});
    ++m_items;
}

void StreamStorage::AddBatch(ByteView bytes, std::uint32_t items, ByteView values,
                             std::span<const SqorDeferredText> texts)
{
    CheckRoom(bytes.size());
    if (values.size() > kMaxBytes - m_values.Size())
        throw std::length_error("stream content");
    const auto at = static_cast<std::uint32_t>(m_bytes.Size());
    const auto value = static_cast<std::uint32_t>(m_values.Size());
    const auto source = static_cast<std::uint32_t>(m_sources.size() - 1);
    if (m_pending.capacity() - m_pending.size() < texts.size())
        m_pending.reserve(std::max(m_pending.size() + texts.size(), m_pending.capacity() * 2));
    for (const SqorDeferredText& text : texts)
        m_pending.push_back({at + text.Offset, value + text.Value, text.ValueBytes, source});
    m_values.Append(values);
    m_bytes.Append(bytes);
    m_items += items + texts.size();
}

TextView StreamStorage::Render(const Pending& pending, Text& scratch) const
{
    return m_sources[pending.source].source->TextOf(m_values.View().subspan(pending.value, pending.valueBytes),
                                                    scratch);
}

void StreamStorage::DropPending()
{
    if (m_pending.capacity() > kKeptBytes / sizeof(Pending))
        std::vector<Pending>().swap(m_pending);
    m_pending.clear();
    m_sources.clear();
    m_values.Clear(kKeptBytes);
    m_nextPending = 0;
}

void StreamStorage::WriteOutPending()
{
    if (m_pending.empty())
        return;
    ByteBuffer whole;
    Text scratch;
    std::size_t from = 0;
    std::size_t position = m_position;
    for (std::size_t i = 0; i < m_pending.size(); ++i) {
        const Pending& pending = m_pending[i];
        whole.Append(m_bytes.View().subspan(from, pending.at - from));
        from = pending.at;
        const TextView text = Render(pending, scratch);
        if (text.size() > kMaxBytes / sizeof(OLECHAR) ||
            kFrameHead + text.size() * sizeof(OLECHAR) + m_bytes.Size() - from > kMaxBytes - whole.Size())
            throw std::length_error("stream content");
        AppendFrame(whole, text);
        if (i < m_nextPending)
            position += kFrameHead + text.size() * sizeof(OLECHAR);
    }
    whole.Append(m_bytes.View().subspan(from));
    m_bytes = std::move(whole);
    m_position = position;
    DropPending();
}

EStreamError StreamStorage::Read(void* buffer, std::size_t bytes, std::size_t& read)
{
    if (PendingWithin(bytes))
        WriteOutPending();
    if (AtEnd()) {
        read = 0;
        return E_STREAM_ERROR_END_OF_FILE;
    }
    read = std::min(bytes, m_bytes.Size() - m_position);
    if (read != 0)
        std::memcpy(buffer, m_bytes.Data() + m_position, read);
    m_position += read;
    return E_STREAM_ERROR_NONE;
}

EStreamError StreamStorage::ReadString(TextView& text)
{
    text = {};
    if (AtEnd())
        return E_STREAM_ERROR_END_OF_FILE;
    if (PendingIsNext()) {
        text = Render(m_pending[m_nextPending], m_scratch);
        ++m_nextPending;
        return E_STREAM_ERROR_NONE;
    }
    ByteView bytes;
    const EStreamError error = IsText() ? TakeLine(bytes) : TakeFrame(bytes);
    if (error != E_STREAM_ERROR_NONE)
        return error;
    if (IsText() && m_codePage != kCodePageUtf16) {
        m_scratch.clear();
        DecodeText(bytes, m_codePage, m_scratch);
        text = m_scratch;
    } else {
        text = UnitsOf(bytes);
    }
    return E_STREAM_ERROR_NONE;
}

EStreamError StreamStorage::SkipString()
{
    if (AtEnd())
        return E_STREAM_ERROR_END_OF_FILE;
    if (PendingIsNext()) {
        ++m_nextPending;
        return E_STREAM_ERROR_NONE;
    }
    ByteView bytes;
    return IsText() ? TakeLine(bytes) : TakeFrame(bytes);
}

EStreamError StreamStorage::TakeFrame(ByteView& units)
{
    const auto frameBytes = [this]() -> std::size_t {
        const std::size_t left = m_bytes.Size() - m_position;
        if (left < kFrameHead)
            return 0;
        std::uint32_t bytes = 0;
        std::memcpy(&bytes, m_bytes.Data() + m_position, kFrameHead);
        return bytes % sizeof(OLECHAR) == 0 && bytes <= left - kFrameHead ? kFrameHead + bytes : 0;
    };
    std::size_t frame = frameBytes();
    if (frame == 0 || PendingWithin(frame)) {
        WriteOutPending();
        frame = frameBytes();
    }
    if (frame == 0) {
        m_position = m_bytes.Size();
        return E_STREAM_ERROR_UNKNOWN_ERROR;
    }
    units = m_bytes.View().subspan(m_position + kFrameHead, frame - kFrameHead);
    m_position += frame;
    return E_STREAM_ERROR_NONE;
}

EStreamError StreamStorage::TakeLine(ByteView& line)
{
    const ByteView rest = m_bytes.View().subspan(m_position);
    const ByteView delimiter = m_delimiterBytes.View();
    const std::size_t unit = m_codePage == kCodePageUtf16 ? sizeof(OLECHAR) : 1;
    const std::size_t end = FindBytes(rest, delimiter, unit);
    if (end != rest.size()) {
        line = rest.first(end);
        m_position += end + delimiter.size();
        return E_STREAM_ERROR_NONE;
    }
    m_position = m_bytes.Size();
    if (rest.size() < unit)
        return E_STREAM_ERROR_UNKNOWN_ERROR;
    // Half a character at the very end belongs to no text.
    line = rest.first(rest.size() - rest.size() % unit);
    return E_STREAM_ERROR_NONE;
}

TextView StreamStorage::UnitsOf(ByteView units)
{
    const std::size_t length = units.size() / sizeof(OLECHAR);
    if (length == 0)
        return {};
    if (reinterpret_cast<std::uintptr_t>(units.data()) % alignof(OLECHAR) != 0) {
        m_scratch.resize(length);
        std::memcpy(m_scratch.data(), units.data(), units.size());
        return m_scratch;
    }
    // The units were copied into an array of unsigned char, which made characters of them there.
    return {std::launder(reinterpret_cast<const OLECHAR*>(units.data())), length};
}

EStreamError StreamStorage::Seek(std::int64_t offset, EStreamOrigin origin)
{
    if (origin == E_STREAM_ORIGIN_START && offset == 0) {
        m_position = 0;
        m_nextPending = 0;
        return E_STREAM_ERROR_NONE;
    }
    WriteOutPending();
    const auto size = static_cast<std::int64_t>(m_bytes.Size());
    const std::int64_t base = origin == E_STREAM_ORIGIN_END       ? size
                              : origin == E_STREAM_ORIGIN_CURRENT ? static_cast<std::int64_t>(m_position)
                                                                  : 0;
    const std::int64_t target = base + offset;
    if (target < 0)
        return E_STREAM_ERROR_BEGINNING_OF_FILE;
    if (target > size)
        return E_STREAM_ERROR_END_OF_FILE;
    m_position = static_cast<std::size_t>(target);
    return E_STREAM_ERROR_NONE;
}

std::size_t StreamStorage::Position()
{
    if (m_nextPending != 0)
        WriteOutPending();
    return m_position;
}

LONG StreamStorage::Items() const
{
    return static_cast<LONG>(std::min<std::uint64_t>(m_items, std::numeric_limits<LONG>::max()));
}

ByteView StreamStorage::Bytes()
{
    WriteOutPending();
    return m_bytes.View();
}

Text StreamStorage::Decoded()
{
    Text text;
    DecodeText(Bytes(), m_codePage, text);
    return text;
}

void StreamStorage::Clear()
{
    m_bytes.Clear(kKeptBytes);
    DropPending();
    m_position = 0;
    m_items = 0;
}

void StreamStorage::Load(ByteBuffer&& bytes)
{
    if (bytes.Size() > kMaxBytes)
        throw std::length_error("stream content");
    Clear();
    m_bytes = std::move(bytes);
    m_items = m_bytes.Size() != 0 ? 1 : 0;
}

void StreamStorage::CutAtPosition()
{
    WriteOutPending();
    m_bytes.Cut(m_position);
    if (m_position == 0)
        m_items = 0;
}
