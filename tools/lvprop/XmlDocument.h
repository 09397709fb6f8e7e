// An XML document as a tree that remembers what was read of it: what an importer never asked for can be told at the
// end, by kind and count.
#pragma once

#include "tools/lvprop/XmlReader.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

struct XmlElement {
    std::string name;
    std::string text; ///< the pieces joined; empty for white space alone
    std::vector<XmlAttribute> attributes;
    std::vector<XmlElement> children;
    size_t line = 0;
    mutable bool read = false;

    /// First child of that name, null if there is none. Asking marks it as read.
    const XmlElement* Child(std::string_view childName) const;

    /// The children of that name, each marked as read.
    std::vector<const XmlElement*> Children(std::string_view childName) const;

    /// All children, each marked as read.
    std::vector<const XmlElement*> AllChildren() const;

    /// Follows names from child to child; null where the path ends early.
    const XmlElement* At(std::initializer_list<std::string_view> path) const;

    /// Null if there is no such attribute. Asking marks it as read.
    const std::string* Attribute(std::string_view attributeName) const;

    /// Marks the element with all that is below it as read.
    void MarkAll() const;
};

/// Deeper nesting than this is refused; QIF documents need 14 levels.
inline constexpr size_t kMaxXmlDepth = 128;

/// Throws ToolError with name, line and reason.
XmlElement ParseXmlDocument(const std::string& name, std::string_view bytes);

/// Counts what was never read, by "Parent/Element" or "Element/@attribute". An element that only holds elements with
/// ids is told by those, as a list says less than its members. `id`, `n` and `count` are not worth telling.
std::map<std::string, size_t> CountUnread(const XmlElement& root);
