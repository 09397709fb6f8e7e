#include "tools/lvprop/XmlDocument.h"
#include "tools/lvprop/ToolError.h"

#include <gmock/gmock.h>

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;
using testing::StartsWith;

namespace {

std::string RefusalOf(const std::string& xml)
{
    try {
        ParseXmlDocument("a.xml", xml);
    } catch (const ToolError& error) {
        EXPECT_EQ(error.status, ExitStatus::WrongUse);
        return error.what();
    }
    return "accepted";
}

std::string Nested(size_t levels)
{
    std::string xml;
    for (size_t i = 0; i < levels; ++i)
        xml += "<a>";
    for (size_t i = 0; i < levels; ++i)
        xml += "</a>";
    return xml;
}

/// Nine entities, each ten times the one before: a billion letters.
constexpr const char* kEntityBomb = "<?xml version=\"1.0\"?>\n"
                                    "<!DOCTYPE a [\n"
                                    " <!ENTITY b \"ha\">\n"
                                    " <!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;\">\n"
                                    " <!ENTITY d \"&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;\">\n"
                                    "]>\n"
                                    "<a>&d;</a>";

} // namespace

TEST(XmlDocument, KeepsNamesWithoutPrefixTextAttributesAndLines)
{
    const XmlElement root = ParseXmlDocument("a.xml", "<q:doc xmlns:q='urn:q' id='7'>\n <q:x>1 2</q:x>\n</q:doc>");
    EXPECT_EQ(root.name, "doc");
    EXPECT_EQ(*root.Attribute("id"), "7");
    ASSERT_TRUE(root.Child("x"));
    EXPECT_EQ(root.Child("x")->text, "1 2");
    EXPECT_EQ(root.Child("x")->line, 2u);
    EXPECT_EQ(root.text, "") << "white space alone is no text";
}

TEST(XmlDocument, JoinsTextAroundCommentsCharactersAndCData)
{
    EXPECT_EQ(ParseXmlDocument("a.xml", "<a>1 <!-- two -->&#51;<![CDATA[ 4]]></a>").text, "1 3 4");
}

TEST(XmlDocument, RefusesADocumentTypeAndWithItEveryEntity)
{
    EXPECT_THAT(RefusalOf(kEntityBomb), AllOf(StartsWith("a.xml:2:"), HasSubstr("document type")));
}

TEST(XmlDocument, RefusesNestingPastItsLimitHoweverDeep)
{
    EXPECT_EQ(RefusalOf(Nested(kMaxXmlDepth)), "accepted");
    EXPECT_THAT(RefusalOf(Nested(kMaxXmlDepth + 1)), HasSubstr("nested deeper than 128 levels"));
    EXPECT_THAT(RefusalOf(Nested(100000)), HasSubstr("nested deeper than 128 levels"));
}

TEST(XmlDocument, RefusesACutDocumentWithItsLine)
{
    EXPECT_THAT(RefusalOf("<a>\n<b>"), AllOf(StartsWith("a.xml:2:"), HasSubstr("not well-formed XML")));
    EXPECT_THAT(RefusalOf(""), HasSubstr("not well-formed XML"));
}

TEST(XmlDocument, CountsWhatNobodyReadByParentAndName)
{
    const XmlElement root = ParseXmlDocument(
        "a.xml", "<doc><one/><list n='2'><item id='1'/><item id='2'/></list><two size='3'/><two/></doc>");
    root.read = true;
    root.Child("two");
    EXPECT_THAT(CountUnread(root),
                ElementsAre(Pair("doc/one", 1), Pair("doc/two", 1), Pair("list/item", 2), Pair("two/@size", 1)));
}
