// On Windows the reader is that of the system (MSXML 6, through its event interface).
#include "platform/atl/ComPtr.h"
#include "platform/system/Utf8.h"
#include "tools/lvprop/ToolError.h"
#include "tools/lvprop/XmlReader.h"

#include <msxml2.h>
#include <shlwapi.h>

#include <algorithm>
#include <exception>

namespace {

// The cross compiler's import library lacks these identifiers.
constexpr GUID kReaderClass = {0x88d96a0c, 0xf192, 0x11d4, {0xa6, 0x5f, 0x00, 0x40, 0x96, 0x32, 0x51, 0xe5}};
constexpr GUID kReader = {0xa4f96ed0, 0xf829, 0x476e, {0x81, 0xc0, 0xcd, 0xc7, 0xbd, 0x2a, 0x08, 0x02}};
constexpr GUID kContentHandler = {0x1545cdfa, 0x9e4e, 0x4497, {0xa8, 0xa4, 0x2b, 0xf7, 0xd0, 0x11, 0x2c, 0x44}};
constexpr GUID kErrorHandler = {0xa60511c4, 0xccf5, 0x479e, {0x98, 0xa3, 0xdc, 0x8d, 0xc5, 0x45, 0xb7, 0xd0}};

void Must(HRESULT hr)
{
    if (FAILED(hr))
        RefuseInput("the system's XML reader (MSXML 6) cannot be used here");
}

std::string Utf8Of(const wchar_t* text, int length)
{
    return text && length > 0 ? Utf8From({text, static_cast<size_t>(length)}) : std::string();
}

/// What one run of the reader knows. An exception must not pass through the reader: it waits in `failure`.
struct Run {
    Run(const std::string& documentName, XmlSink& documentSink) : name(documentName), sink(documentSink) {}

    const std::string& name;
    XmlSink& sink;
    ISAXLocator* locator = nullptr;
    std::exception_ptr failure;
    bool isBroken = false;
    size_t brokenLine = 0;
    std::string reason;

    size_t Line() const
    {
        int line = 0;
        return locator && SUCCEEDED(locator->getLineNumber(&line)) && line > 0 ? static_cast<size_t>(line) : 1;
    }

    template <class Body>
    HRESULT Guard(Body&& body) noexcept
    {
        if (failure)
            return E_FAIL;
        try {
            body();
            return S_OK;
        } catch (...) {
            failure = std::current_exception();
            return E_FAIL;
        }
    }
};

/// The handlers live on the stack of one run, so nobody counts them.
template <class Interface, const GUID& kId>
class Handler : public Interface {
public:
    explicit Handler(Run& run) : m_run(run) {}
    HRESULT WINAPI QueryInterface(REFIID iid, void** out) override
    {
        const bool isKnown = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, kId);
        *out = isKnown ? this : nullptr;
        return isKnown ? S_OK : E_NOINTERFACE;
    }
    ULONG WINAPI AddRef() override { return 1; }
    ULONG WINAPI Release() override { return 1; }

protected:
    ~Handler() = default;
    Run& m_run;
};

std::vector<XmlAttribute> ListOf(ISAXAttributes& attributes)
{
    std::vector<XmlAttribute> list;
    int count = 0;
    attributes.getLength(&count);
    for (int i = 0; i < count; ++i) {
        const wchar_t* name = nullptr;
        const wchar_t* value = nullptr;
        int nameLength = 0, valueLength = 0;
        attributes.getLocalName(i, &name, &nameLength);
        attributes.getValue(i, &value, &valueLength);
        // Declarations of namespaces are attributes without a local name, or with the name of the declaration.
        if (nameLength > 0 && Utf8Of(name, nameLength) != "xmlns")
            list.push_back({Utf8Of(name, nameLength), Utf8Of(value, valueLength)});
    }
    return list;
}

