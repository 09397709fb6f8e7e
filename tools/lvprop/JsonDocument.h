// A JSON text as a tree of values that know where they stand, so that a fault can be told with line and key.
// Numbers keep their kind; the meaning of the values belongs to the readers.
#pragma once

#include "tools/lvprop/ToolError.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

class JsonDocument;

struct JsonValue {
    using Array = std::vector<JsonValue>;
    struct Member;
    using Object = std::vector<Member>;

    std::variant<std::nullptr_t, bool, std::int64_t, double, std::string, Array, Object> content;
    size_t offset = 0; ///< byte at which the value, or the key in front of it, ends in the text

    const Array* AsArray() const { return std::get_if<Array>(&content); }
    const Object* AsObject() const { return std::get_if<Object>(&content); }
    const std::string* AsString() const { return std::get_if<std::string>(&content); }
};

struct JsonValue::Member {
    std::string key;
    JsonValue value;
};

/// Owns the text's name and the tree. Nesting deeper than 64 levels, doubled keys and trailing text are refused.
class JsonDocument {
public:
    /// @param name  how messages call the text: a file name.
    JsonDocument(std::string name, std::string_view text);

    const JsonValue& Root() const { return m_root; }

    /// Throws "name:line: key: reason".
    /// @param key  path of the value, as "/properties/3/type"; empty for the document itself.
    [[noreturn]] void Refuse(const JsonValue& value, const std::string& key, const std::string& reason) const;

private:
    [[noreturn]] void RefuseAt(size_t offset, const std::string& key, const std::string& reason) const;

    std::string m_name;
    std::vector<size_t> m_lineStarts;
    JsonValue m_root;
};
