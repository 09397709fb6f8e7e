// The only reader of message formats. Formats come from this program and from language libraries, so a format is
// never trusted: an argument knows its own kind, and no format can read what was not given.
//
// Conversions: %s, %d, %i, %ld, %u, %lu, %x, %X and %%. Integers take a width and a zero flag ("%08x") and are
// 32 bits wide. A conversion without an argument prints nothing, a surplus argument is ignored, and what is no
// conversion of this list is copied as it stands. An argument of the other kind (a translator's mistake) prints in
// its own way: a text as itself, a number in decimal.
#pragma once

#include "platform/com/Ole.h"

#include <concepts>
#include <initializer_list>
#include <span>
#include <type_traits>

/// One argument of a message. It refers to its text and lives no longer than the call.
class FormatArgument {
public:
    template <class T>
    requires std::is_integral_v<T> || std::is_enum_v<T> FormatArgument(T number)
        : m_number(static_cast<std::uint32_t>(number)) // The low 32 bits, whatever the type.
    {
    }
    FormatArgument(TextView text) : m_text(text), m_isText(true) {}
    FormatArgument(const Text& text) : m_text(text), m_isText(true) {}
    /// A null text prints as "(null)".
    FormatArgument(const OLECHAR* text) : m_text(text ? TextView(text) : OLESTR("(null)")), m_isText(true) {}

    bool IsText() const { return m_isText; }
    TextView AsText() const { return m_text; }
    std::uint32_t AsNumber() const { return m_number; }

private:
    TextView m_text;
    std::uint32_t m_number = 0;
    bool m_isText = false;
};

using FormatArguments = std::span<const FormatArgument>;

/// Appends the message to `out`.
void AppendFormatted(Text& out, TextView format, FormatArguments arguments);

/// Fills `buffer`, terminator included. A message that does not fit is cut so that it ends in `overflowTail` and
/// fills the buffer. Units behind the terminator are not touched. The buffer must hold more than the tail.
void FormatBounded(std::span<OLECHAR> buffer, TextView overflowTail, TextView format, FormatArguments arguments);

/// `FormatText(OLESTR("Property %i: %s"), id, name)`.
template <class... Arguments>
Text FormatText(TextView format, const Arguments&... arguments)
{
    const std::initializer_list<FormatArgument> list{FormatArgument(arguments)...};
    Text out;
    AppendFormatted(out, format, {list.begin(), list.size()});
    return out;
}

/// Units of a message or location of a raised error, terminator included.
inline constexpr std::size_t kMessageUnits = 1024;

/// A raised error's message: overflow shows in three dots and a line end.
template <class... Arguments>
void FormatMessageText(std::span<OLECHAR, kMessageUnits> buffer, TextView format, const Arguments&... arguments)
{
    const std::initializer_list<FormatArgument> list{FormatArgument(arguments)...};
    FormatBounded(buffer, OLESTR("...\r\n"), format, {list.begin(), list.size()});
}

/// A raised error's location: overflow shows in three dots alone.
template <class... Arguments>
void FormatLocationText(std::span<OLECHAR, kMessageUnits> buffer, TextView format, const Arguments&... arguments)
{
    const std::initializer_list<FormatArgument> list{FormatArgument(arguments)...};
    FormatBounded(buffer, OLESTR("..."), format, {list.begin(), list.size()});
}
