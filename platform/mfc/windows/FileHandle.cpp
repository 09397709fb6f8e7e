// Windows body, on CreateFileW.
#include "platform/mfc/FileHandle.h"

#include "platform/mfc/FileException.h"

#include <algorithm>
#include <utility>

namespace {

CFileException::Cause CauseOf(DWORD error)
{
    switch (error) {
    case ERROR_FILE_NOT_FOUND: return CFileException::fileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME: return CFileException::badPath;
    case ERROR_TOO_MANY_OPEN_FILES: return CFileException::tooManyOpenFiles;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT: return CFileException::accessDenied;
    case ERROR_INVALID_HANDLE: return CFileException::invalidFile;
    case ERROR_NEGATIVE_SEEK: return CFileException::badSeek;
    case ERROR_SHARING_VIOLATION: return CFileException::sharingViolation;
    case ERROR_LOCK_VIOLATION: return CFileException::lockViolation;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL: return CFileException::diskFull;
    case ERROR_CRC:
    case ERROR_IO_DEVICE: return CFileException::hardIO;
    default: return CFileException::generic;
    }
}

[[noreturn]] void Throw(const Text& name)
{
    const DWORD error = GetLastError();
    throw CFileException(CauseOf(error), static_cast<LONG>(error), name);
}

HANDLE HandleOf(intptr_t handle)
{
    return reinterpret_cast<HANDLE>(handle);
}

OVERLAPPED At(uint64_t offset)
{
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(offset);
    place.OffsetHigh = static_cast<DWORD>(offset >> 32);
    return place;
}

// One call's share of a long transfer.
constexpr std::size_t kStep = 1u << 30;

DWORD Creation(const FileRequest& request)
{
    if (request.create)
        return request.truncate ? CREATE_ALWAYS : OPEN_ALWAYS;
    return request.truncate ? TRUNCATE_EXISTING : OPEN_EXISTING;
}

} // namespace

FileHandle::FileHandle(const Text& name, const FileRequest& request) : m_name(name)
{
    const DWORD access = (request.read ? GENERIC_READ : 0u) | (request.write ? GENERIC_WRITE : 0u);
    const DWORD share = (request.denyRead ? 0u : FILE_SHARE_READ) | (request.denyWrite ? 0u : FILE_SHARE_WRITE);
    const HANDLE file =
        CreateFileW(name.c_str(), access, share, nullptr, Creation(request), FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        Throw(name);
    m_handle = reinterpret_cast<intptr_t>(file);
}

void FileHandle::Close() noexcept
{
    if (m_handle != kClosed)
        CloseHandle(HandleOf(std::exchange(m_handle, kClosed)));
}

std::size_t FileHandle::ReadAt(uint64_t offset, void* buffer, std::size_t bytes) const
{
    std::size_t done = 0;
    while (done < bytes) {
        OVERLAPPED place = At(offset + done);
        DWORD step = 0;
        const DWORD wanted = static_cast<DWORD>(std::min(bytes - done, kStep));
        if (!ReadFile(HandleOf(m_handle), static_cast<char*>(buffer) + done, wanted, &step, &place) &&
            GetLastError() != ERROR_HANDLE_EOF)
            Throw(m_name);
        if (step == 0)
            break;
        done += step;
    }
    return done;
}

void FileHandle::WriteAt(uint64_t offset, const void* data, std::size_t bytes)
{
    std::size_t done = 0;
    while (done < bytes) {
        OVERLAPPED place = At(offset + done);
        DWORD step = 0;
        const DWORD wanted = static_cast<DWORD>(std::min(bytes - done, kStep));
        if (!WriteFile(HandleOf(m_handle), static_cast<const char*>(data) + done, wanted, &step, &place))
            Throw(m_name);
        if (step == 0)
            throw CFileException(CFileException::diskFull, ERROR_DISK_FULL, m_name);
        done += step;
    }
}

uint64_t FileHandle::Length() const
{
    LARGE_INTEGER length{};
    if (!GetFileSizeEx(HandleOf(m_handle), &length))
        Throw(m_name);
    return static_cast<uint64_t>(length.QuadPart);
}
