// Reads the routine file. One function per object of the file; each asks for its keys by name, and what nobody asked
// for is refused.
#include "tools/lvprop/JsonDocument.h"
#include "tools/lvprop/Keywords.h"
#include "tools/lvprop/RoutineFile.h"

#include <cmath>
#include <concepts>
#include <cstdint>
#include <limits>
#include <unordered_set>

namespace {

/// A value together with its document and path: everything that a message about it needs.
class Cursor {
public:
    Cursor(const JsonDocument& document, const JsonValue& value, std::string path)
        : m_document(&document), m_value(&value), m_path(std::move(path))
    {
    }

    [[noreturn]] void Refuse(const std::string& reason) const { m_document->Refuse(*m_value, m_path, reason); }

    const std::string& AsText() const
    {
        if (const std::string* text = m_value->AsString())
            return *text;
        Refuse("expected a text");
    }

    bool AsBoolean() const
    {
        if (const bool* flag = std::get_if<bool>(&m_value->content))
            return *flag;
        Refuse("expected true or false");
    }

    double AsNumber() const
    {
        if (const auto* whole = std::get_if<std::int64_t>(&m_value->content))
            return static_cast<double>(*whole);
        if (const auto* number = std::get_if<double>(&m_value->content))
            return *number;
        Refuse("expected a number");
    }

    /// A whole number of 32 bits. @param lowest  the smallest number that makes sense here.
    LONG AsLong(std::int64_t lowest = std::numeric_limits<std::int32_t>::min(),
                std::int64_t highest = std::numeric_limits<std::int32_t>::max()) const
    {
        const auto* whole = std::get_if<std::int64_t>(&m_value->content);
        if (!whole)
            Refuse("expected a whole number");
        if (*whole < lowest || *whole > highest)
            Refuse("expected a whole number from " + std::to_string(lowest) + " to " + std::to_string(highest));
        return static_cast<LONG>(static_cast<std::uint32_t>(*whole));
    }

    template <class Enumeration>
    Enumeration AsWord(std::span<const Keyword> words) const
    {
        const std::string& word = AsText();
        if (const auto value = ValueOf(words, word))
            return static_cast<Enumeration>(*value);
        Refuse("unknown word \"" + word + "\"; known are " + ListOf(words));
    }

    /// Runs body(Cursor) on each element.
    template <class Body>
    void ForEach(Body&& body) const
    {
        const JsonValue::Array* array = m_value->AsArray();
        if (!array)
            Refuse("expected an array");
        for (size_t i = 0; i < array->size(); ++i)
            body(Cursor(*m_document, (*array)[i], m_path + "/" + std::to_string(i)));
    }

    RoutinePoint AsPoint() const
    {
        RoutinePoint point{};
        size_t count = 0;
        ForEach([&](const Cursor& coordinate) {
            if (count < 3)
                point[count] = coordinate.AsNumber();
            ++count;
        });
        if (count != 3)
            Refuse("expected three numbers");
        return point;
    }

    bool IsArray() const { return m_value->AsArray() != nullptr; }
    bool IsText() const { return m_value->AsString() != nullptr; }

    const JsonDocument& Document() const { return *m_document; }
    const JsonValue& Value() const { return *m_value; }
    const std::string& Path() const { return m_path; }

private:
    const JsonDocument* m_document;
    const JsonValue* m_value;
    std::string m_path;
};

/// The members of one object. Done() refuses the keys that were never asked for.
class Fields {
public:
    explicit Fields(const Cursor& object) : m_object(object), m_members(object.Value().AsObject())
    {
        if (!m_members)
            object.Refuse("expected an object");
    }

    std::optional<Cursor> Find(std::string_view key)
    {
        m_known.append(m_known.empty() ? "" : ", ").append(key);
        for (size_t i = 0; i < m_members->size(); ++i) {
            const JsonValue::Member& member = (*m_members)[i];
            if (member.key != key)
                continue;
            m_asked.insert(i);
            return Cursor(m_object.Document(), member.value, m_object.Path() + "/" + member.key);
        }
        return std::nullopt;
    }

    Cursor Require(std::string_view key)
    {
        if (auto found = Find(key))
            return *found;
        m_object.Refuse("the key \"" + std::string(key) + "\" is missing");
    }

