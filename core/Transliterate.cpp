#include "core/Transliterate.h"

#include <algorithm>
#include <array>

namespace {

constexpr char kUnmapped = '@';

struct Mapping {
    unsigned first;
    unsigned last;
    char letter;
};

/// Everything outside printable ASCII that has a counterpart.
constexpr Mapping kMappings[] = {
    {0x8A, 0x8A, 'S'}, {0x8C, 0x8C, 'C'}, {0x8E, 0x8E, 'Z'}, {0x9A, 0x9A, 's'}, {0x9C, 0x9C, 'c'}, {0x9E, 0x9E, 'z'},
    {0x9F, 0x9F, 'Y'}, {0xA1, 0xA1, 'i'}, {0xC0, 0xC6, 'A'}, {0xC7, 0xC7, 'C'}, {0xC8, 0xCB, 'E'}, {0xCC, 0xCF, 'I'},
    {0xD0, 0xD0, 'D'}, {0xD1, 0xD1, 'N'}, {0xD2, 0xD6, 'O'}, {0xD8, 0xD8, 'O'}, {0xD9, 0xDC, 'U'}, {0xDD, 0xDD, 'Y'},
    {0xDF, 0xDF, 's'}, {0xE0, 0xE6, 'a'}, {0xE7, 0xE7, 'c'}, {0xE8, 0xEB, 'e'}, {0xEC, 0xEF, 'i'}, {0xF1, 0xF1, 'n'},
    {0xF2, 0xF6, 'o'}, {0xF8, 0xF8, 'o'}, {0xF9, 0xFC, 'u'}, {0xFD, 0xFD, 'y'}, {0xFF, 0xFF, 'y'},
};

constexpr std::array<char, 256> MakeTable()
{
    std::array<char, 256> table{};
    table.fill(kUnmapped);
    for (unsigned code = ' '; code <= '~'; ++code)
        table[code] = static_cast<char>(code);
    for (const Mapping& mapping : kMappings) {
        for (unsigned code = mapping.first; code <= mapping.last; ++code)
            table[code] = mapping.letter;
    }
    return table;
}

constexpr std::array<char, 256> kTable = MakeTable();

constexpr OLECHAR Mapped(OLECHAR unit)
{
    return static_cast<OLECHAR>(unit < kTable.size() ? kTable[unit] : kUnmapped);
}

} // namespace

bool NeedsTransliteration(TextView text)
{
    return std::any_of(text.begin(), text.end(), [](OLECHAR unit) { return unit >= OLECHAR{128}; });
}

Text TransliterateToAscii(TextView text)
{
    Text ascii;
    ascii.reserve(text.size());
    for (const OLECHAR unit : text) {
        const OLECHAR mapped = Mapped(unit);
        if (mapped != OLECHAR{kUnmapped} || unit == OLECHAR{kUnmapped})
            ascii.push_back(mapped);
    }
    return ascii;
}

void MapNameCharacters(Text& name)
{
    std::transform(name.begin(), name.end(), name.begin(), Mapped);
}
