// A file that can't be written, played by a process-wide limit on file sizes.
#include "tests/suite/stream/StreamFixture.h"
#include "tests/support/TestFolder.h"

#include <csignal>
#include <filesystem>
#include <sys/resource.h>

namespace fs = std::filesystem;

namespace {

/// Lets no file of this process grow beyond `bytes` while it lives.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        m_handlerBefore = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handlerBefore);
    }

private:
    rlimit m_before{};
    void (*m_handlerBefore)(int) = SIG_DFL;
};

TEST(StreamOnAFullDisk, TheCloseThatFailsKeepsTheContentForAnotherTry)
{
    const TestFolder folder;
    const fs::path path = folder.Path() / "content.dat";
    NewStreamUser user;
    EStreamError error = E_STREAM_ERROR_UNKNOWN_ERROR;
    const CComBSTR name{TextView(path.generic_string<OLECHAR>())};
    ASSERT_EQ(user.stream->OpenFile(name, E_STREAM_MODE_BINARY, E_STREAM_OPEN_TRUNCATE, VARIANT_FALSE, &error), S_OK);
    ASSERT_EQ(error, E_STREAM_ERROR_NONE);
    user.Write(Bytes(40'000, 1));
    {
        const FileSizeLimit limit(10'000);
        ExpectRefusal(user.stream->CloseFile(), OLESTR("The file of the stream can't be written."));
        EXPECT_EQ(user.LastError(), E_STREAM_ERROR_FILE_ACCESS_PERMISSIONS);
        EXPECT_EQ(user.Type(), E_STREAM_TYPE_FILE);
        EXPECT_EQ(user.Size(), 40'000);
    }
    EXPECT_EQ(user.stream->CloseFile(), S_OK);
    EXPECT_EQ(fs::file_size(path), 40'000u);
}

} // namespace
