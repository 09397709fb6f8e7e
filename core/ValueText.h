// The text of a value: kept as text, or as the numbers that it renders. A number becomes text only when somebody
// reads it, so that changing a million values renders none of them.
// Invariant: two objects that render the same text need not be equal in form.
#pragma once

#include "LV_prpPropCollection.h"
#include "core/PackedText.h"
#include "frame/TextBuffer.h"
#include "platform/com/Ole.h"

#include <bit>
#include <memory>
#include <utility>

class ValueText {
public:
    ValueText() noexcept : m_text() {}
    ValueText(const ValueText& other);
    ValueText(ValueText&& other) noexcept : m_form(other.m_form), m_decimals(other.m_decimals)
    {
        if (OwnsBlock())
            std::construct_at(&m_text, std::move(other.m_text));
        else
            m_whole = other.m_whole;
    }
    ValueText& operator=(ValueText other) noexcept
    {
        std::destroy_at(this);
        return *std::construct_at(this, std::move(other));
    }
    ~ValueText()
    {
        if (OwnsBlock())
            std::destroy_at(&m_text);
    }

    static ValueText OfText(TextView text);
    /// The trimmed fixed form of a real number; any number of decimals.
    static ValueText OfNumber(double value, LONG decimals)
    {
        if (decimals < 0 || decimals > kMostDecimals) [[unlikely]]
            return OfRareNumber(value, decimals);
        ValueText result;
        result.m_form = Form::Number;
        result.m_number = value;
        result.m_decimals = static_cast<int8_t>(decimals);
        return result;
    }
    /// Three numbers with semicolons between them.
    static ValueText OfPosition(const SprpPosition& position, LONG decimals);
    static ValueText OfSigned(LONG value) { return OfWhole(Form::Signed, value); }
    static ValueText OfUnsigned(ULONG value) { return OfWhole(Form::Unsigned, static_cast<LONG>(value)); }

    void AppendTo(Text& out) const;
    void AppendTo(TextBuffer& out) const;
    Text ToText() const;
    /// Writes the text of a number or three into kMostWritten units and returns its end. Null, with their content
    /// lost, for a literal and for numbers that need more room.
    OLECHAR* TryWrite(OLECHAR* out) const noexcept;
    static constexpr std::size_t kMostWritten = 96;
    bool Equals(TextView text) const;
    /// Whether both render the same text.
    bool Equals(const ValueText& other) const;

    /// Whether the text is still a number; then the parts below tell which.
    enum class Form : uint8_t { Literal, Number, Position, Signed, Unsigned };
    Form GetForm() const noexcept { return m_form; }
    TextView Literal() const noexcept { return m_text.View(); }
    double Number() const noexcept { return m_number; }
    SprpPosition Position() const noexcept;
    /// Whether this is what OfNumber gives, in form as well.
    bool IsNumber(double value, LONG decimals) const noexcept
    {
        return m_form == Form::Number && m_decimals == decimals &&
               std::bit_cast<int64_t>(value) == std::bit_cast<int64_t>(m_number);
    }
    /// Whether this is what OfPosition gives, in form as well.
    bool IsPosition(const SprpPosition& position, LONG decimals) const noexcept;
    LONG Whole() const noexcept { return static_cast<LONG>(m_whole); }
    /// Of a number and of each coordinate; at most kMostDecimals.
    int Decimals() const noexcept { return m_decimals; }

    /// Decimals that the compact forms have room for; texts with others are rendered at once.
    static constexpr LONG kMostDecimals = 20;

private:
    static ValueText OfRareNumber(double value, LONG decimals);
    static ValueText OfWhole(Form form, LONG value) noexcept
    {
        ValueText result;
        result.m_form = form;
        result.m_whole = value;
        return result;
    }
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
