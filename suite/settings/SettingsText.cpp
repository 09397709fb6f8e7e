// Reading and writing of the settings text, line by line.
#include "suite/settings/SettingsText.h"

#include "frame/TextTools.h"

#include <algorithm>

namespace {

constexpr OLECHAR kByteOrderMark = 0xFEFF;
constexpr OLECHAR kQuote = OLESTR('"');

/// Escapes stand in quoted values only: a path put in by hand keeps its backslashes.
struct Escape {
    OLECHAR letter;
    OLECHAR stands;
};

constexpr Escape kEscapes[] = {
    {OLESTR('\\'), OLESTR('\\')}, {OLESTR('"'), kQuote}, {OLESTR('n'), OLESTR('\n')}, {OLESTR('r'), OLESTR('\r')}};

bool NeedsQuotes(TextView value)
{
    return value != TrimWhiteSpace(value) || value.find_first_of(OLESTR("\r\n")) != TextView::npos ||
           (!value.empty() && value.front() == kQuote);
}

Text WrittenValue(TextView value)
{
    if (!NeedsQuotes(value))
        return Text(value);
    Text out(1, kQuote);
    for (const OLECHAR c : value) {
        const auto* escape =
            std::find_if(std::begin(kEscapes), std::end(kEscapes), [c](Escape e) { return e.stands == c; });
        if (escape == std::end(kEscapes))
            out += c;
        else
            (out += OLESTR('\\')) += escape->letter;
    }
    return out += kQuote;
}

Text ReadValue(TextView text)
{
    if (text.size() < 2 || text.front() != kQuote || text.back() != kQuote)
        return Text(text);
    text = text.substr(1, text.size() - 2);
    Text out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto* escape = std::find_if(std::begin(kEscapes), std::end(kEscapes), [&](Escape e) {
            return text[i] == OLESTR('\\') && i + 1 < text.size() && e.letter == text[i + 1];
        });
        if (escape == std::end(kEscapes)) {
            out += text[i];
        } else {
            out += escape->stands;
            ++i;
        }
    }
    return out;
}

} // namespace

bool SettingsText::IsName(TextView text) noexcept
{
    if (text.empty() || text.front() == OLESTR(' ') || text.back() == OLESTR(' '))
        return false;
    return std::none_of(text.begin(), text.end(), [](OLECHAR c) {
        return c < OLESTR(' ') || TextView(OLESTR("[]=;")).find(c) != TextView::npos;
    });
}

SettingsText::SettingsText(TextView content)
{
    if (!content.empty() && content.front() == kByteOrderMark)
        content.remove_prefix(1);

    Text section;
    while (!content.empty()) {
        const std::size_t end = std::min(content.find(OLESTR('\n')), content.size());
        TextView text = content.substr(0, end);
        content.remove_prefix(std::min(end + 1, content.size()));
        if (!text.empty() && text.back() == OLESTR('\r'))
            text.remove_suffix(1);

        Line line{Text(text), section, {}, false};
        const TextView meaning = TrimWhiteSpace(text);
        const std::size_t equals = meaning.find(OLESTR('='));
        if (meaning.size() > 2 && meaning.front() == OLESTR('[') && meaning.back() == OLESTR(']')) {
            section = Text(TrimWhiteSpace(meaning.substr(1, meaning.size() - 2)));
            line.section = section;
            line.opensSection = true;
        } else if (equals != TextView::npos && meaning.front() != OLESTR(';') && meaning.front() != OLESTR('#')) {
            line.name = Text(TrimWhiteSpace(meaning.substr(0, equals)));
        }
        m_lines.push_back(std::move(line));
    }
}

bool SettingsText::HasSection(TextView section) const noexcept
{
    return std::any_of(m_lines.begin(), m_lines.end(), [&](const Line& line) {
        return line.opensSection && EqualsIgnoringCase(line.section, section);
    });
}

std::optional<std::size_t> SettingsText::IndexOf(const SettingsKey& key) const noexcept
{
    const auto found = std::find_if(m_lines.begin(), m_lines.end(), [&](const Line& line) {
        return !line.name.empty() && EqualsIgnoringCase(line.name, key.name) &&
               EqualsIgnoringCase(line.section, key.section);
    });
    if (found == m_lines.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - m_lines.begin());
}

std::optional<Text> SettingsText::Find(const SettingsKey& key) const
{
    const auto index = IndexOf(key);
    if (!index)
        return std::nullopt;
    const TextView line = m_lines[*index].text;
    return ReadValue(TrimWhiteSpace(line.substr(line.find(OLESTR('=')) + 1)));
}

void SettingsText::Set(const SettingsKey& key, TextView value)
{
    Line line{Text(key.name) + OLESTR('=') + WrittenValue(value), Text(key.section), Text(key.name), false};
    if (const auto index = IndexOf(key)) {
        m_lines[*index] = std::move(line);
        return;
    }

    // Behind the last line of the section that says something, ahead of the blank lines that part it from the next.
    const auto last = std::find_if(m_lines.rbegin(), m_lines.rend(), [&](const Line& l) {
        return EqualsIgnoringCase(l.section, key.section) && !TrimWhiteSpace(l.text).empty();
    });
    if (last != m_lines.rend()) {
        m_lines.insert(last.base(), std::move(line));
        return;
    }
    m_lines.push_back({OLESTR("[") + Text(key.section) + OLESTR("]"), Text(key.section), {}, true});
    m_lines.push_back(std::move(line));
}

bool SettingsText::Remove(const SettingsKey& key)
{
    const auto index = IndexOf(key);
    if (!index)
        return false;
    m_lines.erase(m_lines.begin() + static_cast<std::ptrdiff_t>(*index));
    return true;
}

Text SettingsText::Write() const
{
    Text out;
    for (const Line& line : m_lines)
        (out += line.text) += OLESTR("\r\n");
    return out;
}
