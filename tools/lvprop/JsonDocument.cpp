#include "tools/lvprop/JsonDocument.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iterator>
#include <unordered_set>

namespace {

constexpr size_t kMaxDepth = 64;

/// Hands the parser one byte at a time and notes how far it has come. The parser copies its iterators, so the note
/// stands outside.
class TrackedIterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    TrackedIterator(const char* at, const char** reached) : m_at(at), m_reached(reached) {}
    reference operator*() const { return *m_at; }
    TrackedIterator& operator++()
    {
        *m_reached = ++m_at;
        return *this;
    }
    TrackedIterator operator++(int)
    {
        TrackedIterator before = *this;
        ++*this;
        return before;
    }
    friend bool operator==(const TrackedIterator& a, const TrackedIterator& b) { return a.m_at == b.m_at; }

private:
    const char* m_at;
    const char** m_reached;
};

/// A fault found while the tree grows; the document adds the line.
struct Fault {
    size_t offset;
    std::string key;
    std::string reason;
};

/// Receives the parser's events and builds the tree. Throws Fault.
class TreeBuilder {
public:
    using number_integer_t = std::int64_t;
    using number_unsigned_t = std::uint64_t;
    using number_float_t = double;
    using string_t = std::string;
    using binary_t = nlohmann::json::binary_t;

    TreeBuilder(const char* start, const char* const* reached) : m_start(start), m_reached(reached) {}

    JsonValue Take() { return std::move(m_root); }

    bool null() { return Add(nullptr); }
    bool boolean(bool value) { return Add(value); }
    bool number_integer(number_integer_t value) { return AddNumber(value); }
    bool number_unsigned(number_unsigned_t value)
    {
        if (value > static_cast<std::uint64_t>(INT64_MAX))
            return AddNumber(static_cast<double>(value));
        return AddNumber(static_cast<std::int64_t>(value));
    }
    bool number_float(number_float_t value, const string_t&) { return AddNumber(value); }
    bool string(string_t& value) { return Add(std::move(value)); }
    bool binary(binary_t&) { return false; }

    bool start_object(size_t) { return Open(JsonValue::Object{}); }
    bool start_array(size_t) { return Open(JsonValue::Array{}); }
    bool end_object() { return Close(); }
    bool end_array() { return Close(); }

    bool key(string_t& name)
    {
        Level& level = m_levels.back();
        if (!level.keys.insert(name).second)
            throw Fault{Offset(), PathOf(name), "the key stands twice in its object"};
        std::get<JsonValue::Object>(level.value.content).push_back({std::move(name), {}});
        return true;
    }

    bool parse_error(size_t position, const std::string&, const nlohmann::detail::exception& error)
    {
        // The parser's own text opens with an exception id and a place; the reason follows the last colon pair.
        std::string reason = error.what();
        if (const size_t cut = reason.find("syntax error"); cut != std::string::npos)
            reason.erase(0, cut);
        throw Fault{position > 0 ? position - 1 : 0, PathOf({}), reason};
    }

private:
    struct Level {
        JsonValue value;
        std::unordered_set<std::string> keys;
    };

    size_t Offset() const { return static_cast<size_t>(*m_reached - m_start); }

    /// A number ends where its follower begins, and the parser has taken that one byte more.
    bool AddNumber(auto value)
    {
        const size_t offset = Offset();
        return AddAt(value, offset > 0 ? offset - 1 : 0);
    }
    bool Add(auto value) { return AddAt(std::move(value), Offset()); }
    bool AddAt(auto value, size_t offset)
    {
        JsonValue made;
        made.content = std::move(value);
        made.offset = offset;
        Attach(std::move(made));
        return true;
    }

    bool Open(auto container)
    {
        if (m_levels.size() >= kMaxDepth)
            throw Fault{Offset(), PathOf({}), "nested deeper than " + std::to_string(kMaxDepth) + " levels"};
        Level level;
        level.value.content = std::move(container);
        level.value.offset = Offset();
        m_levels.push_back(std::move(level));
        return true;
    }

    bool Close()
    {
        JsonValue value = std::move(m_levels.back().value);
        m_levels.pop_back();
        Attach(std::move(value));
        return true;
    }

    void Attach(JsonValue value)
    {
        if (m_levels.empty())
            m_root = std::move(value);
        else if (auto* array = std::get_if<JsonValue::Array>(&m_levels.back().value.content))
            array->push_back(std::move(value));
        else
            std::get<JsonValue::Object>(m_levels.back().value.content).back().value = std::move(value);
    }

    /// Path of the value that is being read, with an optional key behind it.
    std::string PathOf(const std::string& last) const
    {
        std::string path;
        for (size_t i = 0; i + 1 < m_levels.size(); ++i)
            path += "/" + StepInto(m_levels[i].value);
        if (!last.empty())
            path += "/" + last;
        return path;
    }

    static std::string StepInto(const JsonValue& container)
    {
        if (const auto* array = container.AsArray())
            return std::to_string(array->size());
        const auto* object = container.AsObject();
        return object->empty() ? std::string() : object->back().key;
    }

    const char* m_start;
    const char* const* m_reached;
    JsonValue m_root;
    std::vector<Level> m_levels;
};

std::vector<size_t> LineStartsOf(std::string_view text)
{
    std::vector<size_t> starts{0};
    for (size_t i = 0; i < text.size(); ++i)
        if (text[i] == '\n')
            starts.push_back(i + 1);
    return starts;
}

} // namespace

JsonDocument::JsonDocument(std::string name, std::string_view text)
    : m_name(std::move(name)), m_lineStarts(LineStartsOf(text))
{
    const char* reached = text.data();
    TreeBuilder builder(text.data(), &reached);
    try {
        const TrackedIterator first(text.data(), &reached);
        const TrackedIterator last(text.data() + text.size(), &reached);
        nlohmann::json::sax_parse(first, last, &builder);
    } catch (const Fault& fault) {
        RefuseAt(fault.offset, fault.key, fault.reason);
    }
    m_root = builder.Take();
}

void JsonDocument::Refuse(const JsonValue& value, const std::string& key, const std::string& reason) const
{
    RefuseAt(value.offset, key, reason);
}

void JsonDocument::RefuseAt(size_t offset, const std::string& key, const std::string& reason) const
{
    // An offset is that of the byte behind the value, so a line end there still belongs to the value's line.
    const size_t last = offset > 0 ? offset - 1 : 0;
    const auto after = std::upper_bound(m_lineStarts.begin(), m_lineStarts.end(), last);
    const auto line = std::distance(m_lineStarts.begin(), after);
    RefuseInput(m_name + ":" + std::to_string(line) + ": " + (key.empty() ? "" : key + ": ") + reason);
}
