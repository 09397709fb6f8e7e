#include "suite/stream/qorStream.h"

#include "frame/MethodFrame.h"
#include "suite/CodePages.h"
#include "suite/stream/DeferredText.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace {

const Origin kOrigin{CLSID_qorStream, IID_IqorStream};

constexpr const OLECHAR* kReadOnlyText = OLESTR("The stream is read-only and can't be changed.");
constexpr const OLECHAR* kReadOnlyFileText = OLESTR("The file of the stream was opened for reading only.");
constexpr const OLECHAR* kTooLargeText = OLESTR("The stream can't hold more than %d bytes.");
constexpr const OLECHAR* kFileFailedText = OLESTR("The file of the stream can't be written.");
constexpr const OLECHAR* kUnknownValueText =
    OLESTR("The parameter '%s' passed to the function '%s' has the unknown value %d.");
constexpr const OLECHAR* kOutsideText = OLESTR("The position %d lies outside the stream, which has %d bytes.");
constexpr const OLECHAR* kAppendFailedText = OLESTR("The stream to append can't be read.");

/// Content that a file stream gathers before it writes to the file.
constexpr std::size_t kWriteBehindBytes = 65536;

ByteView BytesOf(const void* data, LONG count)
{
    return {static_cast<const unsigned char*>(data), static_cast<std::size_t>(count)};
}

BSTR NewByteBstr(ByteView bytes)
{
    BSTR text = SysAllocStringByteLen(reinterpret_cast<const char*>(bytes.data()), static_cast<UINT>(bytes.size()));
    if (!text)
        throw ComError{E_OUTOFMEMORY, {}};
    return text;
}

VARIANT_BOOL OutBool(bool value)
{
    return value ? VARIANT_TRUE : VARIANT_FALSE;
}

/// Raises when `value` is none of `known`. It may be any number, so it is looked at as one.
template <class Value, std::size_t Count>
void RequireOneOf(const Checks& require, const Value& value, const Value (&known)[Count], const OLECHAR* parameter,
                  CallSite at = CallSite::current())
{
    static_assert(sizeof value == sizeof(LONG));
    LONG number = 0;
    std::memcpy(&number, &value, sizeof number);
    if (std::ranges::find(known, number, [](Value one) { return static_cast<LONG>(one); }) == std::end(known))
        ThrowFormatted(at, kUnknownValueText, parameter, require.method, number);
}

/// Whether the places of the texts ascend within the bytes and their values lie within the values.
bool LieWithin(std::span<const SqorDeferredText> texts, std::size_t bytes, std::size_t values)
{
    std::size_t from = 0;
    for (const SqorDeferredText& text : texts) {
        if (text.Offset < from || text.Offset > bytes || text.Value > values || text.ValueBytes > values - text.Value)
            return false;
        from = text.Offset;
    }
    return true;
}

constexpr EStreamMode kModes[] = {E_STREAM_MODE_NOT_SET, E_STREAM_MODE_TEXT, E_STREAM_MODE_BINARY};
constexpr EStreamOrigin kOrigins[] = {E_STREAM_ORIGIN_START, E_STREAM_ORIGIN_CURRENT, E_STREAM_ORIGIN_END};
constexpr EStreamOpenOptions kOpenOptions[] = {E_STREAM_OPEN_APPEND, E_STREAM_OPEN_TRUNCATE};

/// The frame of the direct methods, without the entry cost: they are called for every change of a setting.
template <class Body>
HRESULT Direct(Body&& body, CallSite here = CallSite::current()) noexcept
{
    try {
        return body();
    } catch (...) {
        return ReportCurrentException(kOrigin, here);
    }
}

} // namespace

void CqorStream::FinalRelease()
{
    if (m_pFile)
        m_pFile->Write(m_content.Bytes(), FileMark());
}

// ---- What the methods share ----

void CqorStream::RequireWritable(CallSite at)
{
    if (m_bReadOnly) [[unlikely]] {
        Note(E_STREAM_ERROR_OPEN_FILE_READ_ONLY);
        ThrowFormatted(at, kReadOnlyText);
    }
}

