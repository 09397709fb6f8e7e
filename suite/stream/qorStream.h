// The stream component: the COM face of StreamStorage, in memory or with a file behind it.
// A stream is one growing content with one read position. Writing always appends at the end and leaves the read
// position alone, so a reader seeks first. A new stream is a memory stream in no mode, which works as binary, with the
// code page 1200, the delimiter CR LF, and nothing in it.
//
// Outcomes that a caller must expect come as EStreamError with S_OK; misuse raises. Null out pointers, out texts that
// are not null and negative sizes are misuse, as everywhere. One thread at a time uses a stream; references may be
// taken and given back on any thread.
#pragma once

#include "LV_prpPropCollection.h"
#include "LV_suiteStream.h"
#include "frame/CallSite.h"
#include "idl/SuiteClasses.h"
#include "platform/atl/ComObject.h"
#include "suite/stream/StreamFile.h"
#include "suite/stream/StreamStorage.h"

class CqorStream : public CComObjectRootEx<CComMultiThreadModel>,
                   public CComCoClass<&CLSID_qorStream>,
                   public IqorStream,
                   public IqorStreamDirect,
                   public ISupportErrorInfoImpl<IqorStream> {
public:
    using Interfaces = InterfaceList<IqorStream, IqorStreamDirect, ISupportErrorInfo>;

    /// Writes what the file of a file stream lacks; nobody is left to hear of a failure.
    void FinalRelease();

    // ---- Content ----

    /// Appends the bytes as one item; none are an item too. Raises on a read-only stream, on a content that would pass
    /// 2147483647 bytes and when the file can't be written.
    STDMETHODIMP Write(void* pData, LONG nBytesToWrite) override;
    /// Gives the bytes that are left, up to `nBytesToRead`, and moves behind them. END_OF_FILE only when nothing is
    /// left.
    STDMETHODIMP Read(void* pBuffer, LONG nBytesToRead, LONG* pnBytesRead, EStreamError* peStreamError) override;
    /// Moves the read position by `nOffset` bytes from the start, the present position or the end. A target outside
    /// the content leaves the position where it is and gives BEGINNING_OF_FILE or END_OF_FILE; the end is inside.
    STDMETHODIMP Seek(LONG nOffset, EStreamOrigin eOrigin, EStreamError* peStreamError) override;
    /// Appends a text as one item. Binary: the text is kept whole whatever it holds, and `bNewLine` has no effect.
    /// Text mode: its bytes in the code page, and behind them the delimiter if `bNewLine` is true; without, the next
    /// text goes on in the same line. Raises as Write.
    STDMETHODIMP WriteString(BSTR bstrString, VARIANT_BOOL bNewLine) override;
    /// Gives the next text and its length in 16-bit units. Binary: a text as it was written. Text mode: one line,
    /// without its delimiter; the last may lack one. END_OF_FILE, an empty text and length 0 when nothing is left.
    /// Where no text can begin, UNKNOWN_ERROR, an empty text, and the position goes to the end.
    STDMETHODIMP ReadString(BSTR* pbstrString, LONG* pnLength, EStreamError* peStreamError) override;
    /// Removes all content and sets the read position and the number of items to 0. Mode, code page and delimiter
    /// stay; a file stays open and is emptied.
    STDMETHODIMP ClearStream() override;
    /// Number of items: one for each write since the stream was last empty, one for a content that was loaded from an
    /// array or a file, those of the other stream for Append.
    STDMETHODIMP GetItemCount(LONG* pnItemCount) override;
    /// Size of the content in bytes. The byte-order mark of a text file is no part of the content.
    STDMETHODIMP GetStreamSize(LONG* pnByteCount) override;
    /// Copies the whole content into the caller's array, whatever the read position. An array that is too small gets
    /// nothing: BUFFER_TOO_SMALL, 0 bytes.
    STDMETHODIMP SaveToByteArray(unsigned char* pByteArray, LONG nArraySize, LONG* pnBytesWritten,
                                 EStreamError* peStreamError) override;
    /// Replaces the content by the array's bytes and goes to the start. A read-only stream stays as it is:
    /// OPEN_FILE_READ_ONLY. The bytes are not judged; reading tells.
    STDMETHODIMP LoadFromByteArray(unsigned char* pByteArray, LONG nArraySize, EStreamError* peStreamError) override;
    /// The same with the first `nArraySize` elements of an array of bytes. BUFFER_TOO_SMALL when it has fewer,
    /// UNKNOWN_ERROR when it is not one row of bytes; the content then stays.
    STDMETHODIMP LoadFromSafeArray(SAFEARRAY* pArray, LONG nArraySize, EStreamError* peStreamError) override;
    /// Appends the whole content of another stream, whose read position stays, with the number of its items. The bytes
    /// are taken as they are, whatever the modes. A stream may be appended to itself. Raises as Write.
    STDMETHODIMP Append(IqorStream* pIStream) override;
    /// The whole content as one text, whatever the read position. Text mode: decoded, delimiters included. Binary: the
    /// bytes themselves, so SysStringByteLen of the result is the size of the stream.
    STDMETHODIMP GetStreamContentsAsString(BSTR* pbstrStreamContents) override;
    /// Read position in bytes from the start.
    STDMETHODIMP GetSeekPos(LONG* pnSeekPos) override;
    /// Moves the read position; raises when there is no such place in the content.
    STDMETHODIMP SetSeekPos(LONG nSeekPos) override;
    /// Cuts the content at the read position. The number of items stays, unless nothing is left. Raises on a read-only
    /// stream.
    STDMETHODIMP Truncate() override;

    // ---- File ----

    /// Turns the stream into a file stream: closes the file that it had and replaces the content by the file's.
    /// Reading starts at the beginning; APPEND keeps what the file holds, TRUNCATE empties it, and a missing file is
    /// made unless `bReadOnly` is true. On a failure the stream stays as it was: OPEN_FILE_READ_ONLY for a file that
    /// may not be written, or one to be truncated but not written; FILE_ACCESS_PERMISSIONS when there is no such file
    /// or the system refuses; UNKNOWN_ERROR for an unusable name or a file of 2 GiB or more. A text file tells its code
    /// page by its mark (FF FE: 1200, EF BB BF: 65001) and gets the mark of the stream's code page when it is empty.
    /// One that has content and no mark is narrow: 1200 becomes 0 for it. What is written reaches the file at CloseFile
    /// at the latest, or at the last release.
    STDMETHODIMP OpenFile(BSTR bstrFilename, EStreamMode eFileMode, EStreamOpenOptions eOptions, VARIANT_BOOL bReadOnly,
                          EStreamError* peStreamError) override;
    /// Completes and closes the file; the stream becomes an empty memory stream that may be written. Raises when the
    /// file can't be written, and then stays open. A memory stream stays as it is.
    STDMETHODIMP CloseFile() override;
    STDMETHODIMP GetStreamType(EStreamType* peStreamType) override;

    // ---- Settings ----

    STDMETHODIMP GetStreamMode(EStreamMode* peStreamMode) override;
    /// Decides how texts are written and read from now on; the content stays. Raises on other values than the three.
    STDMETHODIMP SetStreamMode(EStreamMode eStreamMode) override;
    /// While a stream is read-only every change of its content is refused. Raises for `false` on a file that was
    /// opened for reading only.
    STDMETHODIMP SetReadOnly(VARIANT_BOOL bReadOnly) override;
    STDMETHODIMP IsReadOnly(VARIANT_BOOL* pbReadOnly) override;
    /// What ends a line in text mode. Empty: texts follow each other without a mark, and ReadString gives all the rest.
    STDMETHODIMP SetDelimiter(BSTR bstrDelimiterString) override;
    STDMETHODIMP GetDelimiter(BSTR* pbstrDelimiterString) override;
    STDMETHODIMP GetCodePage(LONG* pnCodePage) override;
    /// Encoding of texts written and read in text mode from now on: 0 (the system's narrow one), 1200, 1252 or 65001;
    /// raises on others. What the encoding lacks becomes its replacement character. Binary texts always have 16 bits.
    STDMETHODIMP SetCodePage(LONG nCodePage) override;
    /// Outcome of the last method that touched the content or the file, those included that raised.
    STDMETHODIMP GetLastStreamError(EStreamError* peLastStreamError) override;

    // ---- IqorStreamDirect, described in its definition; a success leaves the thread's error object alone ----

    STDMETHODIMP AppendItems(const void* pData, LONG nBytes, LONG nItems) override;
    STDMETHODIMP AppendDeferredText(const unsigned char* pValue, LONG nValueBytes,
                                    IqorTextRenderer* pIRenderer) override;
    STDMETHODIMP AppendBatch(const void* pData, LONG nBytes, LONG nItems, const unsigned char* pValues,
                             LONG nValueBytes, const SqorDeferredText* pTexts, LONG nTextCount,
                             IqorTextRenderer* pIRenderer) override;
    STDMETHODIMP AdoptText(IqorTextOwner* pIOwner) override;
    STDMETHODIMP PeekString(const OLECHAR** ppText, LONG* pnLength) override;
    STDMETHODIMP SkipString() override;

private:
    /// Keeps an outcome for GetLastStreamError and passes it on.
    EStreamError Note(EStreamError error) { return m_eLastError = error; }
    void RequireWritable(CallSite at = CallSite::current());
    template <class Change>
    void ChangeContent(Change&& change, CallSite at = CallSite::current());
    /// For the methods that report instead of raising.
    template <class Fill>
    EStreamError ReplaceContent(Fill&& fill);
    void AttachFile(std::unique_ptr<StreamFile> file, ByteBuffer&& content, EStreamMode mode);
    /// A memory stream that keeps binary texts: there a text may wait to be made.
    bool MayDefer() const { return !m_pFile && m_content.Mode() != E_STREAM_MODE_TEXT; }
    /// Lets the file follow the content: at once, or when enough has gathered.
    void WriteFile(CallSite at = CallSite::current());
    void WriteBehind(CallSite at);
    /// What opens the file if it has nothing in it yet.
    ByteView FileMark() const;

    StreamStorage m_content;
    std::unique_ptr<StreamFile> m_pFile;
    EStreamError m_eLastError = E_STREAM_ERROR_NONE;
    bool m_bReadOnly = false;
};
