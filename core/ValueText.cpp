#include "core/ValueText.h"

#include "frame/NumberText.h"

#include <bit>
#include <cmath>
#include <cstring>
#include <iterator>
#include <memory>
#include <utility>

namespace {

constexpr std::size_t kPositionUnits = sizeof(SprpPosition) / sizeof(OLECHAR);

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

ValueText::ValueText(ValueText&& other) noexcept : m_form(other.m_form), m_decimals(other.m_decimals)
{
    if (OwnsBlock())
        std::construct_at(&m_text, std::move(other.m_text));
    else
        m_whole = other.m_whole;
}

ValueText& ValueText::operator=(ValueText other) noexcept
{
    std::destroy_at(this);
    return *std::construct_at(this, std::move(other));
}

ValueText::~ValueText()
{
    if (OwnsBlock())
        std::destroy_at(&m_text);
}

ValueText ValueText::OfText(TextView text)
{
    ValueText result;
    result.m_text.Assign(text);
    return result;
}

ValueText ValueText::OfNumber(double value, LONG decimals)
{
    if (decimals < 0 || decimals > kMostDecimals)
        return OfText(FormatNumber(value, decimals));
    ValueText result;
    result.m_form = Form::Number;
    result.m_number = value;
    result.m_decimals = static_cast<int8_t>(decimals);
    return result;
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

ValueText ValueText::OfSigned(LONG value)
{
    ValueText result;
    result.m_form = Form::Signed;
    result.m_whole = value;
    return result;
}

ValueText ValueText::OfUnsigned(ULONG value)
{
    ValueText result;
    result.m_form = Form::Unsigned;
    result.m_whole = static_cast<LONG>(value);
    return result;
}

SprpPosition ValueText::Position() const noexcept
{
    SprpPosition position{};
    if (const TextView units = m_text.View(); !units.empty())
        std::memcpy(&position, units.data(), sizeof position);
    return position;
}

void ValueText::AppendTo(Text& out) const
{
    switch (m_form) {
    case Form::Literal: out.append(m_text.View()); break;
    case Form::Number: AppendNumber(out, m_number, m_decimals); break;
    case Form::Position: AppendPosition(out, Position(), m_decimals); break;
    case Form::Signed: AppendSigned(out, Whole()); break;
    case Form::Unsigned: AppendUnsigned(out, static_cast<uint32_t>(Whole())); break;
    }
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
    out += OLESTR(';');
    AppendNumber(out, position.Y, decimals);
    out += OLESTR(';');
    AppendNumber(out, position.Z, decimals);
}