template <class Change>
void CqorStream::ChangeContent(Change&& change, CallSite at)
{
    RequireWritable(at);
    Note(E_STREAM_ERROR_UNKNOWN_ERROR); // stands if the change fails
    try {
        change();
    } catch (const std::length_error&) {
        ThrowFormatted(at, kTooLargeText, static_cast<LONG>(StreamStorage::kMaxBytes));
    }
    Note(E_STREAM_ERROR_NONE);
    if (m_pFile) [[unlikely]]
        WriteBehind(at);
}

template <class Fill>
EStreamError CqorStream::ReplaceContent(Fill&& fill)
{
    if (m_bReadOnly)
        return Note(E_STREAM_ERROR_OPEN_FILE_READ_ONLY);
    ByteBuffer bytes;
    const EStreamError error = fill(bytes);
    if (error != E_STREAM_ERROR_NONE)
        return Note(error);
    ChangeContent([&] {
        m_content.Load(std::move(bytes));
        if (m_pFile)
            m_pFile->Forget(0);
    });
    return E_STREAM_ERROR_NONE;
}

ByteView CqorStream::FileMark() const
{
    return m_content.Mode() == E_STREAM_MODE_TEXT ? ByteOrderMark(m_content.CodePage()) : ByteView{};
}

void CqorStream::WriteFile(CallSite at)
{
    if (m_pFile && !m_pFile->Write(m_content.Bytes(), FileMark())) {
        Note(E_STREAM_ERROR_FILE_ACCESS_PERMISSIONS);
        ThrowFormatted(at, kFileFailedText);
    }
}

void CqorStream::WriteBehind(CallSite at)
{
    if (m_content.Bytes().size() - m_pFile->Written() >= kWriteBehindBytes)
        WriteFile(at);
}

// ---- Content ----

STDMETHODIMP CqorStream::Write(void* pData, LONG nBytesToWrite)
{
    return InFrame(kOrigin, OLESTR("CqorStream::Write"), [&](const Checks& require) {
        require.Pointer(pData, OLESTR("pData"));
        require.NotNegative(nBytesToWrite);
        ChangeContent([&] { m_content.Append(BytesOf(pData, nBytesToWrite)); });
    });
}

STDMETHODIMP CqorStream::Read(void* pBuffer, LONG nBytesToRead, LONG* pnBytesRead, EStreamError* peStreamError)
{
    return InFrame(kOrigin, OLESTR("CqorStream::Read"), [&](const Checks& require) {
        require.Pointer(pBuffer, OLESTR("pBuffer"));
        require.Pointer(pnBytesRead, OLESTR("pnBytesRead"));
        require.Pointer(peStreamError, OLESTR("peStreamError"));
        require.NotNegative(nBytesToRead);
        std::size_t read = 0;
        *peStreamError = Note(m_content.Read(pBuffer, static_cast<std::size_t>(nBytesToRead), read));
        *pnBytesRead = static_cast<LONG>(read);
    });
}

STDMETHODIMP CqorStream::Seek(LONG nOffset, EStreamOrigin eOrigin, EStreamError* peStreamError)
{
    return InFrame(kOrigin, OLESTR("CqorStream::Seek"), [&](const Checks& require) {
        require.Pointer(peStreamError, OLESTR("peStreamError"));
        RequireOneOf(require, eOrigin, kOrigins, OLESTR("eOrigin"));
        *peStreamError = Note(m_content.Seek(nOffset, eOrigin));
    });
}

STDMETHODIMP CqorStream::WriteString(BSTR bstrString, VARIANT_BOOL bNewLine)
{
    return InFrame(kOrigin, OLESTR("CqorStream::WriteString"), [&](const Checks&) {
        ChangeContent([&] { m_content.AppendString(ViewOf(bstrString), bNewLine != VARIANT_FALSE); });
    });
}

STDMETHODIMP CqorStream::ReadString(BSTR* pbstrString, LONG* pnLength, EStreamError* peStreamError)
{
    return InFrame(kOrigin, OLESTR("CqorStream::ReadString"), [&](const Checks& require) {
        require.Pointer(pbstrString, OLESTR("pbstrString"));
        require.Pointer(pnLength, OLESTR("pnLength"));
        require.Pointer(peStreamError, OLESTR("peStreamError"));
        require.EmptyString(pbstrString, OLESTR("pbstrString"));
        TextView text;
        *peStreamError = Note(m_content.ReadString(text));
        *pbstrString = NewBstr(text);
        *pnLength = static_cast<LONG>(text.size());
    });
}

