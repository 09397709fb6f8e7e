// The support log: its entries, where they go, and that it never fails.
#include "frame/SupportLog.h"
#include "frame/lvuStdioFile.h"
#include "tests/frame/FakeFacts.h"
#include "tests/support/TestFolder.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

namespace fs = std::filesystem;
using namespace std::string_literals;

namespace {

class SupportLog : public testing::Test {
protected:
    SupportLog()
    {
        fs::create_directory(support);
        fs::create_directory(documents);
        facts.documents = NameOf(documents);
        facts.time.tm_hour = 7;
        facts.time.tm_min = 5;
        facts.time.tm_sec = 9;
        facts.time.tm_wday = 5;
        facts.time.tm_mday = 1;
        facts.time.tm_mon = 2;
        facts.time.tm_year = 124;
    }

    static Text NameOf(const fs::path& path)
    {
        fs::path copy = path;
        return copy.make_preferred().string<OLECHAR>();
    }
    static std::string Stored(const fs::path& directory)
    {
        std::ifstream in(directory / "ProductSupportErrorLog.txt", std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    static bool HasLog(const fs::path& directory) { return fs::exists(directory / "ProductSupportErrorLog.txt"); }

    TestFolder folder;
    const fs::path support = folder.Path() / "support";
    const fs::path documents = folder.Path() / "documents";
    FakeFacts facts;
    ScopedSystemFacts scope{facts};
};

TEST_F(SupportLog, AnEntryWithAHeaderNamesProgramVersionAndTime)
{
    facts.Install(OLESTR("Oxbel Plugin"), NameOf(support));
    WriteSupportLog(OLESTR("something failed"), true);
    EXPECT_EQ(Stored(support), "[Host.exe, v1.85.0.021: 07:05:09 Friday, March 01, 2024]\r\nsomething failed\r\n");
    EXPECT_FALSE(HasLog(documents));
}

TEST_F(SupportLog, ATextThatEndsItsOwnLineIsFollowedByABlankOne)
{
    facts.Install(OLESTR("Oxbel Plugin"), NameOf(support));
    WriteSupportLog(OLESTR("one\n"), true);
    EXPECT_TRUE(Stored(support).ends_with("\r\none\r\n\r\n"));
}

TEST_F(SupportLog, AnEntryWithoutAHeaderIsItsText)
{
    facts.Install(OLESTR("Oxbel Plugin"), NameOf(support));
    WriteSupportLog(OLESTR("%s one, "), false);
    WriteSupportLog(OLESTR("two\n"), false);
    EXPECT_EQ(Stored(support), "%s one, two\r\n");
}

TEST_F(SupportLog, AWideLogStaysWide)
{
    facts.Install(OLESTR("Oxbel Plugin"), NameOf(support));
    std::ofstream(support / "ProductSupportErrorLog.txt", std::ios::binary) << "\xFF\xFE"s + "a\0"s;
    WriteSupportLog(OLESTR("\x20AC"), false);
    EXPECT_EQ(Stored(support), "\xFF\xFE"s + "a\0\xAC\x20"s);
}

TEST_F(SupportLog, GoesToTheDocumentsWhenTheSupportDirectoryIsMissing)
{
    facts.Install(OLESTR("Oxbel Plugin"), NameOf(folder.Path() / "missing"));
    WriteSupportLog(OLESTR("entry\n"), false);
    EXPECT_EQ(Stored(documents), "entry\r\n");
}

TEST_F(SupportLog, GoesToTheDocumentsWhileSomebodyElseWritesTheSupportFile)
{
    facts.Install(OLESTR("Oxbel Plugin"), NameOf(support));
    ClvuStdioFile other;
    const Text name = NameOf(support / "ProductSupportErrorLog.txt");
    ASSERT_TRUE(other.Open(name.c_str(), CStdioFile::modeWrite | CStdioFile::modeCreate | CStdioFile::shareDenyWrite));
    WriteSupportLog(OLESTR("entry"), false);
    EXPECT_EQ(Stored(documents), "entry");
    other.Close();
    EXPECT_EQ(Stored(support), "");
}

TEST_F(SupportLog, TheDocumentsMayBeWrittenByTwoAtATime)
{
    facts.hasRegistry = false;
    ClvuStdioFile other;
    const Text name = NameOf(documents / "ProductSupportErrorLog.txt");
    ASSERT_TRUE(other.Open(name.c_str(), CStdioFile::modeWrite | CStdioFile::modeCreate | CStdioFile::shareDenyNone));
    WriteSupportLog(OLESTR("entry"), false);
    EXPECT_EQ(Stored(documents), "entry");
}

TEST_F(SupportLog, WithoutARegistryNothingButTheDocumentsIsTried)
{
    facts.hasRegistry = false;
    WriteSupportLog(OLESTR("entry"), false);
    EXPECT_EQ(Stored(documents), "entry");
}

TEST_F(SupportLog, WithNoDirectoryAtAllTheEntryIsDropped)
{
    facts.hasRegistry = false;
    facts.documents.reset();
    WriteSupportLog(OLESTR("entry"), true);
    EXPECT_FALSE(HasLog(documents));
    EXPECT_FALSE(HasLog(support));

    facts.documents = NameOf(folder.Path() / "missing");
    facts.Install(OLESTR("Oxbel Plugin"), NameOf(folder.Path() / "missing too"));
    WriteSupportLog(OLESTR("entry"), true);
    EXPECT_FALSE(fs::exists(folder.Path() / "missing"));
}

TEST_F(SupportLog, ALongEntryIsWrittenWhole)
{
    facts.Install(OLESTR("Oxbel Plugin"), NameOf(support));
    WriteSupportLog(Text(100'000, OLESTR('x')), true);
    EXPECT_GT(Stored(support).size(), 100'000u);
}

} // namespace
