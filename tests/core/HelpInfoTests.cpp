// Help texts and pictures through the help object and through a collection that it is attached to.
#include "tests/core/ModelFixture.h"
#include "tests/support/TestStrings.h"

namespace {

class HelpInfo : public testing::Test {
protected:
    CComPtr<IprpHelpInfo> help = MakeObject<IprpHelpInfo>(CLSID_prpHelpInfo);
};

/// What a lookup of a resource gives.
struct FoundResource {
    LONG_PTR module = 77;
    LONG id = 78;
    VARIANT_BOOL success = 79;
};

void ExpectResource(const FoundResource& found, LONG_PTR module, LONG id)
{
    EXPECT_EQ(found.success, VARIANT_TRUE);
    EXPECT_EQ(found.module, module);
    EXPECT_EQ(found.id, id);
}

} // namespace

TEST_F(HelpInfo, ReportsNullPointersInOrder)
{
    FoundResource found;
    CComBSTR text;
    ExpectNullPointer(help->GetHelpString(1, 1, nullptr, nullptr), OLESTR("CprpHelpInfo::GetHelpString"),
                      OLESTR("pbstrResString"));
    ExpectNullPointer(help->GetHelpString(1, 1, &text, nullptr), OLESTR("CprpHelpInfo::GetHelpString"),
                      OLESTR("pbSuccess"));
    CComBSTR used = Bstr(OLESTR("used"));
    ExpectBstrNotNull(help->GetHelpString(1, 1, &used, &found.success), OLESTR("CprpHelpInfo::GetHelpString"),
                      OLESTR("pbstrResString"));
    ExpectNullPointer(help->GetPictureResource(1, 1, nullptr, nullptr, nullptr),
                      OLESTR("CprpHelpInfo::GetPictureResource"), OLESTR("phModule"));
    ExpectNullPointer(help->GetPictureResource(1, 1, &found.module, nullptr, nullptr),
                      OLESTR("CprpHelpInfo::GetPictureResource"), OLESTR("pnResID"));
    ExpectNullPointer(help->GetHelpStringResource(1, 1, &found.module, &found.id, nullptr),
                      OLESTR("CprpHelpInfo::GetHelpStringResource"), OLESTR("pbSuccess"));
}

TEST_F(HelpInfo, LeavesTheOutputsOfAResourceThatItDoesNotHave)
{
    FoundResource found;
    EXPECT_EQ(help->GetPictureResource(1, 1, &found.module, &found.id, &found.success), S_OK);
    EXPECT_EQ(found.success, VARIANT_FALSE);
    EXPECT_EQ(found.module, 77);
    EXPECT_EQ(found.id, 78);
}

TEST_F(HelpInfo, KeepsPicturesAndStringResourcesApart)
{
    EXPECT_EQ(help->AddPictureResource(0, 0, 5, 1, 2), S_OK);
    EXPECT_EQ(help->AddHelpStringResource(0, 0, 6, 3, 4), S_OK);
    FoundResource picture;
    EXPECT_EQ(help->GetPictureResource(9, 5, &picture.module, &picture.id, &picture.success), S_OK);
    ExpectResource(picture, 1, 2);
    FoundResource string;
    EXPECT_EQ(help->GetHelpStringResource(9, 6, &string.module, &string.id, &string.success), S_OK);
    ExpectResource(string, 3, 4);
    EXPECT_EQ(help->GetHelpStringResource(9, 5, &string.module, &string.id, &string.success), S_OK);
    EXPECT_EQ(string.success, VARIANT_FALSE);
    EXPECT_EQ(help->GetPictureResource(9, 6, &picture.module, &picture.id, &picture.success), S_OK);
    EXPECT_EQ(picture.success, VARIANT_FALSE);
}

TEST_F(HelpInfo, AnswersForPropertiesWithoutPicturesOfTheirOwnFromPropertyZero)
{
    EXPECT_EQ(help->AddPictureResource(0, 0, 0, 1, 2), S_OK);
    FoundResource found;
    EXPECT_EQ(help->GetPictureResource(9, 12345, &found.module, &found.id, &found.success), S_OK);
    ExpectResource(found, 1, 2);
}

TEST_F(HelpInfo, GivesTextsAndTellsANullEntryFromAnEmptyOne)
{
    EXPECT_EQ(help->AddHelpString(1, 2, Bstr(OLESTR("text"))), S_OK);
    EXPECT_EQ(help->AddHelpString(1, 3, Bstr({})), S_OK);
    EXPECT_EQ(help->AddHelpString(1, 4, nullptr), S_OK);
    VARIANT_BOOL success = 7;
    CComBSTR text;
    EXPECT_EQ(help->GetHelpString(1, 2, &text, &success), S_OK);
    EXPECT_EQ(success, VARIANT_TRUE);
    EXPECT_EQ(text.View(), OLESTR("text"));
    CComBSTR empty;
    EXPECT_EQ(help->GetHelpString(1, 3, &empty, &success), S_OK);
    EXPECT_EQ(success, VARIANT_TRUE);
    EXPECT_NE(empty.m_str, nullptr);
    CComBSTR null;
    success = 7;
    EXPECT_EQ(help->GetHelpString(1, 4, &null, &success), S_OK);
    EXPECT_EQ(success, VARIANT_TRUE);
    EXPECT_EQ(null.m_str, nullptr);
    EXPECT_EQ(help->GetHelpString(1, 5, &null, &success), S_OK);
    EXPECT_EQ(success, VARIANT_FALSE);
    EXPECT_EQ(null.m_str, nullptr);
}

