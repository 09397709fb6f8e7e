// The tree of a collection: adding, removing, finding and walking.
#include "tests/core/ModelFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class CollectionTree : public ModelTest {
protected:
    /// Ids that the depth-first walk hands out.
    std::vector<LONG> Walk()
    {
        std::vector<LONG> ids;
        LONG next = E_PROP_ID_INVALID;
        for (;;) {
            EprpPropError error = E_PROP_ERROR_NONE;
            CComPtr<IqorProperty> property;
            EXPECT_EQ(collection->GetNextPropertyAll(&next, &error, &property), S_OK);
            if (error != E_PROP_ERROR_NONE)
                return ids;
            LONG id = 0;
            EXPECT_EQ(property->GetPropertyID(&id), S_OK);
            ids.push_back(id);
        }
    }
};

} // namespace

TEST_F(CollectionTree, WalksDepthFirstInTheOrderOfAdding)
{
    InTransaction([&] {
        for (const auto& [id, parent] : std::vector<std::pair<LONG, LONG>>{{5, -2}, {3, -2}, {9, 5}, {7, 5}, {1, 9}})
            ASSERT_EQ(AddTo(collection, {.id = id, .parent = parent}), S_OK);
        EXPECT_THAT(Walk(), ElementsAre(5, 9, 1, 7, 3));
    });
}

TEST_F(CollectionTree, GivesTheLastIdTogetherWithTheLastProperty)
{
    Add(1, E_PROP_DT_LONG);
    InTransaction([&] {
        LONG next = E_PROP_ID_INVALID;
        EprpPropError error = E_PROP_ERROR_NONE;
        CComPtr<IqorProperty> property;
        EXPECT_EQ(collection->GetNextPropertyAll(&next, &error, &property), S_OK);
        EXPECT_EQ(next, E_PROP_ID_LAST);
        EXPECT_NE(property.p, nullptr);
        EXPECT_EQ(error, E_PROP_ERROR_NONE);
    });
}
