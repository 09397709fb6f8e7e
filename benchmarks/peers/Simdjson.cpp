// simdjson on demand, assigning into a flat store that a robin-hood table finds: the best case of a parser (W3).
#include "benchmarks/Fixtures.h"
#include "benchmarks/PeerCases.h"
#include "benchmarks/peers/JsonTree.h"

#include <simdjson.h>
#include <tsl/robin_map.h>

#include <cstdlib>
#include <string_view>

namespace {

struct Slot {
    Kind kind;
    uint8_t flags;
    int32_t editFlags;
    int32_t whole;
    double point[3];
    std::string text;
};

struct Store {
    explicit Store(int64_t size)
    {
        const SettingsData& data = Shared<PlainA>(size)->Data();
        slots.reserve(data.settings.size());
        for (const Setting& setting : data.settings) {
            slots.push_back(
                {setting.kind, 0, setting.editFlags, setting.whole, {setting.x, setting.y, setting.z}, setting.text});
            byId[setting.id] = &slots.back();
        }
    }
    std::vector<Slot> slots;
    tsl::robin_map<int, Slot*> byId;
};

void AssignValue(Slot& slot, simdjson::ondemand::value value)
{
    switch (slot.kind) {
    case Kind::Long:
    case Kind::Enum: slot.whole = static_cast<int32_t>(value.get_int64().value()); break;
    case Kind::String: slot.text.assign(std::string_view(value.get_string().value())); break;
    case Kind::Position: {
        std::size_t axis = 0;
        for (auto coordinate : value.get_array()) {
            if (axis < 3)
                slot.point[axis++] = coordinate.get_double().value();
        }
        break;
    }
    default: slot.point[0] = value.get_double().value(); break;
    }
}

void AssignRecord(Slot& slot, simdjson::ondemand::array record)
{
    int field = 0;
    for (auto element : record) {
        switch (field++) {
        case 0: slot.flags = static_cast<uint8_t>(element.get_int64().value()); break;
        case 1: slot.editFlags = static_cast<int32_t>(element.get_int64().value()); break;
        case 2: Keep(static_cast<uint64_t>(element.get_int64().value())); break;
        default: AssignValue(slot, element.value()); break;
        }
    }
}

void Assign(Store& store, simdjson::ondemand::document document)
{
    for (auto category : document.get_object()) {
        for (auto group : category.value().get_object()) {
            for (auto field : group.value().get_object()) {
                const auto hit = store.byId.find(std::atoi(field.key().value().raw()));
                if (hit != store.byId.end())
                    AssignRecord(*hit->second, field.value().get_array());
            }
        }
    }
}

} // namespace

void AddSimdjsonCases(std::vector<Case>& cases)
{
    cases.push_back({"W3", "simdjson", [](int64_t size) {
                         auto store = Shared<Store>(size);
                         auto first = std::make_shared<simdjson::padded_string>(JsonText(Shared<PlainA>(size)->Data()));
                         auto second =
                             std::make_shared<simdjson::padded_string>(JsonText(Shared<PlainB>(size)->Data()));
                         auto parser = std::make_shared<simdjson::ondemand::parser>();
                         return Prepared{[store, first, second, parser, turn = 0]() mutable {
                                             const auto& text = ++turn % 2 ? *second : *first;
                                             return Timed([&] { Assign(*store, parser->iterate(text)); });
                                         },
                                         static_cast<double>(size)};
                     }});
}
