// Trees whose depth no stack would bear: whatever runs over a whole tree runs in a loop. And the order in which a tree
// goes, which does not depend on how it is walked.
#include "tests/core/HostRule.h"
#include "tests/core/ModelFixture.h"

#include <memory>

using testing::ElementsAre;

namespace {

class Trees : public ModelTest {
protected:
    /// The last reference: a connected sink holds one as well.
    void ReleaseCollection()
    {
        sink.Disconnect();
        collection.Release();
    }
};

class DeepTrees : public Trees {
protected:
    static constexpr LONG kLevels = 100'000;

    /// Properties 1 to kLevels, each the only child of the one before it.
    static void Build(IqorPropertyCollection* collection)
    {
        Transact(
            collection,
            [&] {
                for (LONG id = 1; id <= kLevels; ++id)
                    ASSERT_EQ(AddTo(collection, {.id = id, .parent = id == 1 ? LONG{E_PROP_ID_TOP_LEVEL} : id - 1}),
                              S_OK);
            },
            false);
    }
    bool Exists(LONG id)
    {
        VARIANT_BOOL exists = 7;
        EXPECT_EQ(collection->PropertyExists(id, &exists), S_OK);
        return exists == VARIANT_TRUE;
    }
};

/// Writes down when it goes, which is when the last property that it rules goes.
class MortalRule final : public HostRule {
public:
    std::shared_ptr<std::vector<int>> gone;
    int number = 0;
    ~MortalRule() override { gone->push_back(number); }
};

class DyingTrees : public Trees {
    const std::shared_ptr<std::vector<int>> m_gone = std::make_shared<std::vector<int>>(); // rules may outlive the test

protected:
    std::vector<int>& gone = *m_gone;

    /// Adds a property that is written down under its id when it goes.
    void AddMortal(LONG id, LONG parent = E_PROP_ID_TOP_LEVEL)
    {
        const auto rule = MakeHostRule<MortalRule>();
        rule->gone = m_gone;
        rule->number = id;
        const auto property = Add(id, E_PROP_DT_LINEAR, parent);
        InTransaction([&] { EXPECT_EQ(property->SetVisibilityInfo(rule), S_OK); });
    }
    void Remove(LONG id)
    {
        EprpPropError error = E_PROP_ERROR_NONE;
        InTransaction([&] { EXPECT_EQ(collection->RemoveProperty(id, &error), S_OK); });
        EXPECT_EQ(error, E_PROP_ERROR_NONE);
    }
    /// 1 with the children 2 and 5; 2 with the children 3 and 4; 5 with the child 6; 7 beside 1.
    void BuildSeven()
    {
        AddMortal(1);
        AddMortal(2, 1);
        AddMortal(3, 2);
        AddMortal(4, 2);
        AddMortal(5, 1);
        AddMortal(6, 5);
        AddMortal(7);
    }
};

} // namespace

TEST_F(DeepTrees, GoWithTheirCollection)
{
    Build(collection);
    ReleaseCollection();
}

TEST_F(DeepTrees, GoWithThePropertyThatIsRemoved)
{
    Build(collection);
    EprpPropError error = E_PROP_ERROR_NONE;
    EXPECT_THAT(EventsOf([&] { EXPECT_EQ(collection->RemoveProperty(1, &error), S_OK); }), ElementsAre(Deleted(1)));
    EXPECT_FALSE(Exists(1));
    EXPECT_FALSE(Exists(kLevels));
}

TEST_F(DeepTrees, GoWithTheHostThatHeldThemLongerThanTheirCollection)
{
    Build(collection);
    CComPtr<IqorProperty> top;
    InTransaction([&] { top = PropertyOf(collection, 1); });
    ReleaseCollection();
    top.Release();
}

TEST_F(DeepTrees, LiveOnBelowAPropertyThatAHostHolds)
{
    Build(collection);
    CComPtr<IqorProperty> held;
    InTransaction([&] { held = PropertyOf(collection, kLevels / 2); });
    EprpPropError error = E_PROP_ERROR_NONE;
    InTransaction([&] { EXPECT_EQ(collection->RemoveProperty(1, &error), S_OK); });
    EXPECT_FALSE(Exists(kLevels / 2 - 1));
    EXPECT_TRUE(Exists(kLevels / 2));
    EXPECT_TRUE(Exists(kLevels));
    InTransaction([&] {
        LONG parent = 0;
        EXPECT_EQ(held->GetParentProperty(&parent), S_OK);
        EXPECT_EQ(parent, kLevels / 2 - 1);
    });
    held.Release();
    EXPECT_FALSE(Exists(kLevels));
}

