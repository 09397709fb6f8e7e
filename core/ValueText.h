// The text of a value: kept as text, or as the numbers that it renders. A number becomes text only when somebody
// reads it, so that changing a million values renders none of them.
// Invariant: two objects that render the same text need not be equal in form.
#pragma once

#include "LV_prpPropCollection.h"
#include "core/PackedText.h"
#include "platform/com/Ole.h"

class ValueText {
public:
    ValueText() noexcept : m_text() {}
    ValueText(const ValueText& other);
    ValueText(ValueText&& other) noexcept;
    ValueText& operator=(ValueText other) noexcept;
    ~ValueText();

    static ValueText OfText(TextView text);
    /// The trimmed fixed form of a real number; any number of decimals.
    static ValueText OfNumber(double value, LONG decimals);
    /// Three numbers with semicolons between them.
    static ValueText OfPosition(const SprpPosition& position, LONG decimals);
    static ValueText OfSigned(LONG value);
    static ValueText OfUnsigned(ULONG value);

    void AppendTo(Text& out) const;
    Text ToText() const;
    bool Equals(TextView text) const;
    /// Whether both render the same text.
    bool Equals(const ValueText& other) const;

    /// Whether the text is still a number; then the parts below tell which.
    enum class Form : uint8_t { Literal, Number, Position, Signed, Unsigned };
    Form GetForm() const noexcept { return m_form; }
    TextView Literal() const noexcept { return m_text.View(); }
    double Number() const noexcept { return m_number; }
    SprpPosition Position() const noexcept;
    LONG Whole() const noexcept { return static_cast<LONG>(m_whole); }
    /// Of a number and of each coordinate; at most kMostDecimals.
    int Decimals() const noexcept { return m_decimals; }

    /// Decimals that the compact forms have room for; texts with others are rendered at once.
    static constexpr LONG kMostDecimals = 20;

private:
    bool OwnsBlock() const noexcept { return m_form == Form::Literal || m_form == Form::Position; }

    union {
        PackedText m_text; ///< of a literal; the bytes of a position, nothing being the origin
        double m_number;
        int64_t m_whole;
    };
    Form m_form = Form::Literal;
    int8_t m_decimals = 0;
};
static_assert(sizeof(ValueText) == 16);

/// The text of a position, a coordinate with so many decimals.
void AppendPosition(Text& out, const SprpPosition& position, LONG decimals);