STDMETHODIMP CqorStream::ClearStream()
{
    return InFrame(kOrigin, OLESTR("CqorStream::ClearStream"), [&](const Checks&) {
        ChangeContent([&] {
            m_content.Clear();
            if (m_pFile)
                m_pFile->Forget(0);
        });
    });
}

STDMETHODIMP CqorStream::GetItemCount(LONG* pnItemCount)
{
    return InFrame(kOrigin, OLESTR("CqorStream::GetItemCount"), [&](const Checks& require) {
        require.Pointer(pnItemCount, OLESTR("pnItemCount"));
        *pnItemCount = m_content.Items();
    });
}

STDMETHODIMP CqorStream::GetStreamSize(LONG* pnByteCount)
{
    return InFrame(kOrigin, OLESTR("CqorStream::GetStreamSize"), [&](const Checks& require) {
        require.Pointer(pnByteCount, OLESTR("pnByteCount"));
        *pnByteCount = static_cast<LONG>(m_content.Bytes().size());
    });
}

STDMETHODIMP CqorStream::SaveToByteArray(unsigned char* pByteArray, LONG nArraySize, LONG* pnBytesWritten,
                                         EStreamError* peStreamError)
{
    return InFrame(kOrigin, OLESTR("CqorStream::SaveToByteArray"), [&](const Checks& require) {
        require.Pointer(pByteArray, OLESTR("pByteArray"));
        require.Pointer(pnBytesWritten, OLESTR("pnBytesWritten"));
        require.Pointer(peStreamError, OLESTR("peStreamError"));
        require.NotNegative(nArraySize);
        const ByteView bytes = m_content.Bytes();
        const bool fits = bytes.size() <= static_cast<std::size_t>(nArraySize);
        *pnBytesWritten = fits ? static_cast<LONG>(bytes.size()) : 0;
        *peStreamError = Note(fits ? E_STREAM_ERROR_NONE : E_STREAM_ERROR_BUFFER_TOO_SMALL);
        if (fits)
            std::copy(bytes.begin(), bytes.end(), pByteArray);
    });
}

STDMETHODIMP CqorStream::LoadFromByteArray(unsigned char* pByteArray, LONG nArraySize, EStreamError* peStreamError)
{
    return InFrame(kOrigin, OLESTR("CqorStream::LoadFromByteArray"), [&](const Checks& require) {
        require.Pointer(pByteArray, OLESTR("pByteArray"));
        require.Pointer(peStreamError, OLESTR("peStreamError"));
        require.NotNegative(nArraySize);
        *peStreamError = ReplaceContent([&](ByteBuffer& bytes) {
            bytes.Append(BytesOf(pByteArray, nArraySize));
            return E_STREAM_ERROR_NONE;
        });
    });
}

STDMETHODIMP CqorStream::LoadFromSafeArray(SAFEARRAY* pArray, LONG nArraySize, EStreamError* peStreamError)
{
    return InFrame(kOrigin, OLESTR("CqorStream::LoadFromSafeArray"), [&](const Checks& require) {
        require.Pointer(pArray, OLESTR("pArray"));
        require.Pointer(peStreamError, OLESTR("peStreamError"));
        require.NotNegative(nArraySize);
        *peStreamError = ReplaceContent([&](ByteBuffer& bytes) {
            if (pArray->cDims != 1 || pArray->cbElements != 1)
                return E_STREAM_ERROR_UNKNOWN_ERROR;
            if (pArray->rgsabound[0].cElements < static_cast<ULONG>(nArraySize))
                return E_STREAM_ERROR_BUFFER_TOO_SMALL;
            void* elements = nullptr;
            Must(SafeArrayAccessData(pArray, &elements));
            bytes.Append(BytesOf(elements, nArraySize));
            Must(SafeArrayUnaccessData(pArray));
            return E_STREAM_ERROR_NONE;
        });
    });
}

