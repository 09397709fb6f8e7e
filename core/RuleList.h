// The properties of a collection that have a visibility rule, so that the end of a transaction costs nothing where
// there are none. Invariant: holds every living property that ever got a rule, once.
#pragma once

#include "core/IdIndex.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

class CprpProperty;

class RuleList {
public:
    void Add(CprpProperty& property) { m_bearers.insert(&property); }
    void Remove(CprpProperty& property) noexcept
    {
        if (!m_bearers.empty())
            m_bearers.erase(&property);
    }
    void Clear() noexcept { m_bearers.clear(); }
    bool Contains(CprpProperty& property) const { return m_bearers.contains(&property); }

    /// Ids of the bearers in the order that the index observes.
    std::vector<LONG> IdsInMapOrder(const IdIndex<CprpProperty>& index) const;

private:
    std::unordered_set<CprpProperty*> m_bearers;
};
