// The file that finds out its own encoding.
#include "frame/lvuStdioFile.h"
#include "tests/support/TestFolder.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

namespace {

using namespace std::string_literals;

constexpr UINT kRead = CStdioFile::modeRead | CStdioFile::typeText;
constexpr UINT kCreate = CStdioFile::modeWrite | CStdioFile::modeCreate | CStdioFile::typeText;
constexpr UINT kAppend = kCreate | CStdioFile::modeNoTruncate;

class SelfTellingFile : public testing::Test {
protected:
    BOOL Open(UINT flags) { return file.Open(name.c_str(), flags, &error); }
    void Put(std::string_view bytes)
    {
        file.Close();
        std::ofstream out(path, std::ios::binary);
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        ASSERT_TRUE(out.good());
    }
    std::string Stored()
    {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    Text Line()
    {
        Text line;
        EXPECT_TRUE(file.ReadString(line));
        return line;
    }

    TestFolder folder;
    const std::filesystem::path path = folder.Path() / "file.txt";
    const Text name = path.generic_string<OLECHAR>();
    CFileException error;
    ClvuStdioFile file;
};

TEST_F(SelfTellingFile, AFileThatBeginsWithTheMarkIsWideTextWhateverTheFlagsSay)
{
    Put("\xFF\xFE"s + "a\0\xAC\x20\n\0b\0"s);
    ASSERT_TRUE(Open(kRead));
    EXPECT_TRUE(file.m_bUnicode);
    EXPECT_EQ(Line(), OLESTR("a\x20AC"));
    EXPECT_EQ(Line(), OLESTR("b"));
    Text none;
    EXPECT_FALSE(file.ReadString(none));
}

TEST_F(SelfTellingFile, AFileWithoutTheMarkIsNarrowTextEvenIfWideWasWanted)
{
    Put("\xE4\r\nsecond");
    file.m_bUnicode = true;
    ASSERT_TRUE(Open(kRead));
    EXPECT_FALSE(file.m_bUnicode);
    EXPECT_EQ(Line(), OLESTR("\x00E4"));
    EXPECT_EQ(Line(), OLESTR("second"));
}

TEST_F(SelfTellingFile, ALongNarrowLineIsOneLine)
{
    Put(std::string(1000, 'x') + "\r\n" + std::string(127, 'y') + "\n");
    ASSERT_TRUE(Open(kRead));
    EXPECT_EQ(Line(), Text(1000, OLESTR('x')));
    EXPECT_EQ(Line(), Text(127, OLESTR('y')));
}

TEST_F(SelfTellingFile, TheReverseMarkAndHalfAMarkAreNoMark)
{
    Put("\xFE\xFF");
    ASSERT_TRUE(Open(kRead));
    EXPECT_FALSE(file.m_bUnicode);
    Put("\xFF");
    ASSERT_TRUE(Open(kRead));
    EXPECT_FALSE(file.m_bUnicode);
    EXPECT_EQ(Line(), OLESTR("\x00FF"));
}

TEST_F(SelfTellingFile, AnEmptyFileTakesTheWideEncodingThatWasChosenAndGetsTheMarkWithItsFirstText)
{
    Put("");
    file.m_bUnicode = true;
    ASSERT_TRUE(Open(CStdioFile::modeWrite | CStdioFile::typeText));
    EXPECT_TRUE(file.m_bUnicode);
    file.WriteString(OLESTR("a"));
    file.WriteString(OLESTR("b\n"));
    file.Close();
    EXPECT_EQ(Stored(), "\xFF\xFE"s + "a\0b\0\n\0"s);
}

TEST_F(SelfTellingFile, AnEmptyFileIsNarrowWhenNothingElseWasChosen)
{
    ASSERT_TRUE(Open(kCreate));
    EXPECT_FALSE(file.m_bUnicode);
    file.WriteString(OLESTR("\x00E4\n"));
    file.Close();
    EXPECT_EQ(Stored(), "\xE4\r\n");
}

TEST_F(SelfTellingFile, AppendingGoesOnInTheEncodingOfTheFile)
{
    Put("\xFF\xFE"s + "a\0"s);
    ASSERT_TRUE(Open(kAppend));
    EXPECT_TRUE(file.m_bUnicode);
    file.SeekToEnd();
    file.WriteString(OLESTR("b"));
    file.Close();
    EXPECT_EQ(Stored(), "\xFF\xFE"s + "a\0b\0"s);

    Put("a");
    file.m_bUnicode = true;
    ASSERT_TRUE(Open(kAppend));
    file.SeekToEnd();
    file.WriteString(OLESTR("b\n"));
    file.Close();
    EXPECT_EQ(Stored(), "ab\r\n");
}

TEST_F(SelfTellingFile, AFileMadeAnewForgetsItsFormerContentAndEncoding)
{
    Put("\xFF\xFE"s + "a\0"s);
    ASSERT_TRUE(Open(kCreate));
    EXPECT_FALSE(file.m_bUnicode);
    file.WriteString(OLESTR("n"));
    file.Close();
    EXPECT_EQ(Stored(), "n");
}

TEST_F(SelfTellingFile, ReadingBeginsAtTheStartAfterTheLook)
{
    Put("abc");
    ASSERT_TRUE(Open(kRead));
    EXPECT_EQ(file.GetPosition(), 0u);
    EXPECT_EQ(Line(), OLESTR("abc"));
}

TEST_F(SelfTellingFile, ReadingAgainFromTheStartSkipsTheMarkAgain)
{
    Put("\xFF\xFE"s + "a\0"s);
    ASSERT_TRUE(Open(kRead));
    EXPECT_EQ(Line(), OLESTR("a"));
    file.SeekToBegin();
    EXPECT_EQ(Line(), OLESTR("a"));
}

TEST_F(SelfTellingFile, AFileThatCantBeOpenedIsNotOpen)
{
    EXPECT_FALSE(Open(kRead));
    EXPECT_FALSE(file.IsOpen());
    EXPECT_EQ(error.m_cause, CFileException::fileNotFound);
    EXPECT_FALSE(file.Open(name.c_str(), kRead));
    const Text folderName = folder.Path().generic_string<OLECHAR>();
    EXPECT_FALSE(file.Open(folderName.c_str(), kAppend, &error));
    EXPECT_FALSE(file.IsOpen());
}

} // namespace
