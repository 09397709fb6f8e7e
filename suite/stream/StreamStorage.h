// The content of a stream: bytes, the number of writes, one read position, and the rules of text and binary strings.
// It knows nothing of COM, files or threads; qorStream gives it its interface and StreamFile its file.
//
// Binary strings are framed: four bytes, little-endian, with the number of bytes that follow, then the text in 16-bit
// units. So a string comes back whole whatever it holds, and records and strings may alternate. Text strings are lines
// in the code page, each ended by the delimiter.
//
// A binary string may also stand here without its characters, as a value and a source that makes the text when it is
// read (a "pending" text). Every answer is the one that the written text would give: whatever asks for bytes, sizes or
// positions first has all pending texts written out.
#pragma once

#include "LV_prpPropCollection.h"
#include "LV_suiteStream.h"
#include "platform/com/Ole.h"
#include "suite/ByteBuffer.h"

#include <memory>
#include <span>
#include <vector>

/// Makes the characters of pending texts. The same value gives the same text at any time.
class TextSource {
public:
    virtual ~TextSource() = default;
    /// The result is `scratch` or lives as long as this source.
    virtual TextView TextOf(ByteView value, Text& scratch) const = 0;
};

class StreamStorage {
public:
    /// Sizes and positions are LONG at the interface.
    static constexpr std::size_t kMaxBytes = 0x7FFFFFFF;

    StreamStorage();

    /// Every mode but text works as binary.
    EStreamMode Mode() const { return m_mode; }
    void SetMode(EStreamMode mode);
    LONG CodePage() const { return m_codePage; }
    /// Counts for texts read and written from now on; the bytes that are here stay as they are.
    void SetCodePage(LONG codePage);
    TextView Delimiter() const { return m_delimiter; }
    /// The end of a text line. Empty: text strings follow each other without a mark, and reading gives all the rest.
    void SetDelimiter(TextView delimiter);

    // Writing appends at the end and leaves the read position alone. A content that would pass kMaxBytes raises
    // std::length_error and changes nothing.
    void Append(ByteView bytes, std::uint32_t items = 1);
    void AppendString(TextView text, bool lineEnd);
    /// A string whose characters `make()` 's source gives when asked. Consecutive texts of one `identity` share a
    /// source. Binary modes only.
    template <class Make>
    void AppendPending(const void* identity, ByteView value, Make make)
    {
        UseSource(identity, make);
        AddPending(value);
    }
    /// Bytes of several items with pending texts between them. Binary modes only; places and values must lie within.
    template <class Make>
    void AppendBatch(ByteView bytes, std::uint32_t items, ByteView values, std::span<const SqorDeferredText> texts,
                     const void* identity, Make make)
    {
        UseSource(identity, make);
        AddBatch(bytes, items, values, texts);
    }

    /// Gives what is left, up to `bytes`; END_OF_FILE only when nothing is.
    EStreamError Read(void* buffer, std::size_t bytes, std::size_t& read);
    /// The next string; `text` stays valid until the next call on this object. UNKNOWN_ERROR and the end of the content
    /// when no string can begin here: what follows such bytes is anybody's guess, and a loop of reads must end.
    EStreamError ReadString(TextView& text);
    /// Moves behind the next string without making it.
    EStreamError SkipString();

    /// A target outside the content leaves the position: BEGINNING_OF_FILE, END_OF_FILE. The end itself is inside.
    EStreamError Seek(std::int64_t offset, EStreamOrigin origin);
    std::size_t Position();

    /// Writes since the content was last empty.
    LONG Items() const;
    /// All bytes, pending texts written out; valid until the next call.
    ByteView Bytes();
    /// In text mode the decoded content.
    Text Decoded();

    void Clear();
    /// Replaces the content; it counts as one item unless it is empty.
    void Load(ByteBuffer&& bytes);
    /// Cuts at the read position. The count of writes stays, unless nothing is left.
    void CutAtPosition();

private:
    struct Source {
        const void* identity;
        std::unique_ptr<TextSource> source;
    };
    /// A text that belongs at the offset `at` of m_bytes without standing there. Its value is a part of m_values.
    struct Pending {
        std::uint32_t at;
        std::uint32_t value;
        std::uint32_t valueBytes;
        std::uint32_t source;
    };

    template <class Make>
    void UseSource(const void* identity, Make& make)
    {
        if (m_sources.empty() || m_sources.back().identity != identity)
            m_sources.push_back({identity, make()});
    }
    void AddPending(ByteView value);
    void AddBatch(ByteView bytes, std::uint32_t items, ByteView values, std::span<const SqorDeferredText> texts);
    void CheckRoom(std::size_t bytes) const;
    bool IsText() const { return m_mode == E_STREAM_MODE_TEXT; }
    bool AtEnd() const { return m_position == m_bytes.Size() && m_nextPending == m_pending.size(); }
    bool PendingIsNext() const { return m_nextPending < m_pending.size() && m_pending[m_nextPending].at == m_position; }
    /// Whether a pending text stands before the byte `bytes` behind the read position.
    bool PendingWithin(std::size_t bytes) const
    {
        return m_nextPending < m_pending.size() && m_pending[m_nextPending].at - m_position < bytes;
    }
    TextView Render(const Pending& pending, Text& scratch) const;
    void WriteOutPending();
    void DropPending();
    /// Finds the next string's bytes and moves behind it.
    EStreamError TakeFrame(ByteView& units);
    EStreamError TakeLine(ByteView& line);
    TextView UnitsOf(ByteView units);

    ByteBuffer m_bytes;
    ByteBuffer m_values;
    std::vector<Pending> m_pending;
    std::vector<Source> m_sources;
    /// Offset in m_bytes; of the pending texts at this very offset those before m_nextPending are behind it.
    std::size_t m_position = 0;
    std::size_t m_nextPending = 0;
    std::uint64_t m_items = 0;
    EStreamMode m_mode = E_STREAM_MODE_NOT_SET;
    LONG m_codePage;
    Text m_delimiter;
    /// m_delimiter in m_codePage.
    ByteBuffer m_delimiterBytes;
    Text m_scratch;
};
