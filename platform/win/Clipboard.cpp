#include "platform/win/Clipboard.h"

#include <cstring>
#include <string>

namespace {

/// Content of a text format up to its terminator, at most as long as its memory says.
template <class Char>
std::optional<std::basic_string<Char>> ReadText(UINT format)
{
    if (!IsClipboardFormatAvailable(format))
        return std::nullopt;
    const HANDLE memory = GetClipboardData(format);
    const auto* text = memory ? static_cast<const Char*>(GlobalLock(memory)) : nullptr;
    if (!text)
        return std::nullopt;
    const std::size_t room = GlobalSize(memory) / sizeof(Char);
    std::size_t length = 0;
    while (length < room && text[length])
        ++length;
    std::basic_string<Char> copy(text, length);
    GlobalUnlock(memory);
    return copy;
}

} // namespace

std::optional<Text> ClipboardReader::WideText() const
{
    return m_bOpen ? ReadText<OLECHAR>(CF_UNICODETEXT) : std::nullopt;
}

std::optional<Text> ClipboardReader::NarrowText() const
{
    const auto narrow = m_bOpen ? ReadText<char>(CF_TEXT) : std::nullopt;
    if (!narrow)
        return std::nullopt;
    const int length = static_cast<int>(narrow->size());
    Text wide(narrow->size(), 0);
    wide.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_ACP, 0, narrow->data(), length, wide.data(), static_cast<int>(wide.size()))));
    return wide;
}
