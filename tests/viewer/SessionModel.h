// What a plain reading of the rules says about the displayed rows: a forest of two levels, a few flags, no list.
//
// Kept to two levels, and to visibility changes of leaves, because there the rows follow from the flags alone; what
// comes before in deeper trees is the subject of the list's own tests.
#pragma once

#include "LV_prpPropCollection.h"

#include <algorithm>
#include <map>
#include <vector>

class SessionModel {
public:
    struct Node {
        LONG id = 0;
        bool category = false;
        bool visible = true;
        bool collapsed = true;
        bool rowStands = true; ///< of a parent that is no category: it goes with its last child and stays away
        LONG parent = E_PROP_ID_INVALID;
        std::vector<Node> children;
    };

    std::vector<Node> roots;
    std::map<LONG, bool> remembered; ///< collapsed flags that the user left categories with
    bool shown = false;
    bool hasWindow = true;
    unsigned generation = 0; ///< changes whenever rows are made or dropped as a whole

    Node* Find(LONG id)
    {
        for (Node& root : roots) {
            if (root.id == id)
                return &root;
            for (Node& child : root.children) {
                if (child.id == id)
                    return &child;
            }
        }
        return nullptr;
    }

    /// Rows are made anew: flags start over.
    void MakeRows()
    {
        ++generation;
        for (Node& root : roots) {
            root.rowStands = true;
            root.collapsed = !root.category;
            if (const auto state = remembered.find(root.id); root.category && state != remembered.end())
                root.collapsed = state->second;
        }
    }
    void Show()
    {
        shown = true;
        MakeRows();
    }
    void Clear()
    {
        shown = false;
        ++generation;
    }

    void Toggle(LONG id)
    {
        if (Node* const node = Find(id))
            node->collapsed = !node->collapsed;
    }
    /// A child that was shown or about to be is gone or hidden now.
    void ChildWent(LONG parent)
    {
        Node* const node = Find(parent);
        if (node && std::ranges::none_of(node->children, &Node::visible))
            node->rowStands = false;
    }
    void Remove(LONG id)
    {
        std::erase_if(roots, [&](const Node& node) { return node.id == id; });
        for (Node& root : roots)
            std::erase_if(root.children, [&](const Node& node) { return node.id == id; });
    }

    std::vector<LONG> Rows() const
    {
        std::vector<LONG> ids;
        if (!shown || !hasWindow)
            return ids;
        for (const Node& root : roots) {
            const bool anyVisible = std::ranges::any_of(root.children, &Node::visible);
            if (!root.visible || (root.category ? !anyVisible : !root.rowStands))
                continue;
            ids.push_back(root.id);
            if (root.collapsed)
                continue;
            for (const Node& child : root.children) {
                if (child.visible)
                    ids.push_back(child.id);
            }
        }
        return ids;
    }
};
