#include "suite/StreamFile.h"

#include "suite/CodePages.h"
#include "suite/StreamStorage.h"

#include <optional>
#include <system_error>

namespace fs = std::filesystem;

namespace {

/// Why a file that exists can't be opened like this, as far as that is known beforehand.
EStreamError Refusal(const fs::file_status& status, bool readOnly)
{
    constexpr fs::perms kAnyWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    if (!fs::is_regular_file(status))
        return E_STREAM_ERROR_FILE_ACCESS_PERMISSIONS;
    // The file's own mark counts for everybody, also for an account that the system would let through.
    if (!readOnly && (status.permissions() & kAnyWrite) == fs::perms::none)
        return E_STREAM_ERROR_OPEN_FILE_READ_ONLY;
    return E_STREAM_ERROR_NONE;
}

/// Nothing when the name is no text that the file system can take.
std::optional<fs::path> PathOf(TextView name)
{
    if (name.empty() || name.find(OLECHAR{0}) != name.npos)
        return {};
    try {
        return fs::path(name);
    } catch (const std::system_error&) {
        return {};
    }
}

} // namespace

std::unique_ptr<StreamFile> StreamFile::Open(TextView name, EStreamOpenOptions options, bool readOnly,
                                             ByteBuffer& content, EStreamError& error)
{
    const bool truncate = options == E_STREAM_OPEN_TRUNCATE;
    if (truncate && readOnly) {
        error = E_STREAM_ERROR_OPEN_FILE_READ_ONLY;
        return nullptr;
    }
    std::optional<fs::path> path = PathOf(name);
    if (!path) {
        error = E_STREAM_ERROR_UNKNOWN_ERROR;
        return nullptr;
    }
    std::error_code ignored;
    const fs::file_status status = fs::status(*path, ignored);
    const bool exists = fs::exists(status);
    error = exists ? Refusal(status, readOnly) : E_STREAM_ERROR_NONE;
    if (error != E_STREAM_ERROR_NONE)
        return nullptr;

    auto file = std::make_unique<StreamFile>();
    file->m_path = std::move(*path);
    file->m_readOnly = readOnly;
    const auto how = readOnly              ? std::ios::in
                     : truncate || !exists ? std::ios::in | std::ios::out | std::ios::trunc
                                           : std::ios::in | std::ios::out;
    if (!file->Reopen(how)) {
        error = E_STREAM_ERROR_FILE_ACCESS_PERMISSIONS;
        return nullptr;
    }
    if (!file->ReadAll(content)) {
        error = E_STREAM_ERROR_UNKNOWN_ERROR;
        return nullptr;
    }
    return file;
}

bool StreamFile::Reopen(std::ios::openmode how)
{
    if (m_file.is_open())
        m_file.close();
    m_file.clear();
    m_file.open(m_path, how | std::ios::binary);
    return m_file.is_open();
}

bool StreamFile::ReadAll(ByteBuffer& content)
{
    m_file.seekg(0, std::ios::end);
    const std::streamoff size = m_file.tellg();
    if (size < 0 || static_cast<std::uintmax_t>(size) > StreamStorage::kMaxBytes)
        return false;
    content.Clear(0);
    m_file.seekg(0);
    if (size > 0)
        m_file.read(reinterpret_cast<char*>(content.Extend(static_cast<std::size_t>(size))), size);
    m_written = content.Size();
    m_empty = content.Size() == 0;
    m_hasContent = !m_empty;
    return m_file.good();
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
    if (m_rewrite) {
        // A file can be cut only by beginning anew.
        if (!Reopen(std::ios::in | std::ios::out | std::ios::trunc))
            return false;
        m_rewrite = false;
        m_empty = true;
        m_written = 0;
    }
    if (!m_hasContent)
        m_mark = mark;
    const auto put = [this](ByteView bytes) {
        m_file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    };
    m_file.clear();
    m_file.seekp(0, std::ios::end);
    if (m_empty && !content.empty())
        put(m_mark);
    put(content.subspan(m_written));
    m_file.flush();
    if (!m_file) {
        m_rewrite = true; // nobody knows how much of it arrived
        return false;
    }
    m_written = content.size();
    m_empty = m_empty && content.empty();
    m_hasContent = !content.empty();
    return true;
}
