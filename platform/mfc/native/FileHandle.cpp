// Native body, on POSIX.
#include "platform/mfc/FileHandle.h"

#include "platform/mfc/FileException.h"
#include "platform/system/Utf8.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

CFileException::Cause CauseOf(int error)
{
    switch (error) {
    case ENOENT: return CFileException::fileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP: return CFileException::badPath;
    case EMFILE:
    case ENFILE: return CFileException::tooManyOpenFiles;
    case EACCES:
    case EPERM:
    case EISDIR:
    case EROFS:
    case ETXTBSY: return CFileException::accessDenied;
    case EBADF: return CFileException::invalidFile;
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return CFileException::diskFull;
    case EIO: return CFileException::hardIO;
    default: return CFileException::generic;
    }
}

[[noreturn]] void Throw(const Text& name)
{
    const int error = errno;
    throw CFileException(CauseOf(error), error, name);
}

std::string PathOf(const Text& name)
{
    std::string path = Utf8From(name);
    std::ranges::replace(path, '\\', '/');
    return path;
}

/// A file that is written is opened for reading, too, where that is allowed: only then can it be locked below.
int OpenDescriptor(const std::string& path, const FileRequest& request)
{
    const int flags = O_CLOEXEC | (request.create ? O_CREAT : 0);
    const int descriptor = open(path.c_str(), flags | (request.write ? O_RDWR : O_RDONLY), 0666);
    const bool retry = descriptor < 0 && errno == EACCES && request.write && !request.read;
    return retry ? open(path.c_str(), flags | O_WRONLY, 0666) : descriptor;
}

/// Sharing modes by locks on four bytes far behind any content. Whoever reads, writes, denies reading or denies
/// writing holds that byte's lock together with all others who do; and nobody may read while another denies reading,
/// nor write while another denies writing. The own locks come first and the look at the others second, so that of two
/// who open at the same time never both get through. A file system without locks has no sharing modes.
bool TakeShare(int descriptor, const FileRequest& request)
{
    enum Role { Reads, Writes, DeniesRead, DeniesWrite };
    constexpr off_t kFirstLock = off_t{1} << 62;
    const auto lock = [](Role role, short type) {
        struct flock range {};
        range.l_type = type;
        range.l_whence = SEEK_SET;
        range.l_start = kFirstLock + role;
        range.l_len = 1;
        return range;
    };
    struct {
        bool held;
        Role role;
        Role enemy;
    } const roles[] = {{request.read, Reads, DeniesRead},
                       {request.write, Writes, DeniesWrite},
                       {request.denyRead, DeniesRead, Reads},
                       {request.denyWrite, DeniesWrite, Writes}};
    for (const auto& mine : roles) {
        struct flock range = lock(mine.role, F_RDLCK);
        if (mine.held)
            fcntl(descriptor, F_OFD_SETLK, &range);
    }
    return std::ranges::none_of(roles, [&](const auto& mine) {
        struct flock range = lock(mine.enemy, F_WRLCK);
        return mine.held && fcntl(descriptor, F_OFD_GETLK, &range) == 0 && range.l_type != F_UNLCK;
    });
}

/// Calls a transfer until everything has moved or it moves nothing, and starts an interrupted one again.
template <class Transfer>
std::size_t InSteps(std::size_t bytes, Transfer transfer, const Text& name)
{
    std::size_t done = 0;
    while (done < bytes) {
        const ssize_t step = transfer(done);
        if (step == 0)
            break;
        if (step > 0)
            done += static_cast<std::size_t>(step);
        else if (errno != EINTR)
            Throw(name);
    }
    return done;
}

} // namespace

FileHandle::FileHandle(const Text& name, const FileRequest& request) : m_name(name)
{
    const int descriptor = OpenDescriptor(PathOf(name), request);
    if (descriptor < 0)
        Throw(name);
    FileHandle opened; // closes again when a later step fails
    opened.m_handle = descriptor;
    struct stat facts {};
    if (fstat(descriptor, &facts) != 0)
        Throw(name);
    if (S_ISDIR(facts.st_mode)) {
        errno = EISDIR;
        Throw(name);
    }
    if (!TakeShare(descriptor, request))
        throw CFileException(CFileException::sharingViolation, EWOULDBLOCK, name);
    // Only now: a file that somebody else denies to us keeps its content.
    if (request.truncate && ftruncate(descriptor, 0) != 0)
        Throw(name);
    m_handle = std::exchange(opened.m_handle, kClosed);
}

void FileHandle::Close() noexcept
{
    if (m_handle != kClosed)
        close(static_cast<int>(std::exchange(m_handle, kClosed)));
}

std::size_t FileHandle::ReadAt(uint64_t offset, void* buffer, std::size_t bytes) const
{
    const auto read = [&](std::size_t done) {
        return pread(static_cast<int>(m_handle), static_cast<char*>(buffer) + done, bytes - done,
                     static_cast<off_t>(offset + done));
    };
    return InSteps(bytes, read, m_name);
}

void FileHandle::WriteAt(uint64_t offset, const void* data, std::size_t bytes)
{
    const auto write = [&](std::size_t done) {
        return pwrite(static_cast<int>(m_handle), static_cast<const char*>(data) + done, bytes - done,
                      static_cast<off_t>(offset + done));
    };
    if (InSteps(bytes, write, m_name) != bytes)
        throw CFileException(CFileException::diskFull, ENOSPC, m_name);
}

uint64_t FileHandle::Length() const
{
    struct stat facts {};
    if (fstat(static_cast<int>(m_handle), &facts) != 0)
        Throw(m_name);
    return static_cast<uint64_t>(facts.st_size);
}
