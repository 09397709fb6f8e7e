// The merged tree of the shown collections: one node for each property id that all of them have, in the order and
// under the parents of the first one. Knows collections only, no rows and no windows.
#pragma once

#include "list/prpMultiplePropInfo.h"

#include <memory>
#include <unordered_map>
#include <vector>

class PropertyTree {
public:
    using Nodes = std::vector<std::unique_ptr<CprpMultiplePropInfo>>;

    /// Takes over the tree of the first collection. A failing call is raised; what was built until then stands.
    void Build(IqorPropertyCollection& first);
    /// Adds a further collection to the nodes whose ids it has, wherever and of whatever type they are there. The
    /// others go, with their children.
    void Merge(IqorPropertyCollection& further);
    void Clear();

    const Nodes& Roots() const { return m_roots; }
    /// First node, null in an empty tree.
    CprpMultiplePropInfo* Head() const { return m_roots.empty() ? nullptr : m_roots.front().get(); }
    /// Next node in depth first order, null behind the last. Costs a walk over the siblings of each level left.
    CprpMultiplePropInfo* Next(const CprpMultiplePropInfo& node) const;
    /// Null for an unknown id.
    CprpMultiplePropInfo* Find(LONG id) const;
    std::size_t Count() const { return m_byId.size(); }

    template <class Visit>
    void VisitAll(const Visit& visit) const
    {
        VisitNodes(m_roots, visit);
    }
    /// The node, then its descendants.
    template <class Visit>
    static void VisitSubtree(CprpMultiplePropInfo& node, const Visit& visit)
    {
        visit(node);
        VisitNodes(node.m_listChildren, visit);
    }

private:
    template <class Visit>
    static void VisitNodes(const Nodes& nodes, const Visit& visit)
    {
        for (const auto& node : nodes)
            VisitSubtree(*node, visit);
    }
    CprpMultiplePropInfo& Add(IqorProperty& property, IqorPropertyCollection& collection, CprpMultiplePropInfo* parent);
    void AddChildren(IqorProperty& property, IqorPropertyCollection& collection, CprpMultiplePropInfo& parent);
    void RemoveWithout(Nodes& nodes, std::size_t collections);

    Nodes m_roots;
    std::unordered_map<LONG, CprpMultiplePropInfo*> m_byId;
};
