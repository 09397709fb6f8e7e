// Reads the table of texts as a translator sees it, apart from the generator.
#pragma once

#include "platform/com/Ole.h"
#include "suite/CodePages.h"

#include <fstream>
#include <map>
#include <string>
#include <vector>

inline const std::vector<std::string> kLanguageCodes = {"EN", "DE", "FR", "IT", "ES", "JP", "KO", "TC", "SC", "CZ"};

/// Text by language code, for each id in file order.
struct StringBlock {
    UINT id = 0;
    std::map<std::string, Text> texts;
};

inline Text DecodedText(const std::string& written)
{
    std::string bytes;
    for (std::size_t i = 0; i < written.size(); ++i) {
        if (written[i] == '\\' && i + 1 < written.size())
            bytes += written[++i] == 'n' ? '\n' : '\r';
        else
            bytes += written[i];
    }
    Text text;
    DecodeText({reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()}, kCodePageUtf8, text);
    return text;
}

inline std::vector<StringBlock> ReadStringsFile()
{
    std::vector<StringBlock> blocks;
    std::ifstream file(LV_STRINGS_FILE, std::ios::binary);
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#' || line.rfind("note: ", 0) == 0)
            continue;
        if (line[0] == '[')
            blocks.push_back({static_cast<UINT>(std::stoul(line.substr(1))), {}});
        else if (!blocks.empty() && line.substr(2, 2) == ": ")
            blocks.back().texts[line.substr(0, 2)] = DecodedText(line.substr(4));
    }
    return blocks;
}

/// The conversions of a message in order: "%s%d".
inline Text PlaceholdersOf(TextView text)
{
    Text found;
    for (std::size_t i = text.find(OLESTR('%')); i != TextView::npos; i = text.find(OLESTR('%'), i + 2))
        found += text.substr(i, 2);
    return found;
}
