// A file with one saved text: UTF-8, or UTF-16 with its mark, as the suite's programs write it. Its records come with
// their place in the file, one by one, so that a file of any size needs no second copy of itself.
#pragma once

#include "platform/com/Ole.h"

#include <string>
#include <string_view>

class SavedFile {
public:
    /// A line end at the very end of the file ends the line and belongs to no record.
    SavedFile(std::string name, std::string bytes);

    /// Reads the file of that name.
    static SavedFile Open(const std::string& name);

    const std::string& Name() const { return m_name; }
    bool IsEmpty() const { return Content().empty(); }

    /// False when the text does not open with the marker: what stands ahead of the first one is no record that a
    /// program ever wrote.
    bool BeginsWithMarker() const;

    /// What stands in the marker's place, for messages: one character.
    std::string FirstCharacter() const;

    /// The whole text, as a stream would hand it out.
    Text WholeText() const { return Decode(Content()); }

    /// Runs body(offset, length, record) on each record: bytes of the file from the marker on, and the record's text
    /// without its marker, still escaped.
    template <class Body>
    void ForEachRecord(Body&& body) const
    {
        for (size_t at = m_begin; at < m_end;) {
            const size_t next = FindMarker(at);
            if (next > at) // between two markers stands no record
                body(at - MarkerAheadOf(at), next - at + MarkerAheadOf(at), Decode(Bytes(at, next)));
            at = next + m_unit;
        }
    }

private:
    std::string_view Bytes(size_t begin, size_t end) const
    {
        return std::string_view(m_bytes).substr(begin, end - begin);
    }
    std::string_view Content() const { return Bytes(m_begin, m_end); }
    bool IsMarkerAt(size_t at) const;
    size_t FindMarker(size_t at) const;
    size_t MarkerAheadOf(size_t at) const { return at > m_begin ? m_unit : 0; }
    Text Decode(std::string_view bytes) const;

    std::string m_name;
    std::string m_bytes;
    size_t m_unit = 1;  ///< bytes of the marker: 1 in UTF-8, 2 in UTF-16
    size_t m_begin = 0; ///< behind the byte-order mark
    size_t m_end = 0;   ///< ahead of the final line end
};
