#include "platform/mfc/StdioFile.h"
#include "tests/platform/TempFile.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using File = CStdioFile;

constexpr UINT kNewText = File::modeCreate | File::modeWrite | File::typeText;
constexpr UINT kNewBinary = File::modeCreate | File::modeWrite | File::typeBinary;
constexpr UINT kReadText = File::modeRead | File::shareDenyNone | File::typeText;
constexpr UINT kReadBinary = File::modeRead | File::shareDenyNone | File::typeBinary;

std::vector<Text> Lines(const TempFile& temp, UINT flags)
{
    File file;
    EXPECT_TRUE(file.Open(temp.Name().c_str(), flags));
    std::vector<Text> lines;
    for (Text line; file.ReadString(line);)
        lines.push_back(line);
    return lines;
}

std::string Units(TextView text)
{
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(OLECHAR)};
}

TEST(StdioFile, EndsItsLinesWithBothCharactersOnDisk)
{
    const TempFile temp;
    File file;
    ASSERT_TRUE(file.Open(temp.Name().c_str(), kNewText));
    file.WriteString(OLESTR("one\ntwo\n"));
    file.Write("three\n", 6);
    file.Close();
    EXPECT_EQ(temp.Bytes(), "one\r\ntwo\r\nthree\r\n");
}

TEST(StdioFile, GivesItsLinesWithoutTheirEnds)
{
    const TempFile temp("one\r\ntwo\n\r\nlast");
    EXPECT_EQ(Lines(temp, kReadText), (std::vector<Text>{OLESTR("one"), OLESTR("two"), OLESTR(""), OLESTR("last")}));
}

TEST(StdioFile, KeepsACarriageReturnThatEndsNoLine)
{
    const TempFile temp("a\rb\r\r\nc\r");
    EXPECT_EQ(Lines(temp, kReadText), (std::vector<Text>{OLESTR("a\rb\r"), OLESTR("c\r")}));
}

TEST(StdioFile, EndsATextAtControlZ)
{
    const TempFile temp("one\r\ntw\x1Ao");
    EXPECT_EQ(Lines(temp, kReadText), (std::vector<Text>{OLESTR("one"), OLESTR("tw")}));
}

TEST(StdioFile, ReadsLinesLongerThanAnyBlockAcrossItsBorders)
{
    const std::string longLine(4095, 'x');
    const TempFile temp(longLine + "\r\n" + std::string(10000, 'y') + "\r\n");
    const std::vector<Text> lines = Lines(temp, kReadText);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0], Text(4095, OLESTR('x'))) << "the line end lies on both sides of the border";
    EXPECT_EQ(lines[1], Text(10000, OLESTR('y')));
}

TEST(StdioFile, TakesUnitsAsTheyAreWhenBinary)
{
    const TempFile temp;
    File file;
    ASSERT_TRUE(file.Open(temp.Name().c_str(), kNewBinary));
    file.WriteString(OLESTR("\u2300 5\nnext"));
    file.Close();
    EXPECT_EQ(temp.Bytes(), Units(OLESTR("\u2300 5\nnext")));
    EXPECT_EQ(Lines(temp, kReadBinary), (std::vector<Text>{OLESTR("\u2300 5"), OLESTR("next")}));
}

TEST(StdioFile, PassesOverHalfAUnitAtTheEnd)
{
    const TempFile temp(Units(OLESTR("ab")) + "c");
    EXPECT_EQ(Lines(temp, kReadBinary), std::vector<Text>{OLESTR("ab")});
}

TEST(StdioFile, SubstitutesWhatTheCodePageLacks)
{
    const TempFile temp;
    File file;
    ASSERT_TRUE(file.Open(temp.Name().c_str(), kNewText));
    file.WriteString(OLESTR("\u0E01"));
    file.Close();
    EXPECT_EQ(temp.Bytes(), "?");
}

TEST(StdioFile, StartsEmptyWhenItIsCreatedAnew)
{
    const TempFile temp("old content");
    File file;
    ASSERT_TRUE(file.Open(temp.Name().c_str(), kNewText));
    EXPECT_EQ(file.GetLength(), 0u);
    file.WriteString(OLESTR("new"));
    file.Close();
    EXPECT_EQ(temp.Bytes(), "new");
}