TEST_F(HelpInfo, AnswersInAnUnknownStateFromTheWildcardState)
{
    EXPECT_EQ(help->AddHelpString(-1, 2, Bstr(OLESTR("any state"))), S_OK);
    VARIANT_BOOL success = 7;
    CComBSTR text;
    EXPECT_EQ(help->GetHelpString(99, 2, &text, &success), S_OK);
    EXPECT_EQ(success, VARIANT_TRUE);
    EXPECT_EQ(text.View(), OLESTR("any state"));
}

namespace {

class HelpOnCollection : public ModelTest {
protected:
    CComPtr<IprpHelpInfo> help = MakeObject<IprpHelpInfo>(CLSID_prpHelpInfo);

    void SetUp() override
    {
        EXPECT_EQ(collection->AttachHelpInfo(help), S_OK);
        EXPECT_EQ(collection->SetState(3), S_OK);
        Add({.id = 1, .module = ModuleWithStrings()});
        Add({.id = 2});
    }
    FoundResource Picture(LONG id)
    {
        FoundResource found;
        InTransaction(
            [&] { EXPECT_EQ(collection->GetPictureResource(id, &found.id, &found.module, &found.success), S_OK); });
        return found;
    }
    struct FoundString {
        LONG id = 78;
        std::optional<Text> text;
        VARIANT_BOOL success = 79;
    };
    FoundString String(LONG id)
    {
        FoundString found;
        InTransaction([&] {
            CComBSTR text;
            EXPECT_EQ(collection->GetHelpStringResource(id, &found.id, &text, &found.success), S_OK);
            if (text.m_str)
                found.text = Text(text.View());
        });
        return found;
    }
};

} // namespace

TEST_F(HelpOnCollection, FillsAMissingModuleFromThePropertyThenFromTheCollection)
{
    EXPECT_EQ(help->AddPictureResource(-1, 0, 0, 0, 42), S_OK);
    ExpectResource(Picture(1), ModuleWithStrings(), 42);
    ExpectResource(Picture(2), 0, 42);
    InTransaction([&] { EXPECT_EQ(collection->SetDefaultResourceInstance(4711), S_OK); });
    ExpectResource(Picture(2), 4711, 42);
    ExpectResource(Picture(1), ModuleWithStrings(), 42);
}

TEST_F(HelpOnCollection, KeepsTheModuleThatThePictureCameWith)
{
    EXPECT_EQ(help->AddPictureResource(-1, 0, 0, 815, 42), S_OK);
    ExpectResource(Picture(1), 815, 42);
    ExpectResource(Picture(99), 0, 42); // none for an unknown property
}

TEST_F(HelpOnCollection, GivesATextAndElseTheStringOfAResource)
{
    EXPECT_EQ(help->AddHelpString(3, 1, Bstr(OLESTR("literal"))), S_OK);
    EXPECT_EQ(help->AddHelpStringResource(-1, 0, 2, ModuleWithStrings(), kHelpString), S_OK);
    const FoundString literal = String(1);
    EXPECT_EQ(literal.success, VARIANT_TRUE);
    EXPECT_EQ(literal.text, OLESTR("literal"));
    EXPECT_EQ(literal.id, 78);
    const FoundString resource = String(2);
    EXPECT_EQ(resource.success, VARIANT_TRUE);
    EXPECT_EQ(resource.text, OLESTR("How to measure a bore"));
    EXPECT_EQ(resource.id, kHelpString);
}

TEST_F(HelpOnCollection, SucceedsWithoutATextWhereTheStringCannotBeLoaded)
{
    EXPECT_EQ(help->AddHelpStringResource(-1, 0, 2, ModuleWithStrings(), kMissingString), S_OK);
    const FoundString found = String(2);
    EXPECT_EQ(found.success, VARIANT_TRUE);
    EXPECT_EQ(found.id, kMissingString);
    EXPECT_EQ(found.text, std::nullopt);
}

TEST_F(HelpOnCollection, IsHandedOutAsTheObjectThatWasAttached)
{
    CComPtr<IprpHelpInfo> found;
    EXPECT_EQ(collection->GetHelpInfo(&found), S_OK);
    EXPECT_EQ(found.p, help.p);
}
