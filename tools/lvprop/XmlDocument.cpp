#include "tools/lvprop/XmlDocument.h"

#include "tools/lvprop/ToolError.h"

#include <algorithm>

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

class TreeSink final : public XmlSink {
public:
    explicit TreeSink(const std::string& name) : m_name(name) {}

    void StartElement(std::string_view name, std::vector<XmlAttribute> attributes, size_t line) override
    {
        if (m_open.size() >= kMaxXmlDepth)
            RefuseInput(m_name + ":" + std::to_string(line) + ": elements are nested deeper than " +
                        std::to_string(kMaxXmlDepth) + " levels");
        XmlElement& element = m_open.emplace_back();
        element.name = name;
        element.attributes = std::move(attributes);
        element.line = line;
    }

    void EndElement() override
    {
        XmlElement element = std::move(m_open.back());
        m_open.pop_back();
        if (element.text.find_first_not_of(kBlanks) == std::string::npos)
            element.text.clear();
        if (m_open.empty())
            m_root = std::move(element);
        else
            m_open.back().children.push_back(std::move(element));
    }

    void Characters(std::string_view text) override
    {
        if (!m_open.empty())
            m_open.back().text += text;
    }

    XmlElement Take() { return std::move(m_root); }

private:
    const std::string& m_name;
    std::vector<XmlElement> m_open;
    XmlElement m_root;
};

bool HasId(const XmlElement& element)
{
    return std::ranges::any_of(element.attributes, [](const XmlAttribute& a) { return a.name == "id"; });
}

bool HoldsIds(const XmlElement& element)
{
    return std::ranges::any_of(element.children, [](const XmlElement& e) { return HasId(e) || HoldsIds(e); });
}

bool IsWorthTelling(const XmlAttribute& attribute)
{
    return !attribute.read && attribute.name != "id" && attribute.name != "n" && attribute.name != "count";
}

void Count(const XmlElement& element, const std::string& parent, std::map<std::string, size_t>& counts)
{
    const bool isList = !HasId(element) && HoldsIds(element);
    if (!element.read && !isList) {
        ++counts[parent + "/" + element.name];
        return;
    }
    if (element.read)
        for (const XmlAttribute& attribute : element.attributes)
            if (IsWorthTelling(attribute))
                ++counts[element.name + "/@" + attribute.name];
    for (const XmlElement& child : element.children)
        Count(child, element.name, counts);
}

} // namespace

const XmlElement* XmlElement::Child(std::string_view childName) const
{
    for (const XmlElement& child : children)
        if (child.name == childName) {
            child.read = true;
            return &child;
        }
    return nullptr;
}

std::vector<const XmlElement*> XmlElement::Children(std::string_view childName) const
{
    std::vector<const XmlElement*> found;
    for (const XmlElement& child : children)
        if (child.name == childName) {
            child.read = true;
            found.push_back(&child);
        }
    return found;
}

std::vector<const XmlElement*> XmlElement::AllChildren() const
{
    std::vector<const XmlElement*> found;
    for (const XmlElement& child : children) {
        child.read = true;
        found.push_back(&child);
    }
    return found;
}

const XmlElement* XmlElement::At(std::initializer_list<std::string_view> path) const
{
    const XmlElement* element = this;
    for (const std::string_view step : path)
        if (element)
            element = element->Child(step);
    return element;
}

const std::string* XmlElement::Attribute(std::string_view attributeName) const
{
    for (const XmlAttribute& attribute : attributes)
        if (attribute.name == attributeName) {
            attribute.read = true;
            return &attribute.value;
        }
    return nullptr;
}

void XmlElement::MarkAll() const
{
    read = true;
    for (const XmlAttribute& attribute : attributes)
        attribute.read = true;
    for (const XmlElement& child : children)
        child.MarkAll();
}

XmlElement ParseXmlDocument(const std::string& name, std::string_view bytes)
{
    TreeSink sink(name);
    ReadXml(name, bytes, sink);
    return sink.Take();
}

std::map<std::string, size_t> CountUnread(const XmlElement& root)
{
    std::map<std::string, size_t> counts;
    for (const XmlElement& child : root.children)
        Count(child, root.name, counts);
    return counts;
}

void RefuseDocumentType(const std::string& name, size_t line)
{
    RefuseInput(name + ":" + std::to_string(line) +
                ": the document declares a document type; such declarations, and the entities in them, are refused");
}
