// The body of CStdioFile. Bytes are read ahead or kept back, never both at a time: whoever reads, seeks or asks for
// the length first has what was kept back written.
#include "platform/mfc/StdioFile.h"

#include "platform/system/AnsiText.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace {

constexpr std::size_t kBlock = 4096;
constexpr char kEndOfText = 0x1A;

FileRequest RequestOf(UINT flags)
{
    FileRequest request;
    const UINT mode = flags & (CStdioFile::modeWrite | CStdioFile::modeReadWrite);
    request.read = mode != CStdioFile::modeWrite;
    request.write = mode != CStdioFile::modeRead;
    request.create = flags & CStdioFile::modeCreate;
    request.truncate = request.create && !(flags & CStdioFile::modeNoTruncate);
    const UINT share = flags & 0x70;
    request.denyRead = share != CStdioFile::shareDenyWrite && share != CStdioFile::shareDenyNone;
    request.denyWrite = share != CStdioFile::shareDenyRead && share != CStdioFile::shareDenyNone;
    return request;
}

bool AppendsAlways(UINT flags)
{
    if (flags & CStdioFile::modeCreate)
        return flags & CStdioFile::modeNoTruncate;
    return flags & CStdioFile::modeWrite;
}

std::string WithCarriageReturns(std::string_view text)
{
    std::string out;
    out.reserve(text.size() + text.size() / 16);
    for (const char c : text) {
        if (c == '\n')
            out += '\r';
        out += c;
    }
    return out;
}

} // namespace

CStdioFile::~CStdioFile()
{
    Abort();
}

BOOL CStdioFile::Open(const OLECHAR* lpszFileName, UINT nOpenFlags, CFileException* pError)
{
    Abort();
    try {
        m_file = FileHandle(lpszFileName, RequestOf(nOpenFlags));
    } catch (const CFileException& error) {
        if (pError)
            *pError = error;
        return FALSE;
    }
    m_strFileName = lpszFileName;
    m_nOpenFlags = nOpenFlags;
    m_bAppends = AppendsAlways(nOpenFlags);
    m_nPosition = 0;
    m_ahead = {};
    return TRUE;
}

void CStdioFile::Close()
{
    // Out of the object first, so that it is closed whatever happens to the last bytes.
    try {
        Flush();
    } catch (const CFileException&) {
        m_pending.clear();
        m_file.Close();
        throw;
    }
    m_file.Close();
}

void CStdioFile::Abort() noexcept
{
    try {
        CStdioFile::Close();
    } catch (const CFileException&) {
        // On purpose: nobody is left to be told.
    }
}

UINT CStdioFile::Read(void* lpBuf, UINT nCount)
{
    if (!IsText()) {
        Flush();
        const auto read = static_cast<UINT>(m_file.ReadAt(m_nPosition, lpBuf, nCount));
        m_nPosition += read;
        return read;
    }
    char* const out = static_cast<char*>(lpBuf);
    UINT done = 0;
    for (int next; done < nCount && (next = NextByte()) >= 0; ++done)
        out[done] = static_cast<char>(next);
    return done;
}

void CStdioFile::Write(const void* lpBuf, UINT nCount)
{
    const std::string_view bytes(static_cast<const char*>(lpBuf), nCount);
    IsText() ? WriteBytes(WithCarriageReturns(bytes)) : WriteBytes(bytes);
}

void CStdioFile::WriteBytes(std::string_view bytes)
{
    m_ahead = {};
    if (m_pending.empty())
        m_nPendingStart = m_bAppends ? m_file.Length() : m_nPosition;
    m_pending += bytes;
    m_nPosition = m_nPendingStart + m_pending.size();
    if (m_pending.size() >= kBlock)
        Flush();
}

void CStdioFile::Flush()
{
    if (m_pending.empty())
        return;
    const std::string bytes = std::exchange(m_pending, {});
    const uint64_t start = m_bAppends ? m_file.Length() : m_nPendingStart; // others may have appended meanwhile
    m_file.WriteAt(start, bytes.data(), bytes.size());
    m_nPosition = start + bytes.size();
}

ULONGLONG CStdioFile::Seek(LONGLONG lOff, UINT nFrom)
{
    Flush();
    const uint64_t base = nFrom == begin ? 0 : nFrom == current ? m_nPosition : m_file.Length();
    if (lOff < 0 && base < uint64_t{0} - static_cast<uint64_t>(lOff))
        throw CFileException(CFileException::badSeek, 0, m_strFileName);
    m_nPosition = base + static_cast<uint64_t>(lOff);
    return m_nPosition;
}

ULONGLONG CStdioFile::GetLength() const
{
    const uint64_t written = m_file.Length();
    return m_pending.empty() || m_bAppends ? written + m_pending.size()
                                           : std::max(written, m_nPendingStart + m_pending.size());
}

void CStdioFile::WriteString(TextView text)
{
    if (IsText())
        WriteBytes(WithCarriageReturns(AnsiFrom(text)));
    else
        WriteBytes({reinterpret_cast<const char*>(text.data()), text.size() * sizeof(OLECHAR)});
}

BOOL CStdioFile::ReadString(Text& rString)
{
    rString.clear();
    return IsText() ? ReadNarrowLine(rString) : ReadWideLine(rString);
}

int CStdioFile::NextRawByte()
{
    Flush();
    if (m_nPosition < m_ahead.start || m_nPosition >= m_ahead.start + m_ahead.bytes.size()) {
        m_ahead.bytes.resize(kBlock);
        m_ahead.start = m_nPosition;
        m_ahead.bytes.resize(m_file.ReadAt(m_nPosition, m_ahead.bytes.data(), kBlock));
        if (m_ahead.bytes.empty())
            return -1;
    }
    return static_cast<unsigned char>(m_ahead.bytes[static_cast<std::size_t>(m_nPosition++ - m_ahead.start)]);
}

int CStdioFile::NextByte()
{
    const int next = NextRawByte();
    if (!IsText() || (next != '\r' && next != kEndOfText))
        return next;
    if (next == kEndOfText) {
        --m_nPosition; // stays the next one, so that the end stays the end
        return -1;
    }
    const int behind = NextRawByte();
    if (behind >= 0 && behind != '\n')
        --m_nPosition;
    return behind == '\n' ? '\n' : '\r';
}

bool CStdioFile::ReadNarrowLine(Text& line)
{
    std::string bytes;
    int next;
    while ((next = NextByte()) >= 0 && next != '\n')
        bytes += static_cast<char>(next);
    line = TextFromAnsi(bytes);
    return next == '\n' || !bytes.empty();
}

/// Half a unit at the end of the file is passed over.
bool CStdioFile::ReadWideLine(Text& line)
{
    for (;;) {
        const int low = NextRawByte();
        const int high = low < 0 ? -1 : NextRawByte();
        if (high < 0)
            return !line.empty();
        const auto unit = static_cast<OLECHAR>(low | high << 8);
        if (unit == OLESTR('\n'))
            return true;
        line += unit;
    }
}
