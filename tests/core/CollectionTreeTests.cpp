// The tree of a collection: adding, removing, finding and walking.
#include "tests/core/ModelFixture.h"
#include "tests/support/TestStrings.h"

#include <bit>
#include <thread>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// A type that no enumerator has and that a late caller may hand in all the same.
const auto kNegativeType = std::bit_cast<EprpPropDataType>(-1);

struct NextFound {
    LONG id = 77;
    EprpPropError error = E_PROP_ERR_SYNTAX_ERROR;
    CComPtr<IqorProperty> property;
};

class CollectionTree : public ModelTest {
protected:
    void AddAll(const std::vector<std::pair<LONG, LONG>>& idsAndParents)
    {
        InTransaction([&] {
            for (const auto& [id, parent] : idsAndParents)
                ASSERT_EQ(AddTo(collection, {.id = id, .parent = parent}), S_OK);
        });
        sink->Clear();
    }
    /// Ids that the depth-first walk hands out; the transaction must be open.
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
    NextFound Next(LONG id)
    {
        NextFound found;
        EXPECT_EQ(collection->GetNextProperty(id, &found.id, &found.error, &found.property), S_OK);
        return found;
    }
    EprpPropError Remove(LONG id)
    {
        EprpPropError error = E_PROP_ERR_SYNTAX_ERROR;
        EXPECT_EQ(collection->RemoveProperty(id, &error), S_OK);
        return error;
    }
    bool Exists(LONG id)
    {
        VARIANT_BOOL exists = 3;
        EXPECT_EQ(collection->PropertyExists(id, &exists), S_OK);
        return exists == VARIANT_TRUE;
    }
};

} // namespace

TEST_F(CollectionTree, WalksDepthFirstInTheOrderOfAdding)
{
    AddAll({{5, -2}, {3, -2}, {9, 5}, {7, 5}, {1, 9}});
    InTransaction([&] { EXPECT_THAT(Walk(), ElementsAre(5, 9, 1, 7, 3)); });
}

