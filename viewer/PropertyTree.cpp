#include "viewer/PropertyTree.h"

#include "list/PropertyAccess.h"

#include <algorithm>

void PropertyTree::Build(IqorPropertyCollection& first)
{
    InTransaction(first, AtEnd::DropEvents, [&] {
        LONG id = E_PROP_ID_INVALID;
        for (;;) {
            CComPtr<IqorProperty> property;
            EprpPropError error = E_PROP_ERROR_NONE;
            LONG next = E_PROP_ID_INVALID;
            Must(first.GetNextProperty(id, &next, &error, &property));
            if (next == E_PROP_ID_INVALID || !property)
                return;
            AddChildren(*property, first, Add(*property, first, nullptr));
            id = next;
        }
    });
}

CprpMultiplePropInfo& PropertyTree::Add(IqorProperty& property, IqorPropertyCollection& collection,
                                        CprpMultiplePropInfo* parent)
{
    auto node = std::make_unique<CprpMultiplePropInfo>();
    Must(property.GetDataType(&node->m_eDataType));
    Must(property.GetPropertyID(&node->m_nPropertyID));
    node->m_listCollections.emplace_back(&collection);
    node->m_pParent = parent;
    m_byId.try_emplace(node->m_nPropertyID, node.get());
    return *(parent ? parent->m_listChildren : m_roots).emplace_back(std::move(node));
}

void PropertyTree::AddChildren(IqorProperty& property, IqorPropertyCollection& collection, CprpMultiplePropInfo& parent)
{
    LONG id = E_PROP_ID_INVALID;
    for (;;) {
        CComPtr<IqorProperty> child;
        EprpPropError error = E_PROP_ERROR_NONE;
        LONG next = E_PROP_ID_INVALID;
        Must(property.GetNextChildProperty(id, &next, &error, &child));
        if (next == E_PROP_ID_INVALID || !child)
            return;
        AddChildren(*child, collection, Add(*child, collection, &parent));
        id = next;
    }
}

void PropertyTree::Merge(IqorPropertyCollection& further)
{
    const std::size_t before = m_roots.empty() ? 0 : m_roots.front()->m_listCollections.size();
    InTransaction(further, AtEnd::DropEvents, [&] {
        VisitAll([&](CprpMultiplePropInfo& node) {
            VARIANT_BOOL exists = VARIANT_FALSE;
            Must(further.PropertyExists(node.m_nPropertyID, &exists));
            if (exists != VARIANT_FALSE)
                node.m_listCollections.emplace_back(&further);
        });
    });
    RemoveWithout(m_roots, before + 1);
}

/// Removes the nodes that fewer collections have, each with its children.
void PropertyTree::RemoveWithout(Nodes& nodes, std::size_t collections)
{
    std::erase_if(nodes, [&](const auto& node) {
        if (node->m_listCollections.size() >= collections) {
            RemoveWithout(node->m_listChildren, collections);
            return false;
        }
        VisitSubtree(*node, [&](const CprpMultiplePropInfo& gone) { m_byId.erase(gone.m_nPropertyID); });
        return true;
    });
}

void PropertyTree::Clear()
{
    m_byId.clear();
    m_roots.clear();
}

CprpMultiplePropInfo* PropertyTree::Next(const CprpMultiplePropInfo& node) const
{
    if (!node.m_listChildren.empty())
        return node.m_listChildren.front().get();
    for (const CprpMultiplePropInfo* at = &node; at; at = at->m_pParent) {
        const Nodes& siblings = at->m_pParent ? at->m_pParent->m_listChildren : m_roots;
        const auto place = std::ranges::find(siblings, at, &std::unique_ptr<CprpMultiplePropInfo>::get);
        if (place != siblings.end() && place + 1 != siblings.end())
            return (place + 1)->get();
    }
    return nullptr;
}

CprpMultiplePropInfo* PropertyTree::Find(LONG id) const
{
    const auto found = m_byId.find(id);
    return found == m_byId.end() ? nullptr : found->second;
}
