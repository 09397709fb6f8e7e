#include "core/ValueText.h"

#include "frame/NumberText.h"

namespace {

/// Decimals that the compact form has room for; others are rendered at once.
constexpr LONG kMostDecimals = 20;

} // namespace

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

void ValueText::AppendTo(Text& out) const
{
    switch (m_form) {
    case Form::Number: AppendNumber(out, m_number, m_decimals); break;
    case Form::Signed: AppendSigned(out, Whole()); break;
    case Form::Unsigned: AppendUnsigned(out, static_cast<uint32_t>(Whole())); break;
    case Form::Literal: out.append(m_text.View()); break;
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
