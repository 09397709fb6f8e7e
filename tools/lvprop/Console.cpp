#include "tools/lvprop/Console.h"

#include <algorithm>
#include <charconv>

namespace {

constexpr std::string_view CodeOf(Colour colour)
{
    switch (colour) {
    case Colour::Red: return "\033[31m";
    case Colour::Green: return "\033[32m";
    case Colour::Yellow: return "\033[33m";
    case Colour::Bold: return "\033[1m";
    case Colour::Dim: return "\033[2m";
    default: return {};
    }
}

bool IsFirstByte(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
}

bool IsControl(char c)
{
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

} // namespace

std::string Console::Paint(Colour colour, std::string_view text) const
{
    if (!colours || colour == Colour::None)
        return std::string(text);
    return std::string(CodeOf(colour)).append(text).append("\033[0m");
}

Console Console::BesideFile(std::string_view file) const
{
    return file == "-" ? Console{err, err, json, colours && progress, progress} : *this;
}

size_t ColumnsOf(std::string_view text)
{
    return static_cast<size_t>(std::ranges::count_if(text, IsFirstByte));
}

std::string OneLine(std::string_view text, size_t columns)
{
    std::string line;
    size_t width = 0;
    size_t cut = 0; // where the last column that still fits beside the sign for a cut begins
    for (size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
            continue;
        if (IsFirstByte(c)) {
            if (width == columns)
                return line.substr(0, cut) + "…";
            if (++width == columns)
                cut = line.size();
        }
        if (c == '\n' || c == '\r')
            line += "⏎";
        else
            line += IsControl(c) ? '?' : c;
    }
    return line;
}

void Table::Print(const Console& console) const
{
    std::vector<size_t> widths(m_columns.size(), 0);
    for (const auto& row : m_rows)
        for (size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], ColumnsOf(row[i].text));
    std::vector<size_t> shown;
    for (size_t i = 0; i < m_columns.size(); ++i)
        if (widths[i] > 0) {
            widths[i] = std::max(widths[i], ColumnsOf(m_columns[i].heading));
            shown.push_back(i);
        }

    const auto printLine = [&](auto&& cellOf) {
        std::string line;
        for (const size_t i : shown) {
            const Cell cell = cellOf(i);
            const std::string padding(widths[i] - ColumnsOf(cell.text), ' ');
            const std::string painted = console.Paint(cell.colour, cell.text);
            line += m_columns[i].isNumber ? padding + painted : painted + padding;
            line += "  ";
        }
        line.erase(line.find_last_not_of(' ') + 1);
        console.out << line << '\n';
    };
    printLine([&](size_t i) { return Cell(m_columns[i].heading, Colour::Bold); });
    for (const auto& row : m_rows)
        printLine([&](size_t i) { return i < row.size() ? row[i] : Cell(""); });
}

void Progress::Step(size_t done)
{
    if (!m_console.progress)
        return;
    const auto now = std::chrono::steady_clock::now();
    if (now - m_last < std::chrono::milliseconds(100))
        return;
    m_last = now;
    m_isShown = true;
    m_console.err << '\r' << m_what << ' ' << done << std::flush;
}

Progress::~Progress()
{
    if (m_isShown)
        m_console.err << "\r\033[K" << std::flush;
}

std::string Counted(size_t count, const std::string& what)
{
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

std::string NumberText(double number)
{
    char buffer[32];
    const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, number);
    return error == std::errc() ? std::string(buffer, end) : std::string();
}