STDMETHODIMP CqorStream::Append(IqorStream* pIStream)
{
    return InFrame(kOrigin, OLESTR("CqorStream::Append"), [&](const Checks& require) {
        require.Pointer(pIStream, OLESTR("pIStream"));
        RequireWritable();
        LONG items = 0;
        LONG size = 0;
        Must(pIStream->GetItemCount(&items));
        Must(pIStream->GetStreamSize(&size));
        // A copy, because the other stream may be this one.
        ByteBuffer bytes;
        if (size > 0) {
            LONG copied = 0;
            EStreamError error = E_STREAM_ERROR_UNKNOWN_ERROR;
            Must(pIStream->SaveToByteArray(bytes.Extend(static_cast<std::size_t>(size)), size, &copied, &error));
            if (error != E_STREAM_ERROR_NONE || copied != size) {
                Note(E_STREAM_ERROR_UNKNOWN_ERROR);
                ThrowFormatted(CallSite::current(), kAppendFailedText);
            }
        }
        items = std::max<LONG>(items, size > 0 ? 1 : 0);
        ChangeContent([&] { m_content.Append(bytes.View(), static_cast<std::uint32_t>(items)); });
    });
}

STDMETHODIMP CqorStream::GetStreamContentsAsString(BSTR* pbstrStreamContents)
{
    return InFrame(kOrigin, OLESTR("CqorStream::GetStreamContentsAsString"), [&](const Checks& require) {
        require.Pointer(pbstrStreamContents, OLESTR("pbstrStreamContents"));
        require.EmptyString(pbstrStreamContents, OLESTR("pbstrStreamContents"));
        *pbstrStreamContents =
            m_content.Mode() == E_STREAM_MODE_TEXT ? NewBstr(m_content.Decoded()) : NewByteBstr(m_content.Bytes());
    });
}

STDMETHODIMP CqorStream::GetSeekPos(LONG* pnSeekPos)
{
    return InFrame(kOrigin, OLESTR("CqorStream::GetSeekPos"), [&](const Checks& require) {
        require.Pointer(pnSeekPos, OLESTR("pnSeekPos"));
        *pnSeekPos = static_cast<LONG>(m_content.Position());
    });
}

STDMETHODIMP CqorStream::SetSeekPos(LONG nSeekPos)
{
    return InFrame(kOrigin, OLESTR("CqorStream::SetSeekPos"), [&](const Checks& require) {
        require.NotNegative(nSeekPos);
        if (Note(m_content.Seek(nSeekPos, E_STREAM_ORIGIN_START)) != E_STREAM_ERROR_NONE)
            ThrowFormatted(CallSite::current(), kOutsideText, nSeekPos, static_cast<LONG>(m_content.Bytes().size()));
    });
}

STDMETHODIMP CqorStream::Truncate()
{
    return InFrame(kOrigin, OLESTR("CqorStream::Truncate"), [&](const Checks&) {
        ChangeContent([&] {
            m_content.CutAtPosition();
            if (m_pFile)
                m_pFile->Forget(m_content.Position());
        });
    });
}

// ---- File ----

STDMETHODIMP CqorStream::OpenFile(BSTR bstrFilename, EStreamMode eFileMode, EStreamOpenOptions eOptions,
                                  VARIANT_BOOL bReadOnly, EStreamError* peStreamError)
{
    return InFrame(kOrigin, OLESTR("CqorStream::OpenFile"), [&](const Checks& require) {
        require.Pointer(peStreamError, OLESTR("peStreamError"));
        RequireOneOf(require, eFileMode, kModes, OLESTR("eFileMode"));
        RequireOneOf(require, eOptions, kOpenOptions, OLESTR("eOptions"));
        WriteFile(); // it may be the very file that is opened now
        EStreamError error = E_STREAM_ERROR_NONE;
        ByteBuffer content;
        auto file = StreamFile::Open(ViewOf(bstrFilename), eOptions, bReadOnly != VARIANT_FALSE, content, error);
        *peStreamError = Note(error);
        if (file)
            AttachFile(std::move(file), std::move(content), eFileMode);
    });
}

void CqorStream::AttachFile(std::unique_ptr<StreamFile> file, ByteBuffer&& content, EStreamMode mode)
{
    if (mode == E_STREAM_MODE_TEXT && content.Size() != 0) {
        const LONG marked = file->TakeMark(content);
        if (marked != -1)
            m_content.SetCodePage(marked);
        else if (m_content.CodePage() == kCodePageUtf16)
            m_content.SetCodePage(kCodePageSystem);
    }
    m_content.Load(std::move(content));
    m_content.SetMode(mode);
    m_bReadOnly = file->IsReadOnly();
    m_pFile = std::move(file);
}

