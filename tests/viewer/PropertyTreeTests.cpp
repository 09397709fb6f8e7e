// The merged tree of several collections.
#include "tests/core/ModelFixture.h"
#include "tests/support/Framed.h"
#include "viewer/PropertyTree.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Place {
    LONG id;
    LONG parent = E_PROP_ID_TOP_LEVEL;
    EprpPropDataType type = E_PROP_DT_LONG;
};

CComPtr<IqorPropertyCollection> CollectionOf(std::initializer_list<Place> places)
{
    auto collection = MakeObject<IqorPropertyCollection>(CLSID_prpPropertyCollection);
    Transact(collection, [&] {
        for (const Place& place : places)
            EXPECT_EQ(AddTo(collection, {.id = place.id, .type = place.type, .parent = place.parent}), S_OK);
    });
    return collection;
}

std::vector<LONG> Walk(const PropertyTree& tree)
{
    std::vector<LONG> ids;
    for (const CprpMultiplePropInfo* node = tree.Head(); node; node = tree.Next(*node))
        ids.push_back(node->m_nPropertyID);
    return ids;
}

bool IsFree(IqorPropertyCollection* collection)
{
    const bool free = collection->StartTransaction(0) == S_OK;
    if (free)
        collection->EndTransaction(VARIANT_FALSE);
    return free;
}

} // namespace

TEST(PropertyTree, OfOneCollectionHasItsOrderAndItsParents)
{
    PropertyTree tree;
    const auto first = CollectionOf({{10, E_PROP_ID_TOP_LEVEL, E_PROP_DT_CATEGORY}, {5, 10}, {7, 5}, {6, 10}, {2}});
    tree.Build(*first);
    EXPECT_THAT(Walk(tree), ElementsAre(10, 5, 7, 6, 2));
    EXPECT_EQ(tree.Find(7)->m_pParent, tree.Find(5));
    EXPECT_EQ(tree.Find(5)->m_pParent, tree.Find(10));
    EXPECT_EQ(tree.Find(10)->m_pParent, nullptr);
    EXPECT_EQ(tree.Find(10)->m_eDataType, E_PROP_DT_CATEGORY);
    EXPECT_THAT(tree.Find(6)->m_listCollections, ElementsAre(first));
    EXPECT_TRUE(IsFree(first));
}

TEST(PropertyTree, FindsNothingForAnUnknownId)
{
    PropertyTree tree;
    EXPECT_EQ(tree.Head(), nullptr);
    EXPECT_EQ(tree.Find(1), nullptr);
    tree.Build(*CollectionOf({{1}}));
    EXPECT_EQ(tree.Find(2), nullptr);
    EXPECT_EQ(tree.Find(E_PROP_ID_INVALID), nullptr);
}

TEST(PropertyTree, KeepsWhatAllCollectionsHave)
{
    PropertyTree tree;
    const auto first = CollectionOf({{1}, {2}, {3}});
    const auto second = CollectionOf({{3}, {4}, {1}});
    tree.Build(*first);
    tree.Merge(*second);
    EXPECT_THAT(Walk(tree), ElementsAre(1, 3));
    EXPECT_THAT(tree.Find(1)->m_listCollections, ElementsAre(first, second));
    EXPECT_EQ(tree.Find(2), nullptr);
    EXPECT_EQ(tree.Count(), 2U);
    EXPECT_TRUE(IsFree(second));
}

TEST(PropertyTree, ComparesIdsWhateverTheTypeAndThePlace)
{
    PropertyTree tree;
    const auto first = CollectionOf({{1}, {2, 1}});
    const auto second = CollectionOf({{2, E_PROP_ID_TOP_LEVEL, E_PROP_DT_STRING_UNICODE}, {1, 2}});
    tree.Build(*first);
    tree.Merge(*second);
    EXPECT_THAT(Walk(tree), ElementsAre(1, 2));
    EXPECT_EQ(tree.Find(2)->m_eDataType, E_PROP_DT_LONG);
    EXPECT_EQ(tree.Find(2)->m_pParent, tree.Find(1));
}

TEST(PropertyTree, LosesChildrenWithTheirParent)
{
    PropertyTree tree;
    tree.Build(*CollectionOf({{1}, {2, 1}, {3, 2}, {4}}));
    tree.Merge(*CollectionOf({{2}, {3}, {4}}));
    EXPECT_THAT(Walk(tree), ElementsAre(4));
    EXPECT_EQ(tree.Find(3), nullptr);
}

TEST(PropertyTree, TakesOneCollectionTwice)
{
    PropertyTree tree;
    const auto first = CollectionOf({{1}});
    tree.Build(*first);
    tree.Merge(*first);
    EXPECT_THAT(tree.Find(1)->m_listCollections, ElementsAre(first, first));
}

TEST(PropertyTree, OfCollectionsWithNothingInCommonIsEmpty)
{
    PropertyTree tree;
    tree.Build(*CollectionOf({{1}, {2, 1}}));
    tree.Merge(*CollectionOf({{3}}));
    tree.Merge(*CollectionOf({{1}, {2}, {3}}));
    EXPECT_THAT(Walk(tree), IsEmpty());
    EXPECT_EQ(tree.Count(), 0U);
}

TEST(PropertyTree, IsRefusedByACollectionWithAnOpenTransactionAndLeavesItOpen)
{
    PropertyTree tree;
    const auto first = CollectionOf({{1}});
    ASSERT_EQ(first->StartTransaction(-1), S_OK);
    const HRESULT hr = Framed([&] { tree.Build(*first); });
    EXPECT_TRUE(FAILED(hr));
    EXPECT_THAT(Walk(tree), IsEmpty());
    EXPECT_EQ(first->EndTransaction(VARIANT_FALSE), S_OK);
}

TEST(PropertyTree, GivesItsCollectionsBackWithClear)
{
    PropertyTree tree;
    const auto first = CollectionOf({{1}, {2, 1}});
    tree.Build(*first);
    tree.Clear();
    first->AddRef();
    EXPECT_EQ(first->Release(), 1U);
    EXPECT_EQ(tree.Find(1), nullptr);
}
