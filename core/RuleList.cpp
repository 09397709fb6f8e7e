#include "core/RuleList.h"

#include "core/prpProperty.h"

std::vector<LONG> RuleList::IdsInMapOrder(const IdIndex<CprpProperty>& index) const
{
    std::vector<CprpProperty*> ordered(m_bearers.begin(), m_bearers.end());
    std::sort(ordered.begin(), ordered.end(),
              [&](const CprpProperty* left, const CprpProperty* right) { return index.ComesBefore(*left, *right); });
    std::vector<LONG> ids;
    ids.reserve(ordered.size());
    for (const CprpProperty* property : ordered)
        ids.push_back(property->Id());
    return ids;
}
