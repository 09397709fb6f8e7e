// A tree of plain items and a list without a window that behaves as the platform's list box does.
#pragma once

#include "list/RowDisplay.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

class FakeItem : public CqorLBItem {
public:
    FakeItem(Text name, bool isCategory) : CqorLBItem(nullptr), m_bCategory(isCategory)
    {
        m_strName = std::move(name);
        m_bCollapsed = !isCategory;
        ++s_alive;
    }
    ~FakeItem() override { --s_alive; }

    void Draw(const SqorLBDrawContext&) override {}
    int MeasureItem(const SqorLBDrawSettings&, HDC) override { return 16; }
    void Edit(const Rect&, const Rect&, const Rect&) override {}
    void EndEdit(bool) override {}
    int GetNameWidth(HDC, const SqorLBDrawSettings&) override { return 0; }
    int GetDataWidth(HDC, const SqorLBDrawSettings&) override { return 0; }
    void Refresh() override
    {
        ++m_nRefreshes;
        if (onRefresh)
            onRefresh();
        for (const auto& child : m_listChildren)
            child->Refresh();
    }
    bool IsVisible() const override
    {
        return m_bVisible && (!m_bCategory || std::any_of(m_listChildren.begin(), m_listChildren.end(),
                                                          [](const auto& child) { return child->IsVisible(); }));
    }

    static inline int s_alive = 0;
    int m_nRefreshes = 0;
    std::function<void()> onRefresh;

private:
    bool m_bCategory;
};

class FakeList : public RowDisplay {
public:
    FakeList() { m_eListType = ListType::PropertyList; }

    CqorLBItem& Category(Text name, CqorLBItem* parent = nullptr) { return Add(std::move(name), true, parent); }
    CqorLBItem& Leaf(Text name, CqorLBItem* parent = nullptr) { return Add(std::move(name), false, parent); }

    void Select(const CqorLBItem& item) { selected = FindRow(item); }
    CqorLBItem* Selected() const { return ItemAt(selected); }
    std::vector<Text> Names() const
    {
        std::vector<Text> names;
        for (const CqorLBItem* item : rows)
            names.push_back(item->m_strName);
        return names;
    }
    /// What the grid does for a change of a property's visibility.
    void ApplyVisibility(CqorLBItem& item, bool visible)
    {
        item.m_bVisible = visible;
        CqorLBItem* const parent = item.m_pParent;
        if (!item.IsVisible())
            RemoveItem(item);
        else if (!parent || !parent->m_bCollapsed)
            ShowItem(item);
        else if (FindRow(*parent) < 0 && parent->IsVisible())
            ShowItem(*parent);
    }
    void Clear()
    {
        rows.clear();
        selected = -1;
        ForgetRows();
        TakeOutAll();
    }

    std::vector<CqorLBItem*> rows; ///< what the window holds
    int selected = -1;
    int selectionsLost = 0;
    std::function<void()> onInsert;
    std::function<void()> onDelete;

protected:
    void InsertRow(int row, CqorLBItem& item) override
    {
        rows.insert(rows.begin() + row, &item);
        if (selected >= row)
            ++selected;
        if (onInsert)
            std::exchange(onInsert, nullptr)();
    }
    void DeleteRow(int row) override
    {
        rows.erase(rows.begin() + row);
        if (selected == row)
            selected = -1;
        else if (selected > row)
            --selected;
        if (onDelete)
            std::exchange(onDelete, nullptr)();
    }
    int SelectedRow() const override { return selected; }
    void SelectRow(int row) override { selected = row; }
    void OnSelectionLost() override { ++selectionsLost; }

private:
    CqorLBItem& Add(Text name, bool isCategory, CqorLBItem* parent)
    {
        auto item = std::make_unique<FakeItem>(std::move(name), isCategory);
        return parent ? parent->AddChild(std::move(item)) : AddRoot(std::move(item));
    }
};
