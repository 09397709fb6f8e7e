// The one door to the system's XML library: a document as a sequence of events. The body is a file for each system
// (Expat natively, XmlLite on Windows); the check of what a document may hold is the sink's.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct XmlAttribute {
    std::string name; ///< without its namespace prefix
    std::string value;
    mutable bool read = false;
};

/// Receives the events in document order. A thrown exception ends the reading and reaches the caller of ReadXml.
class XmlSink {
public:
    virtual ~XmlSink() = default;
    /// @param name  without its namespace prefix. @param line  counted from 1.
    virtual void StartElement(std::string_view name, std::vector<XmlAttribute> attributes, size_t line) = 0;
    virtual void EndElement() = 0;
    /// May come in several pieces; comments and processing instructions between them are left out.
    virtual void Characters(std::string_view text) = 0;
};

/// Throws ToolError "name:line: reason" for text that is not well-formed XML and for any document type declaration:
/// with it goes every entity, so none can be expanded.
void ReadXml(const std::string& name, std::string_view bytes, XmlSink& sink);

/// The sentence for a document type declaration, the same in every body.
[[noreturn]] void RefuseDocumentType(const std::string& name, size_t line);
