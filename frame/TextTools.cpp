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

TokenRange::Iterator& TokenRange::Iterator::operator++()
{
    if (m_delimiters.size() == 1)
        TakeBetween(m_delimiters.front());
    else
        TakeBetweenAny();
    return *this;
}

// With one delimiter the whole text is looked through eight units at a time.
void TokenRange::Iterator::TakeBetween(OLECHAR delimiter)
{
    const OLECHAR* at = m_rest.data();
    const OLECHAR* const end = at + m_rest.size();
    while (at != end && *at == delimiter)
        ++at;
    const OLECHAR* const behind = FindUnit(at, end, delimiter);
    m_token = at != end ? TextView(at, behind) : TextView();
    m_rest = {behind, end};
}

void TokenRange::Iterator::TakeBetweenAny()
{
    const std::size_t start = m_rest.find_first_not_of(m_delimiters);
    if (start == TextView::npos) {
        m_rest = m_token = {};
        return;
    }
    const std::size_t length = m_rest.substr(start).find_first_of(m_delimiters);
    m_token = m_rest.substr(start, length);
    m_rest.remove_prefix(start + m_token.size());
}
