#include "benchmarks/SettingsData.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {
constexpr int32_t kFirstId = 1025;
constexpr int32_t kTop = -2;
constexpr Kind kKinds[] = {Kind::Linear,   Kind::Long,  Kind::Enum,   Kind::String,
                           Kind::Position, Kind::Angle, Kind::Double, Kind::Long};

Setting Branch(int32_t id, int32_t parent)
{
    return {id, parent, Kind::Category, true, false, 0, 0, 0, 0, 0, {}};
}

// A multiple of 1/10000 within +-1000; one in eight whole, three in eight with two decimals.
double Real(Dice& dice)
{
    int64_t steps = static_cast<int64_t>(dice.Below(20000001)) - 10000000;
    const uint32_t share = dice.Below(8);
    if (share == 0)
        steps -= steps % 10000;
    else if (share < 4)
        steps -= steps % 100;
    return static_cast<double>(steps) / 10000.0;
}

std::string Words(Dice& dice, std::size_t length)
{
    static constexpr std::string_view kLetters =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789  __..--";
    std::string text;
    for (std::size_t i = 0; i < length; ++i)
        text += kLetters[dice.Below(static_cast<uint32_t>(kLetters.size()))];
    // Now and then a character that a saved text has to escape; never a blank at an end.
    if (dice.Below(16) == 0)
        text[1] = dice.Below(2) ? '~' : '|';
    if (text.front() == ' ')
        text.front() = 'a';
    if (text.back() == ' ')
        text.back() = 'z';
    return text;
}

void DrawValue(Setting& setting, Dice& dice)
{
    switch (setting.kind) {
    case Kind::Linear:
    case Kind::Angle:
    case Kind::Double: setting.x = Real(dice); break;
    case Kind::Position:
        setting.x = Real(dice);
        setting.y = Real(dice);
        setting.z = Real(dice);
        break;
    case Kind::Long: setting.whole = static_cast<int32_t>(dice.Below(2000001)) - 1000000; break;
    case Kind::Enum: setting.whole = static_cast<int32_t>(dice.Below(12)); break;
    case Kind::String: setting.text = Words(dice, 4 + dice.Below(20)); break;
    case Kind::Category: break;
    }
}

Setting DrawLeaf(int32_t id, int32_t parent, Kind kind, Dice& dice)
{
    Setting leaf{id, parent, kind, false, false, 0, 0, 0, 0, 0, {}};
    leaf.visible = dice.Below(8) != 0;
    leaf.readOnly = dice.Below(8) == 0;
    leaf.editFlags = static_cast<int32_t>(dice.Below(3));
    DrawValue(leaf, dice);
    return leaf;
}
} // namespace

uint64_t Dice::Next()
{
    uint64_t mixed = m_state += 0x9E3779B97F4A7C15;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EB;
    return mixed ^ (mixed >> 31);
}

SettingsData MakePlainData(int64_t values, uint64_t seed)
{
    Dice dice(seed * 7919 + 17);
    SettingsData data{values, {}};
    data.settings.reserve(static_cast<std::size_t>(values + values / 16 + values / 256 + 4));
    int32_t id = kFirstId;
    int32_t category = kTop;
    int32_t group = kTop;
    for (int64_t i = 0; i < values; ++i) {
        if (i % 256 == 0)
            data.settings.push_back(Branch(category = id++, kTop));
        if (i % 16 == 0)
            data.settings.push_back(Branch(group = id++, category));
        data.settings.push_back(DrawLeaf(id++, group, kKinds[i % 8], dice));
    }
    return data;
}

SettingsData MakeDeepData(int64_t values, uint64_t seed)
{
    constexpr std::size_t kDeepest = 12;
    Dice dice(seed * 7919 + 18);
    SettingsData data{values, {}};
    std::vector<int32_t> branches; // from the top down to the one that takes the next leaf
    int32_t id = kFirstId;
    for (int64_t i = 0; i < values; ++i) {
        if (i % 8 == 0) {
            branches.resize(std::min<std::size_t>(branches.size(), dice.Below(kDeepest)));
            const int32_t parent = branches.empty() ? kTop : branches.back();
            data.settings.push_back(Branch(id, parent));
            branches.push_back(id++);
        }
        const bool isText = i % 2 == 0;
        Setting leaf = DrawLeaf(id++, branches.back(), isText ? Kind::String : kKinds[i / 2 % 8], dice);
        if (isText)
            leaf.text += ' ' + Words(dice, 20 + dice.Below(40));
        data.settings.push_back(std::move(leaf));
    }
    ScatterIds(data);
    return data;
}

void ScatterIds(SettingsData& data)
{
    const auto scattered = [](int32_t id) {
        return id < 0 ? id : static_cast<int32_t>((static_cast<uint32_t>(id) * 0x9E3779B1u) & 0x7FFFFFFF);
    };
    for (Setting& setting : data.settings) {
        setting.id = scattered(setting.id);
        setting.parent = scattered(setting.parent);
    }
}

std::vector<std::vector<uint32_t>> MakeBatches(const SettingsData& data)
{
    const int64_t count = std::clamp<int64_t>(data.values * 3 / 8 / kBatchSize, 1, 64);
    std::vector<std::vector<uint32_t>> batches(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < batches.size(); ++i) {
        Dice dice(5 + i);
        while (batches[i].size() < kBatchSize) {
            const uint32_t place = dice.Below(static_cast<uint32_t>(data.settings.size()));
            if (data.settings[place].IsReal())
                batches[i].push_back(place);
        }
    }
    return batches;
}

double NextStartValue()
{
    static double s_value = 0.123;
    return s_value += 0.377;
}

std::vector<int32_t> MakeProbes(const SettingsData& data)
{
    Dice dice(99);
    std::vector<int32_t> ids(1 << 16);
    for (int32_t& id : ids)
        id = data.settings[dice.Below(static_cast<uint32_t>(data.settings.size()))].id;
    return ids;
}