STDMETHODIMP CqorStream::CloseFile()
{
    return InFrame(kOrigin, OLESTR("CqorStream::CloseFile"), [&](const Checks&) {
        if (!m_pFile)
            return;
        WriteFile();
        m_pFile.reset();
        m_content.Clear();
        m_bReadOnly = false;
        Note(E_STREAM_ERROR_NONE);
    });
}

STDMETHODIMP CqorStream::GetStreamType(EStreamType* peStreamType)
{
    return InFrame(kOrigin, OLESTR("CqorStream::GetStreamType"), [&](const Checks& require) {
        require.Pointer(peStreamType, OLESTR("peStreamType"));
        *peStreamType = m_pFile ? E_STREAM_TYPE_FILE : E_STREAM_TYPE_MEMORY;
    });
}

// ---- Settings ----

STDMETHODIMP CqorStream::GetStreamMode(EStreamMode* peStreamMode)
{
    return InFrame(kOrigin, OLESTR("CqorStream::GetStreamMode"), [&](const Checks& require) {
        require.Pointer(peStreamMode, OLESTR("peStreamMode"));
        *peStreamMode = m_content.Mode();
    });
}

STDMETHODIMP CqorStream::SetStreamMode(EStreamMode eStreamMode)
{
    return InFrame(kOrigin, OLESTR("CqorStream::SetStreamMode"), [&](const Checks& require) {
        RequireOneOf(require, eStreamMode, kModes, OLESTR("eStreamMode"));
        m_content.SetMode(eStreamMode);
    });
}

STDMETHODIMP CqorStream::SetReadOnly(VARIANT_BOOL bReadOnly)
{
    return InFrame(kOrigin, OLESTR("CqorStream::SetReadOnly"), [&](const Checks&) {
        if (bReadOnly == VARIANT_FALSE && m_pFile && m_pFile->IsReadOnly()) {
            Note(E_STREAM_ERROR_OPEN_FILE_READ_ONLY);
            ThrowFormatted(CallSite::current(), kReadOnlyFileText);
        }
        m_bReadOnly = bReadOnly != VARIANT_FALSE;
    });
}

STDMETHODIMP CqorStream::IsReadOnly(VARIANT_BOOL* pbReadOnly)
{
    return InFrame(kOrigin, OLESTR("CqorStream::IsReadOnly"), [&](const Checks& require) {
        require.Pointer(pbReadOnly, OLESTR("pbReadOnly"));
        *pbReadOnly = OutBool(m_bReadOnly);
    });
}

STDMETHODIMP CqorStream::SetDelimiter(BSTR bstrDelimiterString)
{
    return InFrame(kOrigin, OLESTR("CqorStream::SetDelimiter"),
                   [&](const Checks&) { m_content.SetDelimiter(ViewOf(bstrDelimiterString)); });
}

STDMETHODIMP CqorStream::GetDelimiter(BSTR* pbstrDelimiterString)
{
    return InFrame(kOrigin, OLESTR("CqorStream::GetDelimiter"), [&](const Checks& require) {
        require.Pointer(pbstrDelimiterString, OLESTR("pbstrDelimiterString"));
        require.EmptyString(pbstrDelimiterString, OLESTR("pbstrDelimiterString"));
        *pbstrDelimiterString = NewBstr(m_content.Delimiter());
    });
}

STDMETHODIMP CqorStream::GetCodePage(LONG* pnCodePage)
{
    return InFrame(kOrigin, OLESTR("CqorStream::GetCodePage"), [&](const Checks& require) {
        require.Pointer(pnCodePage, OLESTR("pnCodePage"));
        *pnCodePage = m_content.CodePage();
    });
}

STDMETHODIMP CqorStream::SetCodePage(LONG nCodePage)
{
    return InFrame(kOrigin, OLESTR("CqorStream::SetCodePage"), [&](const Checks& require) {
        RequireOneOf(require, nCodePage, kStreamCodePages, OLESTR("nCodePage"));
        m_content.SetCodePage(nCodePage);
    });
}

STDMETHODIMP CqorStream::GetLastStreamError(EStreamError* peLastStreamError)
{
    return InFrame(kOrigin, OLESTR("CqorStream::GetLastStreamError"), [&](const Checks& require) {
        require.Pointer(peLastStreamError, OLESTR("peLastStreamError"));
        *peLastStreamError = m_eLastError;
    });
}

