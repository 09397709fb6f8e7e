#include "frame/lvuStdioFile.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr unsigned char kMark[] = {0xFF, 0xFE};

/// The flags of the first look: what is only to be written must be readable too.
UINT Widened(UINT flags)
{
    return flags & CStdioFile::modeWrite ? (flags & ~UINT{CStdioFile::modeWrite}) | CStdioFile::modeReadWrite : flags;
}

} // namespace

BOOL ClvuStdioFile::Open(const OLECHAR* lpszFileName, UINT nOpenFlags, CFileException* pError)
{
    const bool wasUnicode = m_bUnicode;
    m_bUnicode = false;
    const UINT widened = Widened(nOpenFlags);
    if (!CStdioFile::Open(lpszFileName, widened, pError))
        return FALSE;
    try {
        const ULONGLONG length = GetLength();
        if (length == 0)
            return OpenAs(lpszFileName, nOpenFlags, wasUnicode, pError);
        unsigned char head[std::size(kMark)] = {};
        const bool marked =
            length >= std::size(head) && Read(head, sizeof head) == sizeof head && std::ranges::equal(head, kMark);
        if (marked || widened != nOpenFlags)
            return OpenAs(lpszFileName, nOpenFlags, marked, pError);
        SeekToBegin();
        return TRUE;
    } catch (const CFileException& error) {
        if (pError)
            *pError = error;
        Abort();
        return FALSE;
    }
}

BOOL ClvuStdioFile::OpenAs(const OLECHAR* fileName, UINT flags, bool bUnicode, CFileException* error)
{
    Abort();
    m_bUnicode = bUnicode;
    return CStdioFile::Open(fileName, bUnicode ? (flags & ~UINT{typeText}) | typeBinary : flags, error);
}

void ClvuStdioFile::WriteString(TextView text)
{
    if (m_bUnicode && GetPosition() == 0)
        Write(kMark, sizeof kMark);
    CStdioFile::WriteString(text);
}

BOOL ClvuStdioFile::ReadString(Text& rString)
{
    if (m_bUnicode && GetPosition() == 0)
        Seek(sizeof kMark, begin);
    return CStdioFile::ReadString(rString);
}
