#include "core/ValueText.h"

#include "frame/NumberText.h"

#include <bit>
#include <cmath>
#include <cstring>
#include <iterator>

namespace {

constexpr OLECHAR kBetween = OLESTR(';');
constexpr std::size_t kPositionUnits = sizeof(SprpPosition) / sizeof(OLECHAR);

/// Null where one of the numbers needs more room than kMaxFastNumber.
OLECHAR* TryWritePosition(OLECHAR* out, const SprpPosition& position, int decimals) noexcept
{
    out = TryWriteNumber(out, position.X, decimals);
    if (!out)
        return nullptr;
    *out++ = kBetween;
    out = TryWriteNumber(out, position.Y, decimals);
    if (!out)
        return nullptr;
    *out++ = kBetween;
    return TryWriteNumber(out, position.Z, decimals);
}

/// Whether two numbers have the same text. Only numbers less than about a unit of the last decimal apart, but not
/// equal, have to be rendered.
bool SameNumberText(double left, double right, int decimals)
{
    if (std::bit_cast<uint64_t>(left) == std::bit_cast<uint64_t>(right))
        return true;
    static constexpr double kUnits[] = {1, 1e-1, 1e-2, 1e-3, 1e-4, 1e-5, 1e-6};
    if (static_cast<std::size_t>(decimals) < std::size(kUnits) &&
        std::fabs(left - right) > 2 * kUnits[decimals]) // false for what is no number
        return false;
    return FormatNumber(left, decimals) == FormatNumber(right, decimals);
}

} // namespace

ValueText::ValueText(const ValueText& other) : m_form(other.m_form), m_decimals(other.m_decimals)
{
    if (OwnsBlock())
        std::construct_at(&m_text, other.m_text);
    else
        m_whole = other.m_whole;
}

ValueText ValueText::OfText(TextView text)
{
    ValueText result;
    result.m_text.Assign(text);
    return result;
}

ValueText ValueText::OfRareNumber(double value, LONG decimals)
{
    return OfText(FormatNumber(value, decimals));
}

ValueText ValueText::OfPosition(const SprpPosition& position, LONG decimals)
{
    ValueText result;
    if (decimals < 0 || decimals > kMostDecimals) {
        Text text;
        AppendPosition(text, position, decimals);
        result.m_text.Assign(text);
        return result;
    }
    static constexpr SprpPosition kOrigin{};
    if (std::memcmp(&position, &kOrigin, sizeof position) != 0) {
        OLECHAR units[kPositionUnits];
        std::memcpy(units, &position, sizeof position);
        result.m_text.Assign({units, kPositionUnits});
    }
    result.m_form = Form::Position;
    result.m_decimals = static_cast<int8_t>(decimals);
    return result;
}

SprpPosition ValueText::Position() const noexcept
{
    SprpPosition position{};
    if (const TextView units = m_text.View(); !units.empty())
        std::memcpy(&position, units.data(), sizeof position);
    return position;
}

bool ValueText::IsPosition(const SprpPosition& position, LONG decimals) const noexcept
{
    if (m_form != Form::Position || m_decimals != decimals)
        return false;
    const SprpPosition mine = Position();
    return std::memcmp(&mine, &position, sizeof mine) == 0;
}

OLECHAR* ValueText::TryWrite(OLECHAR* out) const noexcept
{
    static_assert(kMostWritten == 3 * kMaxFastNumber);
    switch (m_form) {
    case Form::Literal: return nullptr;
    case Form::Number: return TryWriteNumber(out, m_number, m_decimals);
    case Form::Position: return TryWritePosition(out, Position(), m_decimals);
    case Form::Signed: return WriteSigned(out, Whole());
    case Form::Unsigned: return WriteUnsigned(out, static_cast<uint32_t>(Whole()));
    }
    return nullptr;
}

void ValueText::AppendTo(Text& out) const
{
    OLECHAR units[kMostWritten];
    if (m_form == Form::Literal)
        out.append(m_text.View());
    else if (const OLECHAR* const end = TryWrite(units))
        out.append(TextView(units, end));
    else if (m_form == Form::Number)
        AppendNumber(out, m_number, m_decimals);
    else
        AppendPosition(out, Position(), m_decimals);
}

void ValueText::AppendTo(TextBuffer& out) const
{
    if (m_form == Form::Literal)
        out.Append(m_text.View());
    else if (OLECHAR* const end = TryWrite(out.Room(kMostWritten)))
        out.EndAt(end);
    else
        out.Append(ToText());
}

Text ValueText::ToText() const
{
    Text text;
    AppendTo(text);
    return text;
}

bool ValueText::Equals(TextView text) const
{
    return m_form == Form::Literal ? m_text.View() == text : ToText() == text;
}

bool ValueText::Equals(const ValueText& other) const
{
    if (other.m_form == Form::Literal)
        return Equals(other.Literal());
    if (m_form != other.m_form || m_decimals != other.m_decimals)
        return Equals(other.ToText());
    switch (m_form) {
    case Form::Number: return SameNumberText(m_number, other.m_number, m_decimals);
    case Form::Position: {
        const SprpPosition here = Position();
        const SprpPosition there = other.Position();
        return SameNumberText(here.X, there.X, m_decimals) && SameNumberText(here.Y, there.Y, m_decimals) &&
               SameNumberText(here.Z, there.Z, m_decimals);
    }
    default: return m_whole == other.m_whole;
    }
}

void AppendPosition(Text& out, const SprpPosition& position, LONG decimals)
{
    AppendNumber(out, position.X, decimals);
    out += kBetween;
    AppendNumber(out, position.Y, decimals);
    out += kBetween;
    AppendNumber(out, position.Z, decimals);
}
