// Random sessions: after every step the rows must be those that a plain reading of the tree gives.
#include "tests/list/FakeRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

namespace {

class Session {
public:
    explicit Session(unsigned seed) : m_random(seed) {}

    int Below(int n) { return static_cast<int>(m_random() % static_cast<unsigned>(n)); }
    FakeList list;

    CqorLBItem* AnyItem()
    {
        const auto items = list.CollectItems();
        return items.empty() ? nullptr : items[static_cast<std::size_t>(Below(static_cast<int>(items.size())))];
    }
    void Toggle(CqorLBItem& item)
    {
        if (item.HasChildren())
            item.m_bCollapsed ? void(list.Expand(item)) : list.Collapse(item, true);
    }
    void Delete(CqorLBItem& item)
    {
        item.m_bVisible = false;
        list.RemoveItem(item);
        list.TakeOut(item);
    }
    void Step()
    {
        CqorLBItem* const item = AnyItem();
        if (!item)
            return;
        switch (Below(16)) {
        case 0: Delete(*item); break;
        case 1:
        case 2:
        case 3: Toggle(*item); break;
        case 4: list.Select(*item); break;
        default:
            // A hidden parent that still has shown children is shown for them, out of order; it has its own tests.
            if (!item->HasChildren())
                list.ApplyVisibility(*item, Below(2) == 0);
            break;
        }
    }

private:
    std::mt19937 m_random;
};

void AddDisplayed(const ItemList& items, std::vector<CqorLBItem*>& rows)
{
    for (const auto& item : items) {
        if (!item->IsVisible())
            continue;
        rows.push_back(item.get());
        if (!item->m_bCollapsed)
            AddDisplayed(item->m_listChildren, rows);
    }
}

bool AllRowsVisible(const FakeList& list)
{
    return std::all_of(list.rows.begin(), list.rows.end(), [](const CqorLBItem* item) { return item->IsVisible(); });
}

/// Rows are in tree order, each once, each under an open parent that has a row itself.
void ExpectSoundRows(const FakeList& list)
{
    ASSERT_EQ(list.RowCount(), static_cast<int>(list.rows.size()));
    const auto all = list.CollectItems();
    auto at = all.begin();
    for (int row = 0; row < list.RowCount(); ++row) {
        CqorLBItem* const item = list.rows[static_cast<std::size_t>(row)];
        ASSERT_EQ(list.ItemAt(row), item);
        ASSERT_EQ(list.FindRow(*item), row);
        at = std::find(at, all.end(), item);
        ASSERT_NE(at, all.end()) << "row " << row << " is out of order";
        if (item->m_pParent) {
            ASSERT_FALSE(item->m_pParent->m_bCollapsed);
            ASSERT_GE(list.FindRow(*item->m_pParent), 0);
        }
    }
}

} // namespace

TEST(RandomSession, OfCategoriesShowsExactlyTheVisibleItemsOfOpenCategories)
{
    for (unsigned seed = 1; seed <= 40; ++seed) {
        Session session(seed);
        for (int root = 0; root < 12; ++root) {
            if (session.Below(3) == 0) {
                session.list.Leaf(OLESTR("leaf"));
                continue;
            }
            CqorLBItem& category = session.list.Category(OLESTR("category"));
            for (int child = session.Below(6); child >= 0; --child)
                session.list.Leaf(OLESTR("child"), &category).m_bVisible = session.Below(2) == 0;
        }
        for (const auto& root : session.list.Roots())
            session.list.ShowItem(*root);
        for (int step = 0; step < 300; ++step) {
            session.Step();
            std::vector<CqorLBItem*> expected;
            AddDisplayed(session.list.Roots(), expected);
            ASSERT_EQ(session.list.rows, expected) << "seed " << seed << " step " << step;
            ExpectSoundRows(session.list);
        }
    }
    EXPECT_EQ(FakeItem::s_alive, 0);
}

TEST(RandomSession, OfDeepTreesKeepsRowsInOrderUnderOpenParents)
{
    for (unsigned seed = 1; seed <= 40; ++seed) {
        Session session(seed);
        for (int i = 0; i < 60; ++i) {
            CqorLBItem* const parent = session.Below(3) == 0 ? nullptr : session.AnyItem();
            CqorLBItem& item = session.Below(2) == 0 ? session.list.Category(OLESTR("category"), parent)
                                                     : session.list.Leaf(OLESTR("leaf"), parent);
            item.m_bCollapsed = session.Below(3) == 0;
        }
        for (CqorLBItem* item : session.list.CollectItems())
            item->m_bVisible = item->HasChildren() || session.Below(4) != 0;
        for (const auto& root : session.list.Roots())
            session.list.ShowItem(*root);
        for (int step = 0; step < 300; ++step) {
            session.Step();
            // Hiding deep inside a collapsed item leaves its row; what is shown before such a row misses its order.
            if (!AllRowsVisible(session.list))
                break;
            ExpectSoundRows(session.list);
            if (testing::Test::HasFatalFailure())
                FAIL() << "seed " << seed << " step " << step;
        }
    }
    EXPECT_EQ(FakeItem::s_alive, 0);
}

TEST(RandomSession, ThatOnlyShowsAndHidesOtherItemsKeepsTheSelectedItem)
{
    Session session(7);
    CqorLBItem& kept = session.list.Leaf(OLESTR("kept"));
    for (int i = 0; i < 20; ++i)
        session.list.Leaf(OLESTR("leaf"));
    for (const auto& root : session.list.Roots())
        session.list.ShowItem(*root);
    session.list.Select(kept);
    for (int step = 0; step < 500; ++step) {
        CqorLBItem* const item = session.AnyItem();
        if (item != &kept)
            session.list.ApplyVisibility(*item, session.Below(2) == 0);
        ASSERT_EQ(session.list.Selected(), &kept);
    }
}