    void Done() const
    {
        for (size_t i = 0; i < m_members->size(); ++i)
            if (!m_asked.contains(i)) {
                const JsonValue::Member& member = (*m_members)[i];
                m_object.Document().Refuse(member.value, m_object.Path() + "/" + member.key,
                                           "unknown key; known are " + m_known);
            }
    }

    void Read(std::string_view key, bool& to)
    {
        With(key, [&](const Cursor& at) { to = at.AsBoolean(); });
    }
    void Read(std::string_view key, double& to)
    {
        With(key, [&](const Cursor& at) { to = at.AsNumber(); });
    }
    void Read(std::string_view key, LONG& to)
    {
        With(key, [&](const Cursor& at) { to = at.AsLong(); });
    }
    void Read(std::string_view key, std::string& to)
    {
        With(key, [&](const Cursor& at) { to = at.AsText(); });
    }

    template <class Enumeration>
    void Read(std::string_view key, Enumeration& to, std::span<const Keyword> words)
    {
        With(key, [&](const Cursor& at) { to = at.AsWord<Enumeration>(words); });
    }

    template <class Body>
    void With(std::string_view key, Body&& body)
    {
        if (const auto found = Find(key))
            body(*found);
    }

private:
    Cursor m_object;
    const JsonValue::Object* m_members;
    std::unordered_set<size_t> m_asked;
    std::string m_known;
};

LONG ReadEditFlags(const Cursor& at)
{
    if (!at.IsArray())
        return at.AsLong();
    LONG flags = 0;
    at.ForEach([&](const Cursor& word) { flags |= word.AsWord<LONG>(kEditFlagWords); });
    return flags;
}

RoutineLinearTolerance ReadLinear(const Cursor& at)
{
    RoutineLinearTolerance part;
    Fields fields(at);
    fields.Read("active", part.active);
    fields.Read("nominal", part.nominal);
    fields.Read("upper", part.upper);
    fields.Read("lower", part.lower);
    fields.Read("absolute", part.absolute);
    fields.Read("editFlags", part.editFlags);
    fields.Read("status", part.status, kStatusWords);
    fields.Read("measured", part.measured);
    fields.Read("error", part.error);
    fields.Done();
    return part;
}

void ReadDatums(const Cursor& at, RoutineGeometricTolerance& part)
{
    size_t place = 0;
    at.ForEach([&](const Cursor& datum) {
        if (place == 3)
            datum.Refuse("a reference frame has three datums");
        part.datums[place] = datum.AsText();
        part.datumActive[place] = !part.datums[place].empty();
        ++place;
    });
}

RoutineGeometricTolerance ReadGeometric(const Cursor& at)
{
    RoutineGeometricTolerance part;
    Fields fields(at);
    fields.Read("active", part.active);
    fields.Read("kind", part.kind, kGeometricKindWords);
    fields.Read("value", part.value);
    fields.Read("radial", part.radial);
    fields.Read("modifier", part.modifier, kModifierWords);
    fields.With("datums", [&](const Cursor& datums) { ReadDatums(datums, part); });
    fields.With("datumsActive", [&](const Cursor& flags) {
        size_t place = 0;
        flags.ForEach([&](const Cursor& flag) {
            if (place == 3)
                flag.Refuse("a reference frame has three datums");
            part.datumActive[place++] = flag.AsBoolean();
        });
    });
    fields.Read("editFlags", part.editFlags);
    fields.Read("status", part.status, kStatusWords);
    fields.Read("measured", part.measured);
    fields.Read("error", part.error);
    fields.Done();
    return part;
}

RoutineFormTolerance ReadForm(const Cursor& at)
{
    RoutineFormTolerance part;
    Fields fields(at);
    fields.Read("active", part.active);
    fields.Read("nominal", part.nominal);
    fields.Read("status", part.status, kStatusWords);
    fields.Read("measured", part.measured);
    fields.Read("error", part.error);
    fields.Read("allowEdit", part.allowEdit);
    fields.Done();
    return part;
}

RoutineTolerance ReadTolerance(const Cursor& at)
{
    RoutineTolerance tolerance;
    Fields fields(at);
    tolerance.type = fields.Require("type").AsWord<EprpToleranceType>(kToleranceTypeWords);
    fields.Read("default", tolerance.markAsDefault);
    fields.Read("none", tolerance.markAsNone);
    fields.With("form", [&](const Cursor& form) { tolerance.form = ReadForm(form); });
    constexpr std::string_view kAxes[] = {"x", "y", "z"};
    for (size_t i = 0; i < tolerance.PartCount(); ++i) {
        if (tolerance.IsLinear())
            fields.With(kAxes[i], [&](const Cursor& part) { tolerance.linear[i] = ReadLinear(part); });
        else
            fields.With(kAxes[i], [&](const Cursor& part) { tolerance.geometric[i] = ReadGeometric(part); });
    }
    fields.Done();
    return tolerance;
}

RoutinePath ReadPath(const Cursor& at)
{
    RoutinePath path;
    at.ForEach([&](const Cursor& point) { path.push_back(point.AsPoint()); });
    return path;
}

/// The JSON kind follows the data type: number, whole number, text, three numbers, object or list of points.
RoutineValue ReadValue(const Cursor& at, EprpPropDataType type)
{
    constexpr std::int64_t kMaxDword = std::numeric_limits<std::uint32_t>::max();
    switch (type) {
    case E_PROP_DT_ANGLE:
    case E_PROP_DT_LINEAR:
    case E_PROP_DT_DOUBLE:
    case E_PROP_DT_FORM:
    case E_PROP_DT_FULL_PRECISION: return at.AsNumber();
    case E_PROP_DT_LONG:
    case E_PROP_DT_ENUM: return at.AsLong();
    case E_PROP_DT_DWORD: return at.AsLong(0, kMaxDword);
    case E_PROP_DT_TOLERANCE: return ReadTolerance(at);
    case E_PROP_DT_POSITION:
    case E_PROP_DT_VECTOR: return at.AsPoint();
    case E_PROP_DT_SCAN_PATH_LIST: return ReadPath(at);
    case E_PROP_DT_NONE: at.Refuse("a property of type none has no value");
    default: return at.AsText();
    }
}

std::vector<RoutineEnumItem> ReadEnumItems(const Cursor& at)
{
    std::vector<RoutineEnumItem> items;
    at.ForEach([&](const Cursor& element) {
        RoutineEnumItem item;
        item.index = items.empty() ? 0 : items.back().index + 1;
        Fields fields(element);
        fields.With("index", [&](const Cursor& index) { item.index = index.AsLong(0, 65535); });
        item.value = fields.Require("value").AsLong();
        fields.Read("text", item.text);
        fields.With("resource", [&](const Cursor& resource) { item.resource = resource.AsLong(0); });
        fields.Read("show", item.show);
        fields.Done();
        items.push_back(std::move(item));
    });
    return items;
}

RoutineBound ReadBound(const Cursor& at, EprpPropDataType type)
{
    RoutineBound bound;
    Fields fields(at);
    const Cursor value = fields.Require("value");
    bound.value = IsIntegerType(type) ? static_cast<double>(value.AsLong()) : value.AsNumber();
    fields.Read("logic", bound.logic, kBoundLogicWords);
    fields.Done();
    return bound;
}

void ReadBounds(const Cursor& at, RoutineProperty& property)
{
    Fields fields(at);
    fields.With("lower", [&](const Cursor& bound) { property.lowerBound = ReadBound(bound, property.type); });
    fields.With("upper", [&](const Cursor& bound) { property.upperBound = ReadBound(bound, property.type); });
    fields.Done();
}

RoutineRule ReadRule(const Cursor& at)
{
    RoutineRule rule;
    Fields fields(at);
    fields.Require("controls").ForEach([&](const Cursor& id) { rule.controls.push_back(id.AsLong(1)); });
    fields.With("rows", [&](const Cursor& rows) {
        rows.ForEach([&](const Cursor& row) {
            std::vector<LONG> values;
            row.ForEach([&](const Cursor& value) { values.push_back(value.AsLong()); });
            if (values.size() != rule.controls.size())
                row.Refuse("a row has one value for each controlling property");
            rule.rows.push_back(std::move(values));
        });
    });
    fields.Done();
    return rule;
}

RoutineProperty ReadProperty(const Cursor& at)
{
    RoutineProperty property;
    Fields fields(at);
    property.id = fields.Require("id").AsLong(1);
    property.type = fields.Require("type").AsWord<EprpPropDataType>(kDataTypeWords);
    property.editFlags = DefaultEditFlags(property.type);
    fields.With("parent", [&](const Cursor& parent) { property.parent = parent.AsLong(1); });
    fields.Read("name", property.name);
    fields.With("nameResource", [&](const Cursor& id) { property.nameResource = id.AsLong(0); });
    fields.With("value", [&](const Cursor& value) { property.value = ReadValue(value, property.type); });
    fields.With("text", [&](const Cursor& text) { property.text = text.AsText(); });
    fields.Read("visible", property.visible);
    fields.With("visibleForPostProc", [&](const Cursor& flag) { property.visibleForPostProc = flag.AsBoolean(); });
    fields.Read("readOnly", property.readOnly);
    fields.Read("alwaysSave", property.alwaysSave);
    fields.Read("noUnitConvert", property.noUnitConvert);
    fields.With("editFlags", [&](const Cursor& flags) { property.editFlags = ReadEditFlags(flags); });
    fields.With("linked", [&](const Cursor& id) { property.linked = id.AsLong(0); });
    fields.With("enumItems", [&](const Cursor& items) { property.enumItems = ReadEnumItems(items); });
    fields.With("bounds", [&](const Cursor& bounds) { ReadBounds(bounds, property); });
    fields.With("invalidCharacters", [&](const Cursor& text) { property.invalidCharacters = text.AsText(); });
    fields.With("visibility", [&](const Cursor& rule) { property.visibility = ReadRule(rule); });
    fields.With("postProcVisibility", [&](const Cursor& rule) { property.postProcVisibility = ReadRule(rule); });
    fields.Read("error", property.error);
    fields.Read("warning", property.warning);
    fields.Done();
    if (property.text && !std::holds_alternative<std::monostate>(property.value))
        at.Refuse("give \"value\" or \"text\", not both");
    return property;
}

/// Ids are unique and a parent stands ahead of its children, as AddProperty asks.
std::vector<RoutineProperty> ReadProperties(const Cursor& at)
{
    std::vector<RoutineProperty> properties;
    std::unordered_set<LONG> ids;
    at.ForEach([&](const Cursor& element) {
        RoutineProperty property = ReadProperty(element);
        Fields fields(element);
        if (property.parent != E_PROP_ID_TOP_LEVEL && !ids.contains(property.parent))
            fields.Require("parent").Refuse("no property ahead of this one has the id " +
                                            std::to_string(property.parent));
        if (!ids.insert(property.id).second)
            fields.Require("id").Refuse("another property has the id " + std::to_string(property.id));
        properties.push_back(std::move(property));
    });
    return properties;
}

std::vector<RoutineHelp> ReadHelp(const Cursor& at)
{
    std::vector<RoutineHelp> help;
    at.ForEach([&](const Cursor& element) {
        RoutineHelp entry;
        Fields fields(element);
        fields.Read("state", entry.state);
        fields.Read("property", entry.property);
        entry.text = fields.Require("text").AsText();
        fields.Done();
        help.push_back(std::move(entry));
    });
    return help;
}

} // namespace

Routine ParseRoutine(const std::string& name, std::string_view json)
{
    const JsonDocument document(name, json);
    Routine routine;
    Fields fields(Cursor(document, document.Root(), {}));
    fields.Find("$schema");
    const Cursor version = fields.Require("routineVersion");
    if (version.AsLong() != 1)
        version.Refuse("this program reads version 1");
    fields.Read("unitMode", routine.unitMode, kUnitModeWords);
    fields.Read("precision", routine.precision);
    fields.With("collectionId", [&](const Cursor& id) { routine.collectionId = id.AsLong(1); });
    fields.Read("state", routine.state);
    fields.With("maxInputValue", [&](const Cursor& limit) { routine.maxInputValue = limit.AsNumber(); });
    fields.Read("saveReadOnlyStates", routine.saveReadOnlyStates);
    fields.Read("saveEditFlags", routine.saveEditFlags);
    routine.properties = ReadProperties(fields.Require("properties"));
    fields.With("help", [&](const Cursor& help) { routine.help = ReadHelp(help); });
    fields.Done();
    return routine;
}