class ContentHandler final : public Handler<ISAXContentHandler, kContentHandler> {
public:
    using Handler::Handler;
    HRESULT WINAPI putDocumentLocator(ISAXLocator* locator) override
    {
        m_run.locator = locator;
        return S_OK;
    }
    HRESULT WINAPI startElement(const wchar_t*, int, const wchar_t* name, int length, const wchar_t*, int,
                                ISAXAttributes* attributes) override
    {
        return m_run.Guard([&] { m_run.sink.StartElement(Utf8Of(name, length), ListOf(*attributes), m_run.Line()); });
    }
    HRESULT WINAPI endElement(const wchar_t*, int, const wchar_t*, int, const wchar_t*, int) override
    {
        return m_run.Guard([&] { m_run.sink.EndElement(); });
    }
    HRESULT WINAPI characters(const wchar_t* text, int length) override
    {
        return m_run.Guard([&] { m_run.sink.Characters(Utf8Of(text, length)); });
    }
    HRESULT WINAPI ignorableWhitespace(const wchar_t*, int) override { return S_OK; }
    HRESULT WINAPI startDocument() override { return S_OK; }
    HRESULT WINAPI endDocument() override { return S_OK; }
    HRESULT WINAPI startPrefixMapping(const wchar_t*, int, const wchar_t*, int) override { return S_OK; }
    HRESULT WINAPI endPrefixMapping(const wchar_t*, int) override { return S_OK; }
    HRESULT WINAPI processingInstruction(const wchar_t*, int, const wchar_t*, int) override { return S_OK; }
    HRESULT WINAPI skippedEntity(const wchar_t*, int) override { return S_OK; }
};

class ErrorHandler final : public Handler<ISAXErrorHandler, kErrorHandler> {
public:
    using Handler::Handler;
    HRESULT WINAPI error(ISAXLocator* locator, const wchar_t* text, HRESULT hr) override
    {
        return fatalError(locator, text, hr);
    }
    HRESULT WINAPI fatalError(ISAXLocator* locator, const wchar_t* text, HRESULT) override
    {
        int line = 0;
        if (locator && !m_run.isBroken && SUCCEEDED(locator->getLineNumber(&line)) && line > 0)
            m_run.brokenLine = static_cast<size_t>(line);
        if (text && !m_run.isBroken)
            m_run.reason = Utf8From(TextView(text).substr(0, TextView(text).find_first_of(L"\r\n")));
        m_run.isBroken = true;
        return E_FAIL;
    }
    HRESULT WINAPI ignorableWarning(ISAXLocator*, const wchar_t*, HRESULT) override { return S_OK; }
};

/// Number of the line at which a document type declaration stands ahead of the root; 0 if there is none. The reader
/// prohibits them itself but not in each of its versions, and then it has already taken in the entities.
size_t LineOfDocumentType(std::string_view bytes)
{
    size_t at = 0;
    const auto startsWith = [&](std::string_view text) { return bytes.substr(at).starts_with(text); };
    const auto skipPast = [&](std::string_view end) {
        const size_t found = bytes.find(end, at);
        at = found == std::string_view::npos ? bytes.size() : found + end.size();
    };
    while ((at = bytes.find('<', at)) != std::string_view::npos) {
        if (startsWith("<!DOCTYPE"))
            return static_cast<size_t>(std::ranges::count(bytes.substr(0, at), '\n')) + 1;
        if (startsWith("<?"))
            skipPast("?>");
        else if (startsWith("<!--"))
            skipPast("-->");
        else
            return 0;
    }
    return 0;
}

/// COM for the time of one run, whatever the caller has done before.
class Apartment {
public:
    Apartment() : m_isOwn(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ~Apartment()
    {
        if (m_isOwn)
            CoUninitialize();
    }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;

private:
    bool m_isOwn;
};

VARIANT VariantOf(IUnknown* object)
{
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = VT_UNKNOWN;
    variant.punkVal = object;
    return variant;
}

} // namespace

void ReadXml(const std::string& name, std::string_view bytes, XmlSink& sink)
{
    if (const size_t line = LineOfDocumentType(bytes))
        RefuseDocumentType(name, line);
    const Apartment apartment;
    CComPtr<ISAXXMLReader> reader;
    Must(CoCreateInstance(kReaderClass, nullptr, CLSCTX_INPROC_SERVER, kReader, reinterpret_cast<void**>(&reader)));
    Run run(name, sink);
    ContentHandler content(run);
    ErrorHandler errors(run);
    Must(reader->putContentHandler(&content));
    Must(reader->putErrorHandler(&errors));

    CComPtr<IStream> stream;
    stream.Attach(SHCreateMemStream(reinterpret_cast<const BYTE*>(bytes.data()), static_cast<UINT>(bytes.size())));
    if (!stream)
        throw std::bad_alloc();
    const HRESULT hr = reader->parse(VariantOf(stream));
    if (run.failure)
        std::rethrow_exception(run.failure);
    if (FAILED(hr) || run.isBroken)
        RefuseInput(name + ":" + std::to_string(run.brokenLine ? run.brokenLine : run.Line()) +
                    ": not well-formed XML" + (run.reason.empty() ? "" : ": " + run.reason));
}
