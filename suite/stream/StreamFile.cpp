#include "suite/stream/StreamFile.h"

#include "platform/mfc/FileException.h"
#include "suite/CodePages.h"
#include "suite/stream/StreamStorage.h"

#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace {

/// Why a file can't be opened like this, as far as that is known beforehand.
EStreamError Refusal(const fs::file_status& status, bool readOnly)
{
    constexpr fs::perms kAnyWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    if (!fs::exists(status))
        return E_STREAM_ERROR_NONE;
    if (!fs::is_regular_file(status))
        return E_STREAM_ERROR_FILE_ACCESS_PERMISSIONS;
    // The file's own mark counts for everybody, also for an account that the system would let through.
    if (!readOnly && (status.permissions() & kAnyWrite) == fs::perms::none)
        return E_STREAM_ERROR_OPEN_FILE_READ_ONLY;
    return E_STREAM_ERROR_NONE;
}

EStreamError RefusalOf(TextView name, bool readOnly)
{
    if (name.empty() || name.find(OLECHAR{0}) != name.npos)
        return E_STREAM_ERROR_UNKNOWN_ERROR;
    try {
        return Refusal(fs::status(fs::path(name)), readOnly);
    } catch (const std::system_error&) {
        return E_STREAM_ERROR_UNKNOWN_ERROR; // no text that a file name may be, or no answer from the file system
    }
}

FileRequest RequestOf(bool readOnly, bool truncate)
{
    return {.read = true, .write = !readOnly, .create = !readOnly, .truncate = truncate};
}

} // namespace

std::unique_ptr<StreamFile> StreamFile::Open(TextView name, EStreamOpenOptions options, bool readOnly,
                                             ByteBuffer& content, EStreamError& error)
{
    const bool truncate = options == E_STREAM_OPEN_TRUNCATE;
    error = truncate && readOnly ? E_STREAM_ERROR_OPEN_FILE_READ_ONLY : RefusalOf(name, readOnly);
    if (error != E_STREAM_ERROR_NONE)
        return nullptr;

    auto file = std::make_unique<StreamFile>();
    file->m_name = name;
    file->m_readOnly = readOnly;
    try {
        file->m_file = FileHandle(file->m_name, RequestOf(readOnly, truncate));
    } catch (const CFileException&) {
        error = E_STREAM_ERROR_FILE_ACCESS_PERMISSIONS;
        return nullptr;
    }
    if (!file->ReadAll(content)) {
        error = E_STREAM_ERROR_UNKNOWN_ERROR;
        return nullptr;
    }
    return file;
}

bool StreamFile::ReadAll(ByteBuffer& content)
{
    try {
        m_length = m_file.Length();
        if (m_length > StreamStorage::kMaxBytes)
            return false;
        content.Clear(0);
        const auto size = static_cast<std::size_t>(m_length);
        if (size != 0 && m_file.ReadAt(0, content.Extend(size), size) != size)
            return false;
    } catch (const CFileException&) {
        return false;
    }
    m_written = content.Size();
    m_hasContent = m_written != 0;
    return true;
}

LONG StreamFile::TakeMark(ByteBuffer& content)
{
    const LONG codePage = CodePageOfMark(content.View());
    m_mark = ByteOrderMark(codePage);
    content.CutFront(m_mark.size());
    m_written = content.Size();
    return codePage;
}

void StreamFile::Forget(std::size_t size)
{
    if (size < m_written) {
        m_written = size;
        m_rewrite = true;
    }
    if (size == 0)
        m_hasContent = false;
}

bool StreamFile::Write(ByteView content, ByteView mark)
{
    if (m_readOnly || (!m_rewrite && content.size() == m_written))
        return true;
    try {
        WriteAll(content, mark);
    } catch (const CFileException&) {
        m_rewrite = true; // nobody knows how much of it arrived
        return false;
    }
    return true;
}

void StreamFile::WriteAll(ByteView content, ByteView mark)
{
    if (m_rewrite) {
        // A file can be cut only by beginning anew.
        m_file.Close();
        m_file = FileHandle(m_name, RequestOf(false, true));
        m_rewrite = false;
        m_length = 0;
        m_written = 0;
    }
    const auto put = [this](ByteView bytes) {
        m_file.WriteAt(m_length, bytes.data(), bytes.size());
        m_length += bytes.size();
    };
    if (!m_hasContent)
        m_mark = mark;
    if (m_length == 0 && !content.empty())
        put(m_mark);
    put(content.subspan(m_written));
    m_written = content.size();
    m_hasContent = !content.empty();
}
