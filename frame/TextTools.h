// Small tools on 16-bit text that know no locale: white space, letter case of ASCII, splitting at delimiters,
// replacing. Splitting works like strtok: leading delimiters are skipped, a run of them counts as one, and there is
// no empty token. Nothing here owns text but what it returns.
#pragma once

#include "platform/com/Ole.h"

#include <iterator>

/// Blank, tab, line feed, vertical tab, form feed, carriage return.
constexpr bool IsWhiteSpace(OLECHAR unit)
{
    return unit == OLECHAR{' '} || (unit >= OLECHAR{'\t'} && unit <= OLECHAR{'\r'});
}

/// The text without white space at both ends.
TextView TrimWhiteSpace(TextView text);

/// Lower case for 'A' to 'Z'; every other unit as it is.
constexpr OLECHAR FoldAscii(OLECHAR unit)
{
    return unit >= OLECHAR{'A'} && unit <= OLECHAR{'Z'} ? static_cast<OLECHAR>(unit + ('a' - 'A')) : unit;
}

/// True when the texts differ at most in the case of ASCII letters.
bool EqualsIgnoringCase(TextView left, TextView right);

/// Replaces every occurrence of `what`, found from left to right; the replacement is not searched again.
/// An empty `what` occurs nowhere.
void ReplaceAll(Text& text, TextView what, TextView replacement);

/// Deletes every unit that stands in `unwanted`.
void EraseAny(Text& text, TextView unwanted);

/// The tokens of a text between delimiters, found one by one while walking. The text and the delimiters must live
/// as long as the range.
class TokenRange {
public:
    class Iterator {
    public:
        using iterator_concept = std::forward_iterator_tag;
        using iterator_category = std::forward_iterator_tag;
        using value_type = TextView;
        using difference_type = std::ptrdiff_t;
        using pointer = const TextView*;
        using reference = TextView;

        Iterator() = default;
        Iterator(TextView rest, TextView delimiters) : m_rest(rest), m_delimiters(delimiters) { ++*this; }

        TextView operator*() const { return m_token; }
        Iterator& operator++();
        Iterator operator++(int)
        {
            Iterator before = *this;
            ++*this;
            return before;
        }

        /// Tokens are never empty, so where one starts tells it apart from every other of the same text.
        friend bool operator==(const Iterator& left, const Iterator& right)
        {
            return left.m_token.data() == right.m_token.data();
        }
        friend bool operator==(const Iterator& it, std::default_sentinel_t) { return it.m_token.empty(); }

    private:
        void TakeBetween(OLECHAR delimiter);
        void TakeBetweenAny();

        TextView m_rest;
        TextView m_delimiters;
        TextView m_token; ///< Null at the end.
    };

    TokenRange(TextView text, TextView delimiters) : m_text(text), m_delimiters(delimiters) {}

    Iterator begin() const { return {m_text, m_delimiters}; }
    std::default_sentinel_t end() const { return {}; }

private:
    TextView m_text;
    TextView m_delimiters;
};

/// `for (TextView token : SplitAt(text, OLESTR("; ")))`: each unit of `delimiters` ends a token.
inline TokenRange SplitAt(TextView text, TextView delimiters)
{
    return {text, delimiters};
}