// ---- IqorStreamDirect ----

STDMETHODIMP CqorStream::AppendItems(const void* pData, LONG nBytes, LONG nItems)
{
    if (!pData)
        return E_POINTER;
    if (nBytes < 0 || nItems < 0)
        return E_INVALIDARG;
    return Direct([&] {
        ChangeContent([&] { m_content.Append(BytesOf(pData, nBytes), static_cast<std::uint32_t>(nItems)); });
        return S_OK;
    });
}

STDMETHODIMP CqorStream::AppendDeferredText(const unsigned char* pValue, LONG nValueBytes, IqorTextRenderer* pIRenderer)
{
    if (!pValue || !pIRenderer)
        return E_POINTER;
    if (nValueBytes < 0)
        return E_INVALIDARG;
    return Direct([&] {
        ChangeContent([&] {
            const ByteView value = BytesOf(pValue, nValueBytes);
            if (MayDefer()) {
                m_content.AppendPending(pIRenderer, value, [&] { return std::make_unique<RenderedText>(pIRenderer); });
            } else {
                Text scratch;
                m_content.AppendString(RenderedText(pIRenderer).TextOf(value, scratch), true);
            }
        });
        return S_OK;
    });
}

STDMETHODIMP CqorStream::AppendBatch(const void* pData, LONG nBytes, LONG nItems, const unsigned char* pValues,
                                     LONG nValueBytes, const SqorDeferredText* pTexts, LONG nTextCount,
                                     IqorTextRenderer* pIRenderer)
{
    if ((!pData && nBytes != 0) || (!pValues && nValueBytes != 0) || (!pTexts && nTextCount != 0) || !pIRenderer)
        return E_POINTER;
    if (nBytes < 0 || nItems < 0 || nValueBytes < 0 || nTextCount < 0)
        return E_INVALIDARG;
    const ByteView bytes = BytesOf(pData, nBytes);
    const ByteView values = BytesOf(pValues, nValueBytes);
    const std::span texts(pTexts, static_cast<std::size_t>(nTextCount));
    if (!LieWithin(texts, bytes.size(), values.size()))
        return E_INVALIDARG;
    return Direct([&] {
        ChangeContent([&] {
            if (MayDefer()) {
                m_content.AppendBatch(bytes, static_cast<std::uint32_t>(nItems), values, texts, pIRenderer,
                                      [&] { return std::make_unique<RenderedText>(pIRenderer); });
                return;
            }
            const RenderedText source(pIRenderer);
            Text scratch;
            std::size_t from = 0;
            for (const SqorDeferredText& text : texts) {
                m_content.Append(bytes.subspan(from, text.Offset - from), 0);
                m_content.AppendString(source.TextOf(values.subspan(text.Value, text.ValueBytes), scratch), true);
                from = text.Offset;
            }
            m_content.Append(bytes.subspan(from), static_cast<std::uint32_t>(nItems));
        });
        return S_OK;
    });
}

STDMETHODIMP CqorStream::AdoptText(IqorTextOwner* pIOwner)
{
    if (!pIOwner)
        return E_POINTER;
    return Direct([&] {
        ChangeContent([&] {
            Text unused;
            if (MayDefer())
                m_content.AppendPending(pIOwner, {}, [&] { return std::make_unique<LentText>(pIOwner); });
            else
                m_content.AppendString(LentText(pIOwner).TextOf({}, unused), true);
        });
        return S_OK;
    });
}

STDMETHODIMP CqorStream::PeekString(const OLECHAR** ppText, LONG* pnLength)
{
    if (!ppText || !pnLength)
        return E_POINTER;
    return Direct([&] {
        TextView text;
        const EStreamError error = Note(m_content.ReadString(text));
        *ppText = text.empty() ? OLESTR("") : text.data();
        *pnLength = static_cast<LONG>(text.size());
        return error == E_STREAM_ERROR_NONE ? S_OK : S_FALSE;
    });
}

STDMETHODIMP CqorStream::SkipString()
{
    return Direct([&] { return Note(m_content.SkipString()) == E_STREAM_ERROR_NONE ? S_OK : S_FALSE; });
}
