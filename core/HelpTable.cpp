#include "core/HelpTable.h"

#include <utility>

namespace {

/// Value of a key; null when the map does not hold it.
template <class Map>
const typename Map::mapped_type* ValueOf(const Map& map, LONG key)
{
    const auto found = map.find(key);
    return found == map.end() ? nullptr : &found->second;
}

/// Value of a key, or else of the wildcard; null when the map holds neither.
template <class Map>
const typename Map::mapped_type* ValueOfOrAny(const Map& map, LONG key)
{
    const auto* value = ValueOf(map, key);
    return value ? value : ValueOf(map, HelpTable::kAny);
}

} // namespace

void HelpTable::AddText(LONG state, LONG propId, Entry text)
{
    m_Strings[state][propId] = std::move(text);
}

const HelpTable::Entry* HelpTable::FindText(LONG state, LONG propId) const
{
    for (const LONG key : {state, kAny}) {
        const TextsByProperty* const texts = ValueOf(m_Strings, key);
        if (const Entry* const text = texts ? ValueOfOrAny(*texts, propId) : nullptr)
            return text;
    }
    return nullptr;
}

void HelpTable::AddResource(LONG state, LONG mask, LONG propId, HelpResource resource)
{
    PropertyResources& resources = m_Resources[propId == 0 ? kAny : propId];
    resources.byState[state] = resource;
    if (state != kAny && !resources.mask)
        resources.mask = mask;
}

const HelpResource* HelpTable::FindResource(LONG state, LONG propId) const
{
    const PropertyResources* const resources = ValueOfOrAny(m_Resources, propId);
    return resources ? ValueOfOrAny(resources->byState, state & resources->mask.value_or(0)) : nullptr;
}