TEST(StdioFile, KeepsItsContentAndAppendsWithoutTruncation)
{
    const TempFile temp("old ");
    File file;
    ASSERT_TRUE(file.Open(temp.Name().c_str(), kNewText | File::modeNoTruncate));
    EXPECT_EQ(file.GetPosition(), 0u);
    file.WriteString(OLESTR("new"));
    EXPECT_EQ(file.GetPosition(), 7u);
    file.SeekToBegin();
    file.WriteString(OLESTR("er"));
    file.Close();
    EXPECT_EQ(temp.Bytes(), "old newer");
}

TEST(StdioFile, MustExistUnlessItIsCreated)
{
    const TempFile temp;
    File file;
    CFileException error;
    EXPECT_FALSE(file.Open(temp.Name().c_str(), kReadText, &error));
    EXPECT_EQ(error.m_cause, CFileException::fileNotFound);
    EXPECT_NE(error.m_lOsError, 0);
    EXPECT_EQ(error.m_strFileName, temp.Name());
    EXPECT_FALSE(file.IsOpen());
    EXPECT_FALSE(file.Open(temp.Name().c_str(), File::modeWrite));
    EXPECT_FALSE(temp.Exists());
}

TEST(StdioFile, IsNotAFolderAndNotInOneThatIsMissing)
{
    const TempFile temp("file");
    File file;
    EXPECT_FALSE(file.Open((temp.Name() + OLESTR("\\inner")).c_str(), kNewText));
    EXPECT_FALSE(file.Open((temp.Name() + OLESTR(".missing\\inner")).c_str(), kNewText));
    EXPECT_FALSE(file.Open(OLESTR("/"), kReadText));
}

TEST(StdioFile, IsReadAndWrittenAtItsPosition)
{
    const TempFile temp("0123456789");
    File file;
    ASSERT_TRUE(file.Open(temp.Name().c_str(), File::modeReadWrite | File::typeBinary));
    EXPECT_EQ(file.Seek(4, File::begin), 4u);
    file.Write("ab", 2);
    char next = 0;
    EXPECT_EQ(file.Read(&next, 1), 1u);
    EXPECT_EQ(next, '6');
    EXPECT_EQ(file.Seek(-2, File::end), 8u);
    EXPECT_EQ(file.Seek(-1, File::current), 7u);
    file.Write("c", 1);
    EXPECT_EQ(file.GetPosition(), 8u);
    file.Close();
    EXPECT_EQ(temp.Bytes(), "0123ab6c89");
}

TEST(StdioFile, TellsPositionsInBytesOfTheFile)
{
    const TempFile temp("one\r\ntwo\r\n");
    File file;
    ASSERT_TRUE(file.Open(temp.Name().c_str(), kReadText));
    Text line;
    EXPECT_TRUE(file.ReadString(line));
    EXPECT_EQ(file.GetPosition(), 5u);
    EXPECT_EQ(file.SeekToEnd(), 10u);
    EXPECT_FALSE(file.ReadString(line));
    file.SeekToBegin();
    EXPECT_TRUE(file.ReadString(line));
    EXPECT_EQ(line, OLESTR("one"));
}

TEST(StdioFile, CountsWhatItHasNotWrittenYet)
{
    const TempFile temp;
    File file;
    ASSERT_TRUE(file.Open(temp.Name().c_str(), kNewText));
    file.WriteString(OLESTR("a\n"));
    EXPECT_EQ(file.GetLength(), 3u);
    EXPECT_EQ(file.GetPosition(), 3u);
}

TEST(StdioFile, DoesNotSeekAheadOfItsBeginning)
{
    const TempFile temp("abc");
    File file;
    ASSERT_TRUE(file.Open(temp.Name().c_str(), kReadBinary));
    EXPECT_THROW(file.Seek(-4, File::end), CFileException);
    try {
        file.Seek(-1, File::begin);
        FAIL();
    } catch (const CFileException& error) {
        EXPECT_EQ(error.m_cause, CFileException::badSeek);
    }
}

TEST(StdioFile, ThrowsWhenItIsOpenForReadingOnly)
{
    const TempFile temp("abc");
    File file;
    ASSERT_TRUE(file.Open(temp.Name().c_str(), kReadText));
    file.WriteString(OLESTR("x"));
    EXPECT_THROW(file.Close(), CFileException);
    EXPECT_FALSE(file.IsOpen());
    EXPECT_EQ(temp.Bytes(), "abc");
}

