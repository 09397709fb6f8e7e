#include "tools/lvprop/ToolError.h"
#include "tools/lvprop/XmlReader.h"

#include <expat.h>

#include <algorithm>
#include <exception>
#include <limits>
#include <memory>

namespace {

/// Joins namespace and local name in the names that the library hands out.
constexpr char kNamespaceSeparator = '\n';

struct ParserDeleter {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using ParserOwner = std::unique_ptr<XML_ParserStruct, ParserDeleter>;

std::string_view LocalName(std::string_view name)
{
    const size_t separator = name.rfind(kNamespaceSeparator);
    return separator == std::string_view::npos ? name : name.substr(separator + 1);
}

/// One run of the library. An exception must not pass through its C frames: it waits in `failure`.
struct Run {
    const std::string& name;
    XmlSink& sink;
    XML_Parser parser;
    std::exception_ptr failure;

    size_t Line() const { return static_cast<size_t>(XML_GetCurrentLineNumber(parser)); }

    template <class Body>
    static void Guard(void* data, Body&& body) noexcept
    {
        Run& run = *static_cast<Run*>(data);
        if (run.failure)
            return;
        try {
            body(run);
        } catch (...) {
            run.failure = std::current_exception();
            XML_StopParser(run.parser, XML_FALSE);
        }
    }
};

void OnStart(void* data, const XML_Char* name, const XML_Char** attributes)
{
    Run::Guard(data, [&](Run& run) {
        std::vector<XmlAttribute> list;
        for (; *attributes; attributes += 2)
            list.push_back({std::string(LocalName(attributes[0])), attributes[1]});
        run.sink.StartElement(LocalName(name), std::move(list), run.Line());
    });
}

void OnEnd(void* data, const XML_Char*)
{
    Run::Guard(data, [](Run& run) { run.sink.EndElement(); });
}

void OnCharacters(void* data, const XML_Char* text, int length)
{
    Run::Guard(data, [&](Run& run) { run.sink.Characters({text, static_cast<size_t>(length)}); });
}

void OnDocumentType(void* data, const XML_Char*, const XML_Char*, const XML_Char*, int)
{
    Run::Guard(data, [](Run& run) { RefuseDocumentType(run.name, run.Line()); });
}

} // namespace

void ReadXml(const std::string& name, std::string_view bytes, XmlSink& sink)
{
    const ParserOwner parser(XML_ParserCreateNS(nullptr, kNamespaceSeparator));
    if (!parser)
        throw std::bad_alloc();
    Run run{name, sink, parser.get(), nullptr};
    XML_SetUserData(parser.get(), &run);
    XML_SetElementHandler(parser.get(), OnStart, OnEnd);
    XML_SetCharacterDataHandler(parser.get(), OnCharacters);
    XML_SetStartDoctypeDeclHandler(parser.get(), OnDocumentType);

    constexpr size_t kPiece = 1 << 20; // the library counts bytes in an int
    XML_Status status = XML_STATUS_OK;
    do {
        const size_t length = std::min(bytes.size(), kPiece);
        status = XML_Parse(parser.get(), bytes.data(), static_cast<int>(length), length == bytes.size());
        bytes.remove_prefix(length);
    } while (status == XML_STATUS_OK && !bytes.empty());

    if (run.failure)
        std::rethrow_exception(run.failure);
    if (status != XML_STATUS_OK)
        RefuseInput(name + ":" + std::to_string(run.Line()) +
                    ": not well-formed XML: " + XML_ErrorString(XML_GetErrorCode(parser.get())));
}
