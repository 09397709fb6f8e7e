#include "frame/TextTools.h"

#include "platform/memory/FindUnit.h"

#include <algorithm>

TextView TrimWhiteSpace(TextView text)
{
    while (!text.empty() && IsWhiteSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsWhiteSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

bool EqualsIgnoringCase(TextView left, TextView right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](OLECHAR a, OLECHAR b) { return a == b || FoldAscii(a) == FoldAscii(b); });
}

void ReplaceAll(Text& text, TextView what, TextView replacement)
{
    std::size_t found = what.empty() ? Text::npos : text.find(what);
    if (found == Text::npos)
        return;

    Text replaced;
    replaced.reserve(text.size());
    std::size_t copied = 0;
    for (; found != Text::npos; found = text.find(what, copied)) {
        replaced.append(text, copied, found - copied).append(replacement);
        copied = found + what.size();
    }
    text = std::move(replaced.append(text, copied));
}

void EraseAny(Text& text, TextView unwanted)
{
    std::erase_if(text, [unwanted](OLECHAR unit) { return unwanted.find(unit) != TextView::npos; });
}

/// Units ahead of the first delimiter.
static std::size_t LengthUpTo(TextView text, TextView delimiters)
{
    if (delimiters.size() == 1)
        return static_cast<std::size_t>(FindUnit(text.data(), text.data() + text.size(), delimiters[0]) - text.data());
    return (std::min)(text.find_first_of(delimiters), text.size());
}

TokenRange::Iterator& TokenRange::Iterator::operator++()
{
    const std::size_t start = m_rest.find_first_not_of(m_delimiters);
    if (start == TextView::npos) {
        m_rest = m_token = {};
        return *this;
    }
    m_rest.remove_prefix(start);
    m_token = m_rest.substr(0, LengthUpTo(m_rest, m_delimiters));
    m_rest.remove_prefix(m_token.size());
    return *this;
}
