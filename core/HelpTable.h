// Which help text and which resource belong to a state and a property. A host fills the table and never takes
// anything out. -1 is the wildcard for states and for properties.
// The two kinds of entries are looked up differently, and on purpose: texts by state first, falling back from a state
// and from a property alike; resources by property first, and once a property has any, the wildcard property's never
// serve for it.
#pragma once

#include "platform/com/Ole.h"

#include <optional>
#include <unordered_map>

/// A string or picture resource and the module that holds it.
struct HelpResource {
    LONG_PTR hModule = 0;
    LONG nResID = 0;
};

class HelpTable {
public:
    static constexpr LONG kAny = -1;

    /// No value stands for an entry without a text, which is an answer all the same.
    using Entry = std::optional<Text>;

    /// Replaces an earlier text of the same state and property.
    void AddText(LONG state, LONG propId, Entry text);
    /// The text of the state, or else of any state; in each for the property, or else for any property. Null: none.
    const Entry* FindText(LONG state, LONG propId) const;

    /// Replaces an earlier resource of the same state and property. A property id of 0 means any property.
    /// @param mask  bits of a state that count for the property. The first one given with a state other than any
    ///              stands; a property without one has mask 0.
    void AddResource(LONG state, LONG mask, LONG propId, HelpResource resource);
    /// The resource of the masked state, or else of any state: among those of the property if it has any, otherwise
    /// among those of any property. Null: none.
    const HelpResource* FindResource(LONG state, LONG propId) const;

private:
    using TextsByProperty = std::unordered_map<LONG, Entry>;

    struct PropertyResources {
        std::optional<LONG> mask;
        std::unordered_map<LONG, HelpResource> byState;
    };

    std::unordered_map<LONG, TextsByProperty> m_Strings;
    std::unordered_map<LONG, PropertyResources> m_Resources;
};