TEST_F(CollectionTree, GivesTheLastIdTogetherWithTheLastProperty)
{
    AddAll({{1, -2}});
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

TEST_F(CollectionTree, EndsAWalkThatIsFedTheLastId)
{
    AddAll({{1, -2}});
    InTransaction([&] {
        LONG next = E_PROP_ID_LAST;
        EprpPropError error = E_PROP_ERROR_NONE;
        IqorProperty* property = reinterpret_cast<IqorProperty*>(8);
        EXPECT_EQ(collection->GetNextPropertyAll(&next, &error, &property), S_OK);
        EXPECT_EQ(next, E_PROP_ID_INVALID);
        EXPECT_EQ(property, nullptr);
        EXPECT_EQ(error, E_PROP_ERROR_PROP_ID_NOT_FOUND);
    });
}

TEST_F(CollectionTree, LeavesTheResultOfAWalkOverAnEmptyTreeUnwritten)
{
    InTransaction([&] {
        LONG next = E_PROP_ID_INVALID;
        EprpPropError error = E_PROP_ERROR_NONE;
        IqorProperty* property = reinterpret_cast<IqorProperty*>(8);
        EXPECT_EQ(collection->GetNextPropertyAll(&next, &error, &property), S_OK);
        EXPECT_EQ(next, E_PROP_ID_INVALID);
        EXPECT_EQ(property, reinterpret_cast<IqorProperty*>(8));
        EXPECT_EQ(error, E_PROP_ERROR_PROP_ID_NOT_FOUND);
    });
}

TEST_F(CollectionTree, RaisesOnAWalkFromAnUnknownId)
{
    InTransaction([&] {
        LONG next = 12;
        EprpPropError error = E_PROP_ERROR_NONE;
        CComPtr<IqorProperty> property;
        ExpectRefusal(collection->GetNextPropertyAll(&next, &error, &property),
                      OLESTR("PropertyID 12 was not found in the collection."));
        EXPECT_EQ(error, E_PROP_ERROR_PROP_ID_NOT_FOUND);
    });
}

TEST_F(CollectionTree, StepsThroughTheTopLevelOnly)
{
    AddAll({{5, -2}, {9, 5}, {3, -2}});
    InTransaction([&] {
        EXPECT_EQ(Next(-1).id, 5);
        EXPECT_EQ(Next(5).id, 3);
        const NextFound end = Next(3);
        EXPECT_EQ(end.id, -1);
        EXPECT_EQ(end.property.p, nullptr);
        EXPECT_EQ(end.error, E_PROP_ERROR_NONE);
    });
}

TEST_F(CollectionTree, EndsTheTopLevelWalkAtAChildWithoutAnError)
{
    AddAll({{5, -2}, {9, 5}});
    InTransaction([&] {
        const NextFound found = Next(9);
        EXPECT_EQ(found.id, -1);
        EXPECT_EQ(found.error, E_PROP_ERROR_NONE);
    });
}

TEST_F(CollectionTree, ReportsUnknownIdsOfTheTopLevelWalkAsNotFound)
{
    InTransaction([&] {
        for (const LONG id : {LONG{-2}, LONG{-3}, LONG{44}}) {
            const NextFound found = Next(id);
            EXPECT_EQ(found.id, -1);
            EXPECT_EQ(found.error, E_PROP_ERROR_PROP_ID_NOT_FOUND);
        }
        EXPECT_EQ(Next(-1).error, E_PROP_ERROR_NONE);
    });
}

TEST_F(CollectionTree, CountsTheTopLevelAndLeavesEveryOtherCountAsItWas)
{
    AddAll({{5, -2}, {9, 5}, {3, -2}});
    InTransaction([&] {
        LONG count = 41;
        EXPECT_EQ(collection->GetCount(E_PROP_ITERATION_CURRENT_LEVEL, &count), S_OK);
        EXPECT_EQ(count, 2);
        count = 41;
        EXPECT_EQ(collection->GetCount(E_PROP_ITERATION_ALL, &count), S_OK);
        EXPECT_EQ(count, 41);
    });
}

TEST_F(CollectionTree, FindsPropertiesAtAnyDepth)
{
    AddAll({{5, -2}, {9, 5}, {1, 9}});
    InTransaction([&] {
        EXPECT_NE(PropertyOf(collection, 1).p, nullptr);
        EprpPropError error = E_PROP_ERROR_NONE;
        IqorProperty* property = reinterpret_cast<IqorProperty*>(8);
        EXPECT_EQ(collection->GetProperty(2, &error, &property), S_OK);
        EXPECT_EQ(error, E_PROP_ERROR_PROP_ID_NOT_FOUND);
        EXPECT_EQ(property, nullptr);
    });
    EXPECT_TRUE(Exists(9));
    EXPECT_FALSE(Exists(-5));
}

TEST_F(CollectionTree, TakesTheReservedConstantAsAnOrdinaryId)
{
    AddAll({{E_PROP_ID_SPECIAL_UNUSED_SAVED_DATA, -2}});
    EXPECT_TRUE(Exists(E_PROP_ID_SPECIAL_UNUSED_SAVED_DATA));
}

TEST_F(CollectionTree, RefusesAKnownIdAtAnyDepthAsAnInternalError)
{
    AddAll({{5, -2}, {9, 5}});
    InTransaction([&] {
        ExpectInternal(AddTo(collection, {.id = 9}));
        ExpectInternal(AddTo(collection, {.id = 5, .parent = 9}));
        EXPECT_THAT(Walk(), ElementsAre(5, 9));
    });
}

TEST_F(CollectionTree, NamesTheParameterOfAnUnknownParent)
{
    InTransaction([&] {
        for (const LONG parent : {LONG{-1}, LONG{0}, LONG{7}})
            ExpectRefusal(AddTo(collection, {.id = 1, .parent = parent}),
                          OLESTR("Invalid property ID passed in parameter \"nParentPropID\" to the function "
                                 "\"CprpPropertyCollection::AddProperty\""));
        EXPECT_THAT(Walk(), IsEmpty());
    });
}

TEST_F(CollectionTree, ChecksTransactionThenIdThenSignsThenParentOfAnAddition)
{
    const NewProperty wrong{.id = 0, .type = kNegativeType, .parent = 7};
    ExpectNoTransaction(AddTo(collection, wrong));
    InTransaction([&] {
        ExpectInvalidId(AddTo(collection, wrong));
        ExpectNegative(AddTo(collection, {.id = 1, .type = kNegativeType, .parent = 7}));
        ExpectNegative(AddTo(collection, {.id = 1, .nameResID = -2}));
        ExpectNegative(AddTo(collection, {.id = 1, .linked = -1}));
        ExpectNegative(AddTo(collection, {.id = 1, .module = -1}));
        ExpectNegative(AddTo(collection, {.id = 1, .editFlags = -1}));
        EXPECT_EQ(AddTo(collection, {.id = 1, .nameResID = -1}), S_OK);
    });
}

TEST_F(CollectionTree, StoresTheNameResourceOfMinusOneWithAnEmptyName)
{
    const auto property = Add({.id = 1, .nameResID = -1});
    InTransaction([&] {
        LONG id = 0;
        EXPECT_EQ(property->GetPropertyNameResID(&id), S_OK);
        EXPECT_EQ(id, -1);
        EXPECT_EQ(NameOf(property), OLESTR(""));
    });
}

TEST_F(CollectionTree, NeverWritesTheErrorOfAnAddition)
{
    InTransaction([&] {
        EprpPropError error = E_PROP_ERROR_NO_ACTUALS;
        EXPECT_EQ(collection->AddProperty(1, -2, 0, 0, 0, 0, E_PROP_DT_LONG, VARIANT_TRUE, VARIANT_FALSE, VARIANT_TRUE,
                                          &error),
                  S_OK);
        EXPECT_EQ(error, E_PROP_ERROR_NO_ACTUALS);
        EXPECT_EQ(collection->AddProperty(2, -2, 0, 0, 0, 0, E_PROP_DT_LONG, VARIANT_TRUE, VARIANT_FALSE, VARIANT_TRUE,
                                          nullptr),
                  S_OK);
    });
}

TEST_F(CollectionTree, QueuesOneEventForAnAdditionWithTheParentsId)
{
    const auto events = EventsOf([&] {
        EXPECT_EQ(AddTo(collection, {.id = 5, .linked = 3, .editFlags = 1, .readOnly = VARIANT_TRUE}), S_OK);
        EXPECT_EQ(AddTo(collection, {.id = 9, .parent = 5, .visible = VARIANT_FALSE}), S_OK);
    });
    EXPECT_THAT(events, ElementsAre(Added(5), Added(9, 5)));
}

TEST_F(CollectionTree, KeepsAPropertyAddedInvisibleVisibleToPostProcessing)
{
    const auto property = Add({.id = 1, .visible = VARIANT_FALSE});
    InTransaction([&] {
        EXPECT_FALSE(FlagOf(property, &IqorProperty::IsVisible));
        EXPECT_TRUE(FlagOf(property, &IqorProperty::IsVisibleForPostProc));
        SetErrorText(property, OLESTR("Out of range"));
        EXPECT_EQ(ErrorTextOf(property), OLESTR("Out of range"));
    });
}

TEST_F(CollectionTree, RemovesAPropertyWithItsChildrenAndAnnouncesItAlone)
{
    AddAll({{5, -2}, {9, 5}, {1, 9}, {3, -2}});
    const auto events = EventsOf([&] { EXPECT_EQ(Remove(5), E_PROP_ERROR_NONE); });
    EXPECT_THAT(events, ElementsAre(Deleted(5)));
    EXPECT_FALSE(Exists(5));
    EXPECT_FALSE(Exists(9));
    EXPECT_FALSE(Exists(1));
    InTransaction([&] { EXPECT_THAT(Walk(), ElementsAre(3)); });
}

TEST_F(CollectionTree, ReportsTheRemovalOfAnUnknownId)
{
    const auto events = EventsOf([&] { EXPECT_EQ(Remove(5), E_PROP_ERROR_PROP_ID_NOT_FOUND); });
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(CollectionTree, ChecksPointerIdAndThenTransactionOfARemoval)
{
    ExpectNullPointer(collection->RemoveProperty(0, nullptr), OLESTR("CprpPropertyCollection::RemoveProperty"),
                      OLESTR("pePropError"));
    EprpPropError error = E_PROP_ERROR_NO_ACTUALS;
    ExpectInvalidId(collection->RemoveProperty(0, &error));
    EXPECT_EQ(error, E_PROP_ERROR_NO_ACTUALS);
    ExpectNoTransaction(collection->RemoveProperty(1, &error));
    EXPECT_EQ(error, E_PROP_ERROR_NONE);
}

TEST_F(CollectionTree, KeepsTheIdOfARemovedPropertyInUseWhileAHostHoldsIt)
{
    AddAll({{5, -2}, {3, -2}});
    InTransaction([&] {
        CComPtr<IqorProperty> held = PropertyOf(collection, 5);
        EXPECT_EQ(Remove(5), E_PROP_ERROR_NONE);
        EXPECT_THAT(Walk(), ElementsAre(3));
        EXPECT_TRUE(Exists(5));
        EXPECT_EQ(PropertyOf(collection, 5).p, held.p);
        ExpectInternal(AddTo(collection, {.id = 5}));
        const NextFound next = Next(5);
        EXPECT_EQ(next.id, -1);
        EXPECT_EQ(next.error, E_PROP_ERROR_NONE);
        EprpPropError error = E_PROP_ERROR_NO_ACTUALS;
        ExpectInternal(collection->RemoveProperty(5, &error));
    });
    EXPECT_FALSE(Exists(5));
}

TEST_F(CollectionTree, HandsARemovedPropertyOutBeforeItRaisesForItsSuccessor)
{
    AddAll({{5, -2}});
    InTransaction([&] {
        CComPtr<IqorProperty> held = PropertyOf(collection, 5);
        Remove(5);
        LONG next = 5;
        EprpPropError error = E_PROP_ERROR_NO_ACTUALS;
        CComPtr<IqorProperty> handed;
        ExpectInternal(collection->GetNextPropertyAll(&next, &error, &handed));
        EXPECT_EQ(handed.p, held.p);
        EXPECT_EQ(error, E_PROP_ERROR_NONE);
        EXPECT_EQ(next, 5);
    });
}

TEST_F(CollectionTree, LetsAChildThatOutlivesItsParentKeepTheParentsId)
{
    AddAll({{5, -2}, {9, 5}});
    InTransaction([&] {
        CComPtr<IqorProperty> child = PropertyOf(collection, 9);
        Remove(5);
        EXPECT_FALSE(Exists(5));
        LONG parent = 0;
        EXPECT_EQ(child->GetParentProperty(&parent), S_OK);
        EXPECT_EQ(parent, 5);
        EXPECT_EQ(Remove(9), E_PROP_ERROR_PARENT_PROP_ID_NOT_FOUND);
        EXPECT_TRUE(Exists(9));
    });
}

TEST_F(CollectionTree, DetachesAPropertyThatOutlivesItsCollection)
{
    AddAll({{5, -2}});
    CComPtr<IqorProperty> property;
    InTransaction([&] { property = PropertyOf(collection, 5); });
    sink.Disconnect();
    collection.Release();
    LONG count = 0;
    ExpectNoTransaction(property->GetCount(&count));
    EprpPropError error = E_PROP_ERROR_NONE;
    ExpectInternal(property->SetPropertyDouble(0, &error));
    LONG id = 0;
    EXPECT_EQ(property->GetPropertyID(&id), S_OK);
    EXPECT_EQ(id, 5);
}

TEST_F(CollectionTree, MakesABarePropertyThatIsDetached)
{
    const auto bare = MakeObject<IqorProperty>(CLSID_prpProperty);
    LONG count = 0;
    ExpectNoTransaction(bare->GetCount(&count));
}

TEST_F(CollectionTree, WalksTheChildrenOfOneProperty)
{
    AddAll({{5, -2}, {9, 5}, {7, 5}, {1, 9}});
    InTransaction([&] {
        const auto parent = PropertyOf(collection, 5);
        const auto next = [&](LONG from) {
            NextFound found;
            EXPECT_EQ(parent->GetNextChildProperty(from, &found.id, &found.error, &found.property), S_OK);
            return found;
        };
        EXPECT_EQ(next(-1).id, 9);
        EXPECT_EQ(next(9).id, 7);
        EXPECT_EQ(next(7).id, -1);
        EXPECT_EQ(next(1).id, -1); // of the collection, but no child
        EXPECT_EQ(next(1).error, E_PROP_ERROR_NONE);
        EXPECT_EQ(next(66).error, E_PROP_ERROR_PROP_ID_NOT_FOUND);
        LONG count = 0;
        EXPECT_EQ(parent->GetCount(&count), S_OK);
        EXPECT_EQ(count, 2);
    });
}

TEST_F(CollectionTree, RedirectsTheParentWithoutMovingInTheLists)
{
    AddAll({{5, -2}, {9, 5}});
    InTransaction([&] {
        const auto child = PropertyOf(collection, 9);
        EXPECT_EQ(child->SetParentProperty(777), S_OK);
        LONG parent = 0;
        EXPECT_EQ(child->GetParentProperty(&parent), S_OK);
        EXPECT_EQ(parent, -2);
        LONG count = 0;
        EXPECT_EQ(PropertyOf(collection, 5)->GetCount(&count), S_OK);
        EXPECT_EQ(count, 1);
        EprpPropError error = E_PROP_ERROR_NONE;
        ExpectInternal(collection->RemoveProperty(9, &error));
    });
}

TEST_F(CollectionTree, HandsARedirectedPropertyOutBeforeItRaisesForItsSuccessor)
{
    AddAll({{5, -2}, {9, 5}, {3, -2}});
    InTransaction([&] {
        EXPECT_EQ(PropertyOf(collection, 9)->SetParentProperty(3), S_OK);
        LONG next = 9;
        EprpPropError error = E_PROP_ERROR_NO_ACTUALS;
        CComPtr<IqorProperty> handed;
        ExpectInternal(collection->GetNextPropertyAll(&next, &error, &handed));
        EXPECT_NE(handed.p, nullptr);
        EXPECT_EQ(error, E_PROP_ERROR_NONE);
        // Back under its own parent it is where it should be.
        EXPECT_EQ(PropertyOf(collection, 9)->SetParentProperty(5), S_OK);
        EXPECT_THAT(Walk(), ElementsAre(5, 9, 3));
    });
}

TEST_F(CollectionTree, KeepsAPropertyWhoseNameDoesNotParseAndLosesEventsUntilTheNextAddition)
{
    CComPtr<IqorProperty> broken;
    const auto events = EventsOf([&] {
        EXPECT_EQ(AddTo(collection, {.id = 5,
                                     .nameResID = kBrokenNoteString,
                                     .module = ModuleWithStrings(),
                                     .editFlags = 3,
                                     .visible = VARIANT_FALSE}),
                  kInternalErrorCode);
        broken = PropertyOf(collection, 5);
        LONG flags = 0;
        EXPECT_EQ(broken->GetEditFlags(&flags), S_OK);
        EXPECT_EQ(flags, 3);
        EXPECT_TRUE(FlagOf(broken, &IqorProperty::IsVisible)) << "the steps behind the name were not taken";

        EXPECT_EQ(broken->SetReadOnly(VARIANT_TRUE), S_OK);
        EXPECT_EQ(AddTo(collection, {.id = 6}), S_OK);
        EXPECT_EQ(Remove(6), E_PROP_ERROR_NONE);
    });
    EXPECT_THAT(events, ElementsAre(Added(5), Deleted(6)));
}

TEST_F(CollectionTree, ComparesNamesWithoutRegardToCaseAndGivesTheFirstInWalkOrder)
{
    AddAll({{5, -2}, {9, 5}, {3, -2}});
    InTransaction([&] {
        EXPECT_EQ(PropertyOf(collection, 3)->SetPropertyName(Bstr(OLESTR("Bore"))), S_OK);
        EXPECT_EQ(PropertyOf(collection, 9)->SetPropertyName(Bstr(OLESTR("BORE"))), S_OK);
        EprpPropError error = E_PROP_ERROR_NO_ACTUALS;
        CComPtr<IqorProperty> found;
        EXPECT_EQ(collection->GetPropertyFromName(Bstr(OLESTR("bore")), &error, &found), S_OK);
        LONG id = 0;
        EXPECT_EQ(found->GetPropertyID(&id), S_OK);
        EXPECT_EQ(id, 9);
        EXPECT_EQ(error, E_PROP_ERROR_NONE);

        IqorProperty* untouched = reinterpret_cast<IqorProperty*>(8);
        EXPECT_EQ(collection->GetPropertyFromName(Bstr(OLESTR("slot")), &error, &untouched), S_OK);
        EXPECT_EQ(untouched, reinterpret_cast<IqorProperty*>(8));
        EXPECT_EQ(error, E_PROP_ERROR_NONE);

        CComPtr<IqorProperty> nameless;
        EXPECT_EQ(collection->GetPropertyFromName(nullptr, &error, &nameless), S_OK);
        EXPECT_EQ(nameless->GetPropertyID(&id), S_OK);
        EXPECT_EQ(id, 5);
    });
}

TEST_F(CollectionTree, FoldsAsciiLettersAloneWhenItComparesNames)
{
    AddAll({{5, -2}});
    InTransaction([&] {
        EXPECT_EQ(PropertyOf(collection, 5)
                      ->SetPropertyName(Bstr(OLESTR("Gr\xF6\xDF"
                                                    "e"))),
                  S_OK);
        EprpPropError error = E_PROP_ERROR_NONE;
        CComPtr<IqorProperty> found;
        EXPECT_EQ(collection->GetPropertyFromName(Bstr(OLESTR("GR\xD6\xDF"
                                                              "E")),
                                                  &error, &found),
                  S_OK);
        EXPECT_EQ(found.p, nullptr);
        EXPECT_EQ(collection->GetPropertyFromName(Bstr(OLESTR("gR\xF6\xDF"
                                                              "E")),
                                                  &error, &found),
                  S_OK);
        EXPECT_NE(found.p, nullptr);
    });
}

TEST_F(CollectionTree, RaisesForANameThatDoesNotParseOnTheWayToAnother)
{
    AddAll({{5, -2}});
    InTransaction([&] {
        const auto waiting = PropertyOf(collection, 5);
        EXPECT_EQ(waiting->SetPropertyNameResID(kBrokenNoteString), S_OK); // found in no module yet
        EXPECT_EQ(waiting->SetHResModule(ModuleWithStrings()), S_OK);
        EXPECT_EQ(AddTo(collection, {.id = 6}), S_OK);
        EXPECT_EQ(PropertyOf(collection, 6)->SetPropertyName(Bstr(OLESTR("Bore"))), S_OK);
        EprpPropError error = E_PROP_ERROR_NO_ACTUALS;
        CComPtr<IqorProperty> found;
        ExpectInternal(collection->GetPropertyFromName(Bstr(OLESTR("Bore")), &error, &found));
        EXPECT_EQ(found.p, nullptr);
        EXPECT_EQ(error, E_PROP_ERROR_NONE);
    });
}

TEST_F(CollectionTree, RefusesAdditionsAndRemovalsOfAnyOtherThreadFirstOfAll)
{
    AddAll({{5, -2}});
    ASSERT_EQ(collection->StartTransaction(-1), S_OK);
    std::thread([&] {
        EXPECT_EQ(AddTo(collection, {.id = 6}), kInternalErrorCode);
        EXPECT_EQ(collection->RemoveProperty(5, nullptr), kInternalErrorCode);
    }).join();
    ASSERT_EQ(collection->EndTransaction(VARIANT_FALSE), S_OK);
}

TEST_F(CollectionTree, ReportsEveryNullPointerInTheOrderOfItsTable)
{
    LONG id = 0;
    EprpPropError error = E_PROP_ERROR_NONE;
    CComPtr<IqorProperty> property;
    const auto name = [](const OLECHAR* method) { return Text(OLESTR("CprpPropertyCollection::")).append(method); };
    ExpectNullPointer(collection->GetNextProperty(1, nullptr, nullptr, nullptr), name(OLESTR("GetNextProperty")),
                      OLESTR("pnNextPropID"));
    ExpectNullPointer(collection->GetNextProperty(1, &id, nullptr, nullptr), name(OLESTR("GetNextProperty")),
                      OLESTR("ppIProperty"));
    ExpectNullPointer(collection->GetNextProperty(1, &id, nullptr, &property), name(OLESTR("GetNextProperty")),
                      OLESTR("pePropError"));
    ExpectNullPointer(collection->GetNextPropertyAll(nullptr, nullptr, nullptr), name(OLESTR("GetNextPropertyAll")),
                      OLESTR("pnNextPropID"));
    ExpectNullPointer(collection->GetNextPropertyAll(&id, nullptr, nullptr), name(OLESTR("GetNextPropertyAll")),
                      OLESTR("pePropError"));
    ExpectNullPointer(collection->GetNextPropertyAll(&id, &error, nullptr), name(OLESTR("GetNextPropertyAll")),
                      OLESTR("ppRetVal"));
    ExpectNullPointer(collection->GetProperty(0, nullptr, nullptr), name(OLESTR("GetProperty")), OLESTR("peError"));
    ExpectNullPointer(collection->GetProperty(0, &error, nullptr), name(OLESTR("GetProperty")), OLESTR("ppIProperty"));
    ExpectInvalidId(collection->GetProperty(0, &error, &property));
    ExpectNoTransaction(collection->GetProperty(1, &error, &property));
    ExpectNullPointer(collection->GetCount(E_PROP_ITERATION_ALL, nullptr), name(OLESTR("GetCount")), OLESTR("pnCount"));
    ExpectNullPointer(collection->PropertyExists(1, nullptr), name(OLESTR("PropertyExists")), OLESTR("pbSuccess"));
    ExpectNullPointer(collection->GetPropertyFromName(nullptr, nullptr, nullptr), name(OLESTR("GetPropertyFromName")),
                      OLESTR("PropError"));
    ExpectNullPointer(collection->GetPropertyFromName(nullptr, &error, nullptr), name(OLESTR("GetPropertyFromName")),
                      OLESTR("Property"));
}
