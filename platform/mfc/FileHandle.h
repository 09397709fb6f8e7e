// An open file of the system and the four things that CStdioFile does with it. Bodies differ by system.
#pragma once

#include "platform/com/Ole.h"

#include <cstdint>

/// How a file is opened and what others may do with it meanwhile.
struct FileRequest {
    bool read = false;
    bool write = false;
    bool create = false;   ///< make it when it is missing; else a missing file is an error
    bool truncate = false; ///< start empty
    bool denyRead = false;
    bool denyWrite = false;
};

/// Owns one open file. Failures are thrown as CFileException.
/// What is denied to others is denied to everybody on Windows, and natively to those who open through this class.
class FileHandle {
public:
    FileHandle() = default;
    /// Natively both separators of a path are taken, and the name is UTF-8 on disk.
    FileHandle(const Text& name, const FileRequest& request);
    ~FileHandle() { Close(); }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    FileHandle(FileHandle&& other) noexcept;
    FileHandle& operator=(FileHandle&& other) noexcept;

    bool IsOpen() const { return m_handle != kClosed; }
    void Close() noexcept;

    /// Fewer bytes than asked for only at the end of the file.
    std::size_t ReadAt(uint64_t offset, void* buffer, std::size_t bytes) const;
    void WriteAt(uint64_t offset, const void* data, std::size_t bytes);
    uint64_t Length() const;

private:
    static constexpr intptr_t kClosed = -1; // the same number for a file descriptor and for a HANDLE
    intptr_t m_handle = kClosed;
    Text m_name;
};