TEST(StdioFile, MayBeClosedTwiceAndOpenedAgain)
{
    const TempFile temp;
    File file;
    file.Close();
    ASSERT_TRUE(file.Open(temp.Name().c_str(), kNewText));
    file.WriteString(OLESTR("first"));
    ASSERT_TRUE(file.Open(temp.Name().c_str(), kReadText));
    Text line;
    EXPECT_TRUE(file.ReadString(line));
    EXPECT_EQ(line, OLESTR("first"));
    file.Close();
    file.Close();
}

TEST(StdioFile, WritesWhatIsPendingWhenItIsDestroyed)
{
    const TempFile temp;
    {
        File file;
        ASSERT_TRUE(file.Open(temp.Name().c_str(), kNewText));
        file.WriteString(OLESTR("kept"));
    }
    EXPECT_EQ(temp.Bytes(), "kept");
}

TEST(StdioFile, WritesMoreThanABlock)
{
    const TempFile temp;
    File file;
    ASSERT_TRUE(file.Open(temp.Name().c_str(), kNewText));
    std::string expected;
    for (int i = 0; i < 3000; ++i) {
        file.WriteString(OLESTR("line\n"));
        expected += "line\r\n";
    }
    file.Close();
    EXPECT_EQ(temp.Bytes(), expected);
}

TEST(StdioFile, HasANameOfAnyCharacters)
{
    const TempFile temp;
    const Text name = temp.Name() + OLESTR("_\u00E4\u0416");
    File file;
    ASSERT_TRUE(file.Open(name.c_str(), kNewText));
    EXPECT_EQ(file.GetFilePath(), name);
    file.Close();
    EXPECT_TRUE(file.Open(name.c_str(), kReadText));
    file.Close();
    std::filesystem::remove(std::filesystem::u8path(Utf8From(name)));
}

TEST(StdioFile, LetsTwoIntoOneFileOnlyWhenNeitherDeniesTheOther)
{
    constexpr UINT R = File::modeRead;
    constexpr UINT W = File::modeWrite;
    constexpr UINT RW = File::modeReadWrite;
    struct {
        UINT first;
        UINT second;
        bool together;
    } const cases[] = {
        {R | File::shareDenyNone, R | File::shareDenyNone, true},
        {W | File::shareDenyNone, W | File::shareDenyNone, true},
        {R | File::shareDenyWrite, R | File::shareDenyWrite, true},
        {R | File::shareDenyWrite, W | File::shareDenyNone, false},
        {W | File::shareDenyNone, R | File::shareDenyWrite, false},
        {W | File::shareDenyWrite, W | File::shareDenyWrite, false},
        {W | File::shareDenyWrite, R | File::shareDenyNone, true},
        {W | File::shareDenyWrite, R | File::shareDenyWrite, false},
        {W | File::shareDenyRead, R | File::shareDenyNone, false},
        {W | File::shareDenyRead, W | File::shareDenyRead, true},
        {RW | File::shareDenyNone, RW | File::shareDenyWrite, false},
        {R | File::shareExclusive, R | File::shareDenyNone, false},
        {R | File::shareDenyNone, R | File::shareCompat, false},
    };
    const TempFile temp("shared");
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << std::hex << "flags " << c.first << " and " << c.second);
        File first;
        File second;
        CFileException error;
        EXPECT_TRUE(first.Open(temp.Name().c_str(), c.first));
        EXPECT_EQ(second.Open(temp.Name().c_str(), c.second, &error) != FALSE, c.together);
        EXPECT_EQ(error.m_cause, c.together ? CFileException::none : CFileException::sharingViolation);
        first.Close();
        EXPECT_TRUE(second.Open(temp.Name().c_str(), c.second)) << "nobody else is left";
    }
}

TEST(StdioFile, LeavesTheContentOfAFileThatIsDeniedToIt)
{
    const TempFile temp("precious");
    File holder;
    ASSERT_TRUE(holder.Open(temp.Name().c_str(), File::modeRead | File::shareDenyWrite));
    File intruder;
    EXPECT_FALSE(intruder.Open(temp.Name().c_str(), kNewText | File::shareDenyNone));
    holder.Close();
    EXPECT_EQ(temp.Bytes(), "precious");
}

} // namespace
