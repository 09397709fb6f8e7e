#include "frame/FormatText.h"

#include "frame/NumberText.h"

#include <algorithm>

namespace {

/// A width above this is no sane conversion of a message; it is copied like any other bad one.
constexpr unsigned kMaxWidth = kMessageUnits - 1;

struct Conversion {
    std::size_t length = 0; ///< Units of the format that it takes, the percent sign included.
    unsigned width = 0;
    bool zeroFilled = false;
    OLECHAR kind = 0;
};

/// Reads the conversion at the start of `format`, which begins with a percent sign. False for what is none.
bool ReadConversion(TextView format, Conversion& conversion)
{
    std::size_t at = 1;
    const auto next = [&] { return at < format.size() ? format[at] : OLECHAR{0}; };

    while (next() == OLECHAR{'0'}) {
        conversion.zeroFilled = true;
        ++at;
    }
    for (; next() >= OLECHAR{'0'} && next() <= OLECHAR{'9'}; ++at) {
        conversion.width = 10 * conversion.width + static_cast<unsigned>(next() - OLECHAR{'0'});
        if (conversion.width > kMaxWidth)
            return false;
    }
    const bool plain = at == 1;
    const bool isLong = next() == OLECHAR{'l'};
    if (isLong)
        ++at;

    conversion.kind = next();
    conversion.length = at + 1;
    switch (conversion.kind) {
    case OLECHAR{'s'}:
    case OLECHAR{'%'}: return plain && !isLong;
    case OLECHAR{'d'}:
    case OLECHAR{'i'}:
    case OLECHAR{'u'}:
    case OLECHAR{'x'}:
    case OLECHAR{'X'}: return true;
    default: return false;
    }
}

OLECHAR* WriteInteger(OLECHAR* out, std::uint32_t number, OLECHAR kind)
{
    switch (kind) {
    case OLECHAR{'u'}: return WriteUnsigned(out, number);
    case OLECHAR{'x'}: return WriteHex(out, number, HexCase::Lower);
    case OLECHAR{'X'}: return WriteHex(out, number, HexCase::Upper);
    default: return WriteSigned(out, static_cast<std::int32_t>(number));
    }
}

void AppendConverted(Text& out, const Conversion& conversion, const FormatArgument& argument)
{
    if (argument.IsText()) {
        out.append(argument.AsText());
        return;
    }
    OLECHAR buffer[kMaxFastNumber];
    TextView digits(buffer,
                    static_cast<std::size_t>(WriteInteger(buffer, argument.AsNumber(), conversion.kind) - buffer));
    const std::size_t padding = conversion.width > digits.size() ? conversion.width - digits.size() : 0;
    if (conversion.zeroFilled && digits.front() == OLECHAR{'-'}) {
        out.push_back(OLECHAR{'-'}); // Zeros go between the sign and the digits.
        digits.remove_prefix(1);
    }
    out.append(padding, conversion.zeroFilled ? OLECHAR{'0'} : OLECHAR{' '}).append(digits);
}

} // namespace

void AppendFormatted(Text& out, TextView format, FormatArguments arguments)
{
    auto argument = arguments.begin();
    while (!format.empty()) {
        const std::size_t literal = (std::min)(format.find(OLECHAR{'%'}), format.size());
        out.append(format.substr(0, literal));
        format.remove_prefix(literal);
        if (format.empty())
            return;

        Conversion conversion;
        if (!ReadConversion(format, conversion)) {
            out.push_back(OLECHAR{'%'}); // What follows is copied as literal text.
            format.remove_prefix(1);
            continue;
        }
        format.remove_prefix(conversion.length);
        if (conversion.kind == OLECHAR{'%'})
            out.push_back(OLECHAR{'%'});
        else if (argument != arguments.end())
            AppendConverted(out, conversion, *argument++);
    }
}

void FormatBounded(std::span<OLECHAR> buffer, TextView overflowTail, TextView format, FormatArguments arguments)
{
    Text text;
    AppendFormatted(text, format, arguments);
    const std::size_t room = buffer.size() - 1;
    if (text.size() > room)
        text.replace(room - overflowTail.size(), Text::npos, overflowTail);
    std::copy(text.begin(), text.end(), buffer.begin());
    buffer[text.size()] = 0;
}
