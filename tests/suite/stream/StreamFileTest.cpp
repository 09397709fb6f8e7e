// File streams: what stands in the file, what is read from it, what can go wrong.
#include "tests/suite/stream/StreamFixture.h"
#include "tests/support/TestFolder.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class FileStream : public testing::Test, public NewStreamUser {
protected:
    ~FileStream() override { stream.Release(); }

    static Text NameOf(const fs::path& file) { return file.generic_string<OLECHAR>(); }

    EStreamError Open(EStreamMode mode, EStreamOpenOptions options = E_STREAM_OPEN_APPEND,
                      VARIANT_BOOL readOnly = VARIANT_FALSE)
    {
        return OpenNamed(NameOf(path), mode, options, readOnly);
    }
    EStreamError OpenNamed(TextView name, EStreamMode mode = E_STREAM_MODE_BINARY,
                           EStreamOpenOptions options = E_STREAM_OPEN_APPEND, VARIANT_BOOL readOnly = VARIANT_FALSE)
    {
        EStreamError error = E_STREAM_ERROR_UNKNOWN_ERROR;
        EXPECT_EQ(stream->OpenFile(CComBSTR(name), mode, options, readOnly, &error), S_OK);
        EXPECT_EQ(LastError(), error);
        return error;
    }
    void Close() { EXPECT_EQ(stream->CloseFile(), S_OK); }

    void Put(std::string_view bytes)
    {
        std::ofstream file(path, std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        ASSERT_TRUE(file.good());
    }
    std::string Stored()
    {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    TestFolder ownFolder;
    const fs::path folder = ownFolder.Path();
    fs::path path = folder / "content.dat";
};

using namespace std::string_literals;

TEST_F(FileStream, WhatIsWrittenStandsInTheFileOnceItIsClosed)
{
    ASSERT_EQ(Open(E_STREAM_MODE_BINARY), E_STREAM_ERROR_NONE);
    EXPECT_EQ(Type(), E_STREAM_TYPE_FILE);
    EXPECT_EQ(Mode(), E_STREAM_MODE_BINARY);
    Write({1, 2});
    WriteString(OLESTR("x"));
    Close();

    EXPECT_EQ(Stored(), "\1\2\2\0\0\0x\0"s);
    EXPECT_EQ(Type(), E_STREAM_TYPE_MEMORY);
    EXPECT_EQ(Size(), 0);
    EXPECT_EQ(Items(), 0);
    EXPECT_EQ(Mode(), E_STREAM_MODE_BINARY);
}

TEST_F(FileStream, TheLastReleaseCompletesTheFile)
{
    ASSERT_EQ(Open(E_STREAM_MODE_BINARY), E_STREAM_ERROR_NONE);
    Write({7});
    stream.Release();
    EXPECT_EQ(Stored(), "\7");
}

TEST_F(FileStream, AppendKeepsTheContentAndReadsFromItsStart)
{
    Put("old");
    ASSERT_EQ(Open(E_STREAM_MODE_BINARY, E_STREAM_OPEN_APPEND), E_STREAM_ERROR_NONE);
    EXPECT_EQ(Items(), 1);
    EXPECT_THAT(Read(2), ElementsAre('o', 'l'));
    Write({'!'});
    EXPECT_THAT(Read(9), ElementsAre('d', '!'));
    Close();
    EXPECT_EQ(Stored(), "old!");
}

TEST_F(FileStream, TruncateEmptiesTheFileAtOnce)
{
    Put("old");
    ASSERT_EQ(Open(E_STREAM_MODE_BINARY, E_STREAM_OPEN_TRUNCATE), E_STREAM_ERROR_NONE);
    EXPECT_EQ(Stored(), "");
    EXPECT_EQ(Items(), 0);
    Write({'n'});
    Close();
    EXPECT_EQ(Stored(), "n");
}

TEST_F(FileStream, MuchContentReachesTheFileBeforeItIsClosed)
{
    ASSERT_EQ(Open(E_STREAM_MODE_BINARY), E_STREAM_ERROR_NONE);
    Write(Bytes(200'000, 5));
    EXPECT_EQ(Stored().size(), 200'000u);
    Write({6});
    EXPECT_EQ(Stored().size(), 200'000u);
    Close();
    EXPECT_EQ(Stored().size(), 200'001u);
}

TEST_F(FileStream, CutClearedAndReplacedContentIsWhatTheFileHolds)
{
    Put("0123456789");
    ASSERT_EQ(Open(E_STREAM_MODE_BINARY), E_STREAM_ERROR_NONE);
    Seek(4);
    EXPECT_EQ(stream->Truncate(), S_OK);
    Write({'x'});
    Close();
    EXPECT_EQ(Stored(), "0123x");

    ASSERT_EQ(Open(E_STREAM_MODE_BINARY), E_STREAM_ERROR_NONE);
    Clear();
    Write({'y'});
    Close();
    EXPECT_EQ(Stored(), "y");

    ASSERT_EQ(Open(E_STREAM_MODE_BINARY), E_STREAM_ERROR_NONE);
    EXPECT_EQ(Load({'a', 'b'}), E_STREAM_ERROR_NONE);
    Close();
    EXPECT_EQ(Stored(), "ab");

    ASSERT_EQ(Open(E_STREAM_MODE_BINARY), E_STREAM_ERROR_NONE);
    Clear();
    Close();
    EXPECT_EQ(Stored(), "");
}

TEST_F(FileStream, AMemoryStreamLosesItsContentToTheFile)
{
    Put("file");
    Write({1, 2, 3});
    Read(3);
    ASSERT_EQ(Open(E_STREAM_MODE_BINARY), E_STREAM_ERROR_NONE);
    EXPECT_EQ(Position(), 0);
    EXPECT_EQ(Size(), 4);
}

TEST_F(FileStream, OpeningAnotherFileCompletesTheFirst)
{
    ASSERT_EQ(Open(E_STREAM_MODE_BINARY), E_STREAM_ERROR_NONE);
    Write({'1'});
    const fs::path first = std::exchange(path, folder / "second.dat");
    ASSERT_EQ(Open(E_STREAM_MODE_BINARY), E_STREAM_ERROR_NONE);
    Write({'2'});
    Close();
    EXPECT_EQ(Stored(), "2");
    path = first;
    EXPECT_EQ(Stored(), "1");
}

TEST_F(FileStream, TheSameFileMayBeOpenedAgain)
{
    ASSERT_EQ(Open(E_STREAM_MODE_BINARY), E_STREAM_ERROR_NONE);
    Write({'1'});
    ASSERT_EQ(Open(E_STREAM_MODE_BINARY), E_STREAM_ERROR_NONE);
    Write({'2'});
    Close();
    EXPECT_EQ(Stored(), "12");
}

TEST_F(FileStream, DirectWritingIntoAFileIsWrittenAtOnce)
{
    ASSERT_EQ(Open(E_STREAM_MODE_BINARY), E_STREAM_ERROR_NONE);
    CComPtr<IqorStreamDirect> direct;
    ASSERT_EQ(stream.QueryInterface(&direct), S_OK);
    const unsigned char bytes[] = {1, 2};
    EXPECT_EQ(direct->AppendItems(bytes, 2, 2), S_OK);
    Close();
    EXPECT_EQ(Stored(), "\1\2");
}

// ---- Text files ----

TEST_F(FileStream, ANewTextFileOpensWithTheMarkOfItsCodePage)
{
    const struct {
        LONG codePage;
        std::string stored;
    } cases[] = {
        {1200, "\xFF\xFE\xE4\0\r\0\n\0"s}, {65001, "\xEF\xBB\xBF\xC3\xA4\r\n"}, {1252, "\xE4\r\n"}, {0, "\xE4\r\n"}};
    for (const auto& [codePage, stored] : cases) {
        SetCodePage(codePage);
        ASSERT_EQ(Open(E_STREAM_MODE_TEXT, E_STREAM_OPEN_TRUNCATE), E_STREAM_ERROR_NONE);
        WriteString(OLESTR("\x00E4"));
        EXPECT_EQ(Seek(0), E_STREAM_ERROR_NONE);
        EXPECT_EQ(ReadString(), Line(OLESTR("\x00E4")));
        Close();
        EXPECT_EQ(Stored(), stored) << codePage;
    }
}

TEST_F(FileStream, ACodePageChosenAfterOpeningStillDecidesTheMarkOfAnEmptyFile)
{
    ASSERT_EQ(Open(E_STREAM_MODE_TEXT), E_STREAM_ERROR_NONE);
    SetCodePage(65001);
    WriteString(OLESTR("a"), VARIANT_FALSE);
    Close();
    EXPECT_EQ(Stored(), "\xEF\xBB\xBF"
                        "a");
}

TEST_F(FileStream, AMarkTellsTheCodePageAndIsNoContent)
{
    Put("\xFF\xFE"s + "h\0i\0\r\0\n\0"s);
    SetCodePage(1252);
    ASSERT_EQ(Open(E_STREAM_MODE_TEXT), E_STREAM_ERROR_NONE);
    EXPECT_EQ(CodePage(), 1200);
    EXPECT_EQ(Size(), 8);
    EXPECT_EQ(ReadString(), Line(OLESTR("hi")));
    WriteString(OLESTR("!"));
    Close();
    EXPECT_EQ(Stored(), "\xFF\xFE"s + "h\0i\0\r\0\n\0!\0\r\0\n\0"s);

    Put("\xEF\xBB\xBF\xC3\xA4");
    ASSERT_EQ(Open(E_STREAM_MODE_TEXT), E_STREAM_ERROR_NONE);
    EXPECT_EQ(CodePage(), 65001);
    EXPECT_EQ(ReadString(), Line(OLESTR("\x00E4")));
}

TEST_F(FileStream, AMarkedFileKeepsItsMarkWhenItIsCut)
{
    Put("\xEF\xBB\xBF"
        "abc");
    ASSERT_EQ(Open(E_STREAM_MODE_TEXT), E_STREAM_ERROR_NONE);
    Seek(1);
    EXPECT_EQ(stream->Truncate(), S_OK);
    Close();
    EXPECT_EQ(Stored(), "\xEF\xBB\xBF"
                        "a");
}

TEST_F(FileStream, AnUnmarkedFileIsNarrowAndStaysUnmarked)
{
    Put("abc\r\n");
    ASSERT_EQ(Open(E_STREAM_MODE_TEXT), E_STREAM_ERROR_NONE);
    EXPECT_EQ(CodePage(), 0);
    EXPECT_EQ(ReadString(), Line(OLESTR("abc")));
    Seek(2);
    EXPECT_EQ(stream->Truncate(), S_OK);
    WriteString(OLESTR("d"));
    Close();
    EXPECT_EQ(Stored(), "abd\r\n");
}

TEST_F(FileStream, AnUnmarkedFileIsReadInANarrowCodePageOfTheCallersChoice)
{
    Put("\xC3\xA4");
    SetCodePage(65001);
    ASSERT_EQ(Open(E_STREAM_MODE_TEXT), E_STREAM_ERROR_NONE);
    EXPECT_EQ(CodePage(), 65001);
    EXPECT_EQ(ReadString(), Line(OLESTR("\x00E4")));
    WriteString(OLESTR("\x00E4"), VARIANT_FALSE);
    Close();
    EXPECT_EQ(Stored(), "\xC3\xA4\xC3\xA4");
}

TEST_F(FileStream, AFileWithNothingButAMarkIsEmptyAndMarked)
{
    Put("\xFF\xFE");
    ASSERT_EQ(Open(E_STREAM_MODE_TEXT), E_STREAM_ERROR_NONE);
    EXPECT_EQ(Size(), 0);
    EXPECT_EQ(Items(), 0);
    WriteString(OLESTR("a"), VARIANT_FALSE);
    Close();
    EXPECT_EQ(Stored(), "\xFF\xFE"s + "a\0"s);
}

TEST_F(FileStream, AnEmptyTextFileStaysEmptyWhenNothingIsWritten)
{
    ASSERT_EQ(Open(E_STREAM_MODE_TEXT), E_STREAM_ERROR_NONE);
    Close();
    EXPECT_EQ(Stored(), "");
}

TEST_F(FileStream, ABinaryFileHasNoMark)
{
    Put("\xFF\xFE"
        "a");
    ASSERT_EQ(Open(E_STREAM_MODE_BINARY), E_STREAM_ERROR_NONE);
    EXPECT_EQ(Size(), 3);
    EXPECT_EQ(CodePage(), 1200);
}

TEST_F(FileStream, NamesMayHoldAnyCharacter)
{
    path = folder / fs::path(Text(OLESTR("Pr\x00FC"
                                         "fplan \x0394 \xD83D\xDE00.txt")));
    ASSERT_EQ(Open(E_STREAM_MODE_BINARY), E_STREAM_ERROR_NONE);
    Write({1});
    Close();
    EXPECT_TRUE(fs::exists(path));
    EXPECT_EQ(Stored(), "\1");
}

// ---- Refusals ----

TEST_F(FileStream, AFileOpenedForReadingIsReadAndNeverWritten)
{
    Put("old");
    ASSERT_EQ(Open(E_STREAM_MODE_BINARY, E_STREAM_OPEN_APPEND, VARIANT_TRUE), E_STREAM_ERROR_NONE);
    EXPECT_EQ(ReadOnly(), VARIANT_TRUE);
    ExpectRefusal(stream->WriteString(nullptr, VARIANT_TRUE), OLESTR("The stream is read-only and can't be changed."));
    ExpectRefusal(stream->SetReadOnly(VARIANT_FALSE), OLESTR("The file of the stream was opened for reading only."));
    EXPECT_THAT(Read(9), ElementsAre('o', 'l', 'd'));
    Close();
    EXPECT_EQ(Stored(), "old");
    EXPECT_EQ(ReadOnly(), VARIANT_FALSE);
    Write({1});
}

TEST_F(FileStream, AFileForReadingThatIsToBeEmptiedIsAContradiction)
{
    Put("old");
    EXPECT_EQ(Open(E_STREAM_MODE_BINARY, E_STREAM_OPEN_TRUNCATE, VARIANT_TRUE), E_STREAM_ERROR_OPEN_FILE_READ_ONLY);
    EXPECT_EQ(Stored(), "old");
}

TEST_F(FileStream, AWriteProtectedFileOpensForReadingOnly)
{
    Put("old");
    constexpr fs::perms kWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    fs::permissions(path, kWrite, fs::perm_options::remove);
    EXPECT_EQ(Open(E_STREAM_MODE_BINARY), E_STREAM_ERROR_OPEN_FILE_READ_ONLY);
    EXPECT_EQ(Open(E_STREAM_MODE_BINARY, E_STREAM_OPEN_TRUNCATE), E_STREAM_ERROR_OPEN_FILE_READ_ONLY);
    EXPECT_EQ(Open(E_STREAM_MODE_BINARY, E_STREAM_OPEN_APPEND, VARIANT_TRUE), E_STREAM_ERROR_NONE);
    EXPECT_THAT(Read(9), ElementsAre('o', 'l', 'd'));
    Close();
    fs::permissions(path, kWrite, fs::perm_options::add);
}

TEST_F(FileStream, WhatIsNoPlainFileOrNotThereCantBeOpened)
{
    EXPECT_EQ(OpenNamed(NameOf(folder)), E_STREAM_ERROR_FILE_ACCESS_PERMISSIONS);
    EXPECT_EQ(OpenNamed(NameOf(folder / "none" / "file")), E_STREAM_ERROR_FILE_ACCESS_PERMISSIONS);
    EXPECT_EQ(OpenNamed(NameOf(path), E_STREAM_MODE_BINARY, E_STREAM_OPEN_APPEND, VARIANT_TRUE),
              E_STREAM_ERROR_FILE_ACCESS_PERMISSIONS);
    EXPECT_FALSE(fs::exists(path));
}

TEST_F(FileStream, ANameThatIsNoneIsAnUnknownError)
{
    EXPECT_EQ(OpenNamed(OLESTR("")), E_STREAM_ERROR_UNKNOWN_ERROR);
    EXPECT_EQ(OpenNamed(NameOf(path) + Text(1, 0) + OLESTR("x")), E_STREAM_ERROR_UNKNOWN_ERROR);
    EStreamError error = E_STREAM_ERROR_NONE;
    EXPECT_EQ(stream->OpenFile(nullptr, E_STREAM_MODE_TEXT, E_STREAM_OPEN_APPEND, VARIANT_FALSE, &error), S_OK);
    EXPECT_EQ(error, E_STREAM_ERROR_UNKNOWN_ERROR);
}

TEST_F(FileStream, AFailureToOpenLeavesTheStreamAsItWas)
{
    Put("old");
    ASSERT_EQ(Open(E_STREAM_MODE_BINARY), E_STREAM_ERROR_NONE);
    Write({'!'});
    Read(2);
    EXPECT_EQ(OpenNamed(NameOf(folder), E_STREAM_MODE_TEXT), E_STREAM_ERROR_FILE_ACCESS_PERMISSIONS);
    EXPECT_EQ(Type(), E_STREAM_TYPE_FILE);
    EXPECT_EQ(Mode(), E_STREAM_MODE_BINARY);
    EXPECT_EQ(Position(), 2);
    Close();
    EXPECT_EQ(Stored(), "old!");
}

TEST_F(FileStream, ClosingAMemoryStreamChangesNothing)
{
    Write({1});
    Close();
    EXPECT_EQ(Size(), 1);
    EXPECT_EQ(Items(), 1);
}

} // namespace
