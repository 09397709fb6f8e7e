// CStdioFile: the framework's buffered file of lines, under its well-known names and flag values. The bytes of a file
// are the same in both worlds.
#pragma once

#include "platform/mfc/FileException.h"
#include "platform/mfc/FileHandle.h"

#include <string>
#include <string_view>

/// Text files keep their lines apart by CR LF and give them as LF; their text is in the ANSI code page, and a Ctrl+Z
/// ends what can be read. Binary files take bytes as they are, and WriteString and ReadString take 16-bit units there.
/// One thread at a time. Failures other than those of Open are thrown as CFileException.
class CStdioFile {
public:
    enum OpenFlags : UINT {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        shareCompat = 0x0000, ///< the same as shareExclusive
        shareExclusive = 0x0010,
        shareDenyWrite = 0x0020,
        shareDenyRead = 0x0030,
        shareDenyNone = 0x0040,
        modeCreate = 0x1000,     ///< makes the file, and empties it unless modeNoTruncate stands beside it
        modeNoTruncate = 0x2000, ///< with modeCreate only: content is kept, and every write goes to the end
        typeText = 0x4000,       ///< also when neither type is given
        typeBinary = 0x8000
    };
    enum SeekPosition : UINT { begin, current, end };

    CStdioFile() = default;
    CStdioFile(const CStdioFile&) = delete;
    CStdioFile& operator=(const CStdioFile&) = delete;
    /// Closes; what can't be written then is lost.
    virtual ~CStdioFile();

    /// A file opened by modeWrite alone must exist, and every write goes to its end.
    /// @param pError  receives the reason of a failure; may be null.
    /// @return FALSE, with the file not open, on failure.
    virtual BOOL Open(const OLECHAR* lpszFileName, UINT nOpenFlags, CFileException* pError = nullptr);
    /// Does nothing on a file that is not open. The file is closed even when its last bytes can't be written.
    virtual void Close();
    /// Closes without a failure: what can't be written is lost.
    void Abort() noexcept;
    bool IsOpen() const { return m_file.IsOpen(); }

    /// Bytes read, less than asked for only at the end.
    virtual UINT Read(void* lpBuf, UINT nCount);
    virtual void Write(const void* lpBuf, UINT nCount);
    virtual void Flush();

    /// @param nFrom  one of SeekPosition.
    /// @return the new position from the beginning. Behind the end is allowed, ahead of the beginning is not.
    virtual ULONGLONG Seek(LONGLONG lOff, UINT nFrom);
    void SeekToBegin() { Seek(0, begin); }
    ULONGLONG SeekToEnd() { return Seek(0, end); }
    /// Bytes of the file ahead of the place where the next byte is read or written.
    virtual ULONGLONG GetPosition() const { return m_nPosition; }
    virtual ULONGLONG GetLength() const;

    virtual void WriteString(TextView text);
    /// Reads up to a line feed, which is left out, or to the end.
    /// @return FALSE when nothing at all was left; an empty line gives TRUE.
    virtual BOOL ReadString(Text& rString);

    const Text& GetFilePath() const { return m_strFileName; }

private:
    /// Bytes of the file, read ahead.
    struct Ahead {
        std::string bytes;
        uint64_t start = 0;
    };

    bool IsText() const { return !(m_nOpenFlags & typeBinary); }
    void WriteBytes(std::string_view bytes);
    /// Next byte of the file without a translation, or -1 at the end. The position moves past it.
    int NextRawByte();
    /// Next byte as a reader of the file's type sees it, or -1 at the end.
    int NextByte();
    bool ReadNarrowLine(Text& line);
    bool ReadWideLine(Text& line);

    FileHandle m_file;
    Text m_strFileName;
    UINT m_nOpenFlags = 0;
    bool m_bAppends = false;
    uint64_t m_nPosition = 0;
    std::string m_pending;        // written but not yet in the file
    uint64_t m_nPendingStart = 0; // where the pending bytes go, unless the file appends
    Ahead m_ahead;
};
