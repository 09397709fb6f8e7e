#include "tools/lvprop/SavedFile.h"

#include "platform/system/Utf8.h"
#include "tools/lvprop/Files.h"

#include <algorithm>

namespace {

constexpr char kMarker = '~';
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";

} // namespace

SavedFile::SavedFile(std::string name, std::string bytes) : m_name(std::move(name)), m_bytes(std::move(bytes))
{
    const std::string_view all = m_bytes;
    if (all.starts_with(kUtf16Mark)) {
        m_unit = 2;
        m_begin = kUtf16Mark.size();
    } else if (all.starts_with(kUtf8Mark)) {
        m_begin = kUtf8Mark.size();
    }
    // An odd byte at the end of UTF-16 is half a character and belongs to nothing.
    m_end = m_begin + (m_bytes.size() - m_begin) / m_unit * m_unit;
    for (const char unit : {'\n', '\r'}) {
        const bool isThere =
            m_end >= m_begin + m_unit && m_bytes[m_end - m_unit] == unit && (m_unit == 1 || m_bytes[m_end - 1] == '\0');
        if (!isThere)
            break;
        m_end -= m_unit;
    }
}

SavedFile SavedFile::Open(const std::string& name)
{
    return SavedFile(name, ReadFile(name));
}

bool SavedFile::IsMarkerAt(size_t at) const
{
    return m_bytes[at] == kMarker && (m_unit == 1 || m_bytes[at + 1] == '\0');
}

size_t SavedFile::FindMarker(size_t at) const
{
    if (m_unit == 1)
        return std::min(m_bytes.find(kMarker, at), m_end);
    while (at < m_end && !IsMarkerAt(at))
        at += m_unit;
    return at;
}

bool SavedFile::BeginsWithMarker() const
{
    return m_begin < m_end && IsMarkerAt(m_begin);
}

std::string SavedFile::FirstCharacter() const
{
    Text text = Decode(Bytes(m_begin, std::min(m_end, m_begin + 4)));
    const bool isPair = !text.empty() && text[0] >= 0xD800 && text[0] < 0xDC00;
    text.resize(std::min<size_t>(text.size(), isPair ? 2 : 1));
    return Utf8From(text);
}

Text SavedFile::Decode(std::string_view bytes) const
{
    if (m_unit == 1)
        return TextFromUtf8(bytes);
    Text text(bytes.size() / 2, OLECHAR{0});
    for (size_t i = 0; i < text.size(); ++i) {
        const auto low = static_cast<unsigned char>(bytes[2 * i]);
        const auto high = static_cast<unsigned char>(bytes[2 * i + 1]);
        text[i] = static_cast<OLECHAR>(low | (high << 8));
    }
    return text;
}
