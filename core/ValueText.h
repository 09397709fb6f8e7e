// The text of a value: kept as text, or as the number that it renders. A number becomes text only when somebody
// reads it, so that changing a million values renders none of them.
// Invariant: two objects that render the same text need not be equal in form.
#pragma once

#include "core/PackedText.h"
#include "platform/com/Ole.h"

class ValueText {
public:
    ValueText() = default;
    static ValueText OfText(TextView text);
    /// The trimmed fixed form of a real number; any number of decimals.
    static ValueText OfNumber(double value, LONG decimals);
    static ValueText OfSigned(LONG value);
    static ValueText OfUnsigned(ULONG value);

    void AppendTo(Text& out) const;
    Text ToText() const;
    bool Equals(TextView text) const;

    /// Whether the text is still a number; then the parts below tell which.
    enum class Form : uint8_t { Literal, Number, Signed, Unsigned };
    Form GetForm() const noexcept { return m_form; }
    double Number() const noexcept { return m_number; }
    LONG Whole() const noexcept { return static_cast<LONG>(m_whole); }
    int Decimals() const noexcept { return m_decimals; }
    TextView Literal() const noexcept { return m_text.View(); }

private:
    PackedText m_text; ///< of a literal
    union {
        double m_number = 0;
        int64_t m_whole;
    };
    Form m_form = Form::Literal;
    int8_t m_decimals = 0;
};