TEST_F(DeepTrees, AreConvertedToTheirEnd)
{
    Build(collection);
    CComPtr<IqorProperty> last;
    InTransaction([&] {
        last = PropertyOf(collection, kLevels);
        SetDouble(last, 2);
    });
    EXPECT_EQ(collection->ConvertUnit(E_METRIC), S_OK);
    EXPECT_EQ(DoubleOf(last), 2 * 25.4);
}

TEST_F(DeepTrees, AreClonedToTheirEnd)
{
    Build(collection);
    InTransaction([&] { SetDouble(PropertyOf(collection, kLevels), 7); });
    CComPtr<IqorPropertyCollection> clone;
    InTransaction([&] { EXPECT_EQ(collection->Clone(2, &clone), S_OK); });
    ReleaseCollection();
    Transact(clone, [&] {
        const auto last = PropertyOf(clone, kLevels);
        EXPECT_EQ(DoubleOf(last), 7);
        LONG parent = 0;
        EXPECT_EQ(last->GetParentProperty(&parent), S_OK);
        EXPECT_EQ(parent, kLevels - 1);
    });
}

TEST_F(DeepTrees, AreWalkedAndSearchedToTheirEnd)
{
    Build(collection);
    InTransaction([&] {
        LONG next = E_PROP_ID_INVALID;
        LONG seen = 0;
        do {
            CComPtr<IqorProperty> property;
            EprpPropError error = E_PROP_ERROR_NONE;
            ASSERT_EQ(collection->GetNextPropertyAll(&next, &error, &property), S_OK);
            ASSERT_EQ(error, E_PROP_ERROR_NONE);
            ++seen;
        } while (next != E_PROP_ID_LAST);
        EXPECT_EQ(seen, kLevels);

        EXPECT_EQ(PropertyOf(collection, kLevels)->SetPropertyName(Bstr(OLESTR("Bottom"))), S_OK);
        CComPtr<IqorProperty> found;
        EprpPropError error = E_PROP_ERROR_NONE;
        ASSERT_EQ(collection->GetPropertyFromName(Bstr(OLESTR("bottom")), &error, &found), S_OK);
        LONG id = 0;
        ASSERT_TRUE(found);
        EXPECT_EQ(found->GetPropertyID(&id), S_OK);
        EXPECT_EQ(id, kLevels);
    });
}

TEST_F(DeepTrees, AreSavedAndLoadedIntoATreeBuiltAgain)
{
    Build(collection);
    Text saved;
    InTransaction([&] { saved = SavedTextOf(collection); });
    const auto again = MakeObject<IqorPropertyCollection>(CLSID_prpPropertyCollection);
    Build(again);
    EXPECT_EQ(again->put_LoadVersion(1), S_OK);
    Transact(again, [&] {
        VARIANT_BOOL success = VARIANT_FALSE;
        EXPECT_EQ(again->LoadFromStream(MakeStream(saved), nullptr, &success), S_OK);
        EXPECT_EQ(success, VARIANT_TRUE);
        EXPECT_EQ(SavedTextOf(again), saved);
    });
}

TEST_F(DyingTrees, GoChildrenFirstAndInTheOrderOfTheirLists)
{
    BuildSeven();
    ReleaseCollection();
    EXPECT_THAT(gone, ElementsAre(3, 4, 2, 6, 5, 1, 7));
}

TEST_F(DyingTrees, OfARemovedPropertyGoInTheSameOrder)
{
    BuildSeven();
    Remove(1);
    EXPECT_THAT(gone, ElementsAre(3, 4, 2, 6, 5, 1));
}

TEST_F(DyingTrees, LeaveWhatAHostHoldsWithAllThatIsBelowIt)
{
    BuildSeven();
    CComPtr<IqorProperty> held;
    InTransaction([&] { held = PropertyOf(collection, 2); });
    Remove(1);
    EXPECT_THAT(gone, ElementsAre(6, 5, 1));
    gone.clear();
    InTransaction([&] {
        LONG children = 0;
        EXPECT_EQ(held->GetCount(&children), S_OK);
        EXPECT_EQ(children, 2);
    });
    held.Release();
    EXPECT_THAT(gone, ElementsAre(3, 4, 2));
}

TEST_F(DyingTrees, FollowTheirListsAndNotTheParentsThatWereReported)
{
    BuildSeven();
    InTransaction([&] {
        EXPECT_EQ(PropertyOf(collection, 3)->SetParentProperty(7), S_OK);
        EXPECT_EQ(PropertyOf(collection, 6)->SetParentProperty(999), S_OK);
    });
    Remove(7);
    EXPECT_THAT(gone, ElementsAre(7));
    gone.clear();
    Remove(1);
    EXPECT_THAT(gone, ElementsAre(3, 4, 2, 6, 5, 1));
}
