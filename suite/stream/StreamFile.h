// The file behind a file stream: read whole when it is opened, then made to follow the content that the stream holds.
// It writes behind: what Write was not yet called for is in memory only.
#pragma once

#include "LV_prpPropCollection.h"
#include "platform/com/Ole.h"
#include "platform/mfc/FileHandle.h"
#include "suite/ByteBuffer.h"

#include <memory>

class StreamFile {
public:
    /// Opens `name` and reads it into `content`. A missing file is made, unless it is opened for reading only.
    /// @return null with the reason in `error`: OPEN_FILE_READ_ONLY when a file that may not be written is opened for
    ///         writing or one opened for reading is to be truncated; FILE_ACCESS_PERMISSIONS when there is no such
    ///         file, it is no plain file or the system refuses; UNKNOWN_ERROR for an unusable name, a file of
    ///         2 GiB or more, and failures of the medium.
    static std::unique_ptr<StreamFile> Open(TextView name, EStreamOpenOptions options, bool readOnly,
                                            ByteBuffer& content, EStreamError& error);

    bool IsReadOnly() const { return m_readOnly; }

    /// Takes a byte-order mark off `content`, as Open read it, and gives its code page, or -1 when there is none.
    LONG TakeMark(ByteBuffer& content);

    /// Bytes of the content that the file holds.
    std::size_t Written() const { return m_written; }
    /// The content behind the first `size` bytes is no longer what was written.
    void Forget(std::size_t size);
    /// Makes the file hold `content` and hands it to the system. False when the system refuses; a later call tries
    /// again with everything.
    /// @param mark  what opens the file when these are its first bytes; must outlive the file. A file that had
    ///              content before keeps the mark that it had.
    bool Write(ByteView content, ByteView mark);

private:
    bool ReadAll(ByteBuffer& content);
    void WriteAll(ByteView content, ByteView mark);

    Text m_name;
    FileHandle m_file;
    bool m_readOnly = false;
    bool m_rewrite = false;
    bool m_hasContent = false; // so m_mark is settled
    ByteView m_mark;
    uint64_t m_length = 0; // of the file, its mark included
    std::size_t m_written = 0;
};
