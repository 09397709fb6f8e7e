// The settings that every benchmark works on: made from a seed, so each program, machine and library sees the same.
//
// Plain data: 16 values to a group, 16 groups to a category, ids in depth-first order from 1025. Of eight values three
// are reals, two whole numbers, one an enumeration, one a text, one a position. Reals have four decimals at most, so
// their shortest form and the form with four decimals are the same text.
// Deep data: the same values, but ids scattered over 31 bits, up to twelve levels, and every other value a long text.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// A small generator with 64 bits of state; its sequence is part of the data.
class Dice {
public:
    explicit Dice(uint64_t seed) : m_state(seed) {}
    uint64_t Next();
    uint32_t Below(uint32_t bound) { return static_cast<uint32_t>(Next() % bound); }

private:
    uint64_t m_state;
};

/// Kinds of settings; the numbers are those of the property data types.
enum class Kind : uint8_t {
    Angle = 1,
    Linear = 2,
    Long = 3,
    Double = 4,
    String = 5,
    Position = 8,
    Enum = 10,
    Category = 18
};

struct Setting {
    int32_t id;
    int32_t parent; ///< -2 at the top
    Kind kind;
    bool visible;
    bool readOnly;
    int32_t editFlags;
    int32_t whole;
    double x, y, z;
    std::string text;

    bool IsReal() const { return kind == Kind::Linear || kind == Kind::Angle || kind == Kind::Double; }
};

struct SettingsData {
    int64_t values = 0;            ///< settings that hold a value; groups and categories are not counted
    std::vector<Setting> settings; ///< parents ahead of their children
};

SettingsData MakePlainData(int64_t values, uint64_t seed = 1);
SettingsData MakeDeepData(int64_t values, uint64_t seed = 1);
/// Gives every id another one, far from its neighbours.
void ScatterIds(SettingsData& data);

constexpr int kBatchSize = 1000;
/// Places of real-valued settings to change together; up to 64 batches, so that a large tree is not all in the cache.
std::vector<std::vector<uint32_t>> MakeBatches(const SettingsData& data);
/// Value that the first setting of the next batch gets; never the same twice in a process.
double NextStartValue();
/// Ids to look up, drawn over the whole data.
std::vector<int32_t> MakeProbes(const SettingsData& data);
