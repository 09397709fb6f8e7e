// Saved texts that nobody should have to load, the same for the same seed.
#pragma once

#include <algorithm>
#include <iterator>
#include <random>
#include <string>

/// Records as a damaged disk or a wrong editor leaves them: right ones with bytes changed, cut, doubled or at random.
inline std::string DamagedText(unsigned seed, std::size_t records)
{
    static constexpr const char* kGood[] = {"1al1|35", "1fn1|81;2.5;-3", "1dl1|6a\\$b\\&c#d",
                                            "1el1|71#3\xC2\xAC"
                                            "1\xC2\xAC"
                                            "10"};
    std::mt19937 random(seed);
    std::string text;
    for (std::size_t i = 0; i < records; ++i) {
        std::string record = std::string("~") + kGood[random() % std::size(kGood)];
        for (std::size_t damage = random() % 4; damage > 0; --damage) {
            const std::size_t at = random() % record.size();
            switch (random() % 3) {
            case 0: record[at] = static_cast<char>(random()); break;
            case 1: record.resize(at + 1); break;
            default: record.insert(at, 1, static_cast<char>(random())); break;
            }
        }
        text += record;
    }
    return text;
}

/// Markers with up to 15 bytes of anything behind each.
inline std::string RandomText(unsigned seed, std::size_t records)
{
    std::mt19937 random(seed);
    std::string text;
    for (std::size_t i = 0; i < records; ++i) {
        text += '~';
        for (std::size_t left = random() % 16; left > 0; --left)
            text += static_cast<char>(random());
    }
    return text;
}
