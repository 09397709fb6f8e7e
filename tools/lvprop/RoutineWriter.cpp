// Writes the routine file: keys in reading order, defaults left out.
#include "tools/lvprop/Keywords.h"
#include "tools/lvprop/RoutineFile.h"
#include "tools/lvprop/RoutineJson.h"

#include <cmath>
#include <cstdint>

namespace {

/// Whole numbers are written without a point, so that a file written by hand and by the tool look alike.
Json NumberJson(double number)
{
    constexpr double kExactLimit = 1e15;
    if (number == std::floor(number) && std::fabs(number) < kExactLimit && !std::signbit(number))
        return static_cast<std::int64_t>(number);
    return number;
}

Json PointJson(const RoutinePoint& point)
{
    return Json::array({NumberJson(point[0]), NumberJson(point[1]), NumberJson(point[2])});
}

template <class Value>
void Put(Json& object, const char* key, const Value& value, const Value& usual)
{
    if (value != usual)
        object[key] = value;
}

void PutNumber(Json& object, const char* key, double value)
{
    if (value != 0)
        object[key] = NumberJson(value);
}

template <class Enumeration>
void PutWord(Json& object, const char* key, Enumeration value, Enumeration usual, std::span<const Keyword> words)
{
    if (value != usual)
        object[key] = WordOf(words, value);
}

template <class Part>
void PutOutcome(Json& object, const Part& part)
{
    PutWord(object, "status", part.status, E_TOL_STATUS_NOT_CALCULATED, kStatusWords);
    PutNumber(object, "measured", part.measured);
    PutNumber(object, "error", part.error);
}

Json PartJson(const RoutineLinearTolerance& part)
{
    Json object = Json::object();
    Put(object, "active", part.active, true);
    object["nominal"] = NumberJson(part.nominal);
    object["upper"] = NumberJson(part.upper);
    object["lower"] = NumberJson(part.lower);
    Put(object, "absolute", part.absolute, false);
    Put(object, "editFlags", part.editFlags, LONG{0});
    PutOutcome(object, part);
    return object;
}

Json DatumsJson(const RoutineGeometricTolerance& part)
{
    size_t count = 3;
    while (count > 0 && part.datums[count - 1].empty())
        --count;
    Json datums = Json::array();
    for (size_t i = 0; i < count; ++i)
        datums.push_back(part.datums[i]);
    return datums;
}

Json PartJson(const RoutineGeometricTolerance& part)
{
    Json object = Json::object();
    Put(object, "active", part.active, true);
    object["kind"] = WordOf(kGeometricKindWords, part.kind);
    object["value"] = NumberJson(part.value);
    Put(object, "radial", part.radial, false);
    PutWord(object, "modifier", part.modifier, E_GDT_MAT_MOD_NONE, kModifierWords);
    if (const Json datums = DatumsJson(part); !datums.empty())
        object["datums"] = datums;
    bool usual = true;
    for (size_t i = 0; i < 3; ++i)
        usual = usual && part.datumActive[i] == !part.datums[i].empty();
    if (!usual)
        object["datumsActive"] = part.datumActive;
    Put(object, "editFlags", part.editFlags, LONG{0});
    PutOutcome(object, part);
    return object;
}

Json FormJson(const RoutineFormTolerance& form)
{
    Json object = Json::object();
    Put(object, "active", form.active, true);
    object["nominal"] = NumberJson(form.nominal);
    PutOutcome(object, form);
    Put(object, "allowEdit", form.allowEdit, false);
    return object;
}

Json ToleranceJson(const RoutineTolerance& tolerance)
{
    Json object = Json::object();
    object["type"] = WordOf(kToleranceTypeWords, tolerance.type);
    Put(object, "default", tolerance.markAsDefault, false);
    Put(object, "none", tolerance.markAsNone, false);
    if (tolerance.form)
        object["form"] = FormJson(*tolerance.form);
    constexpr const char* kAxes[] = {"x", "y", "z"};
    for (size_t i = 0; i < tolerance.PartCount(); ++i)
        object[kAxes[i]] = tolerance.IsLinear() ? PartJson(tolerance.linear[i]) : PartJson(tolerance.geometric[i]);
    return object;
}

Json PathJson(const RoutinePath& path)
{
    Json points = Json::array();
    for (const RoutinePoint& point : path)
        points.push_back(PointJson(point));
    return points;
}

struct ValueJson {
    EprpPropDataType type;
    Json operator()(std::monostate) const { return nullptr; }
    Json operator()(double number) const { return NumberJson(number); }
    Json operator()(LONG number) const
    {
        return type == E_PROP_DT_DWORD ? Json(static_cast<std::uint32_t>(number)) : Json(std::int32_t{number});
    }
    Json operator()(const std::string& text) const { return text; }
    Json operator()(const RoutinePoint& point) const { return PointJson(point); }
    Json operator()(const RoutineTolerance& tolerance) const { return ToleranceJson(tolerance); }
    Json operator()(const RoutinePath& path) const { return PathJson(path); }
};

/// Words when each bit has one, else the number.
Json EditFlagsJson(LONG flags)
{
    Json words = Json::array();
    LONG left = flags;
    for (const Keyword& keyword : kEditFlagWords)
        if (left & keyword.value) {
            words.push_back(keyword.word);
            left &= ~keyword.value;
        }
    return left == 0 ? words : Json(std::int32_t{flags});
}

Json EnumItemsJson(const std::vector<RoutineEnumItem>& items)
{
    Json array = Json::array();
    LONG expected = 0;
    for (const RoutineEnumItem& item : items) {
        Json object = Json::object();
        Put(object, "index", item.index, expected);
        object["value"] = item.value;
        Put(object, "text", item.text, std::string());
        Put(object, "resource", item.resource, LONG{0});
        Put(object, "show", item.show, true);
        array.push_back(std::move(object));
        expected = item.index + 1;
    }
    return array;
}

Json BoundJson(const RoutineBound& bound)
{
    Json object = Json::object();
    object["value"] = NumberJson(bound.value);
    PutWord(object, "logic", bound.logic, E_PRP_BOUND_LOGIC_NONE, kBoundLogicWords);
    return object;
}

Json RuleJson(const RoutineRule& rule)
{
    Json object = Json::object();
    object["controls"] = rule.controls;
    if (!rule.rows.empty())
        object["rows"] = rule.rows;
    return object;
}

void PutRules(Json& object, const RoutineProperty& property)
{
    if (property.lowerBound)
        object["bounds"]["lower"] = BoundJson(*property.lowerBound);
    if (property.upperBound)
        object["bounds"]["upper"] = BoundJson(*property.upperBound);
    if (property.invalidCharacters)
        object["invalidCharacters"] = *property.invalidCharacters;
    if (property.visibility)
        object["visibility"] = RuleJson(*property.visibility);
    if (property.postProcVisibility)
        object["postProcVisibility"] = RuleJson(*property.postProcVisibility);
}

Json HelpJson(const RoutineHelp& help)
{
    Json object = Json::object();
    Put(object, "state", help.state, LONG{-1});
    Put(object, "property", help.property, LONG{-1});
    object["text"] = help.text;
    return object;
}

} // namespace

Json PropertyJson(const RoutineProperty& property)
{
    Json object = Json::object();
    object["id"] = property.id;
    Put(object, "parent", property.parent, LONG{E_PROP_ID_TOP_LEVEL});
    Put(object, "name", property.name, std::string());
    Put(object, "nameResource", property.nameResource, LONG{0});
    object["type"] = WordOf(kDataTypeWords, property.type);
    if (!std::holds_alternative<std::monostate>(property.value))
        object["value"] = std::visit(ValueJson{property.type}, property.value);
    if (property.text)
        object["text"] = *property.text;
    Put(object, "visible", property.visible, true);
    if (property.visibleForPostProc)
        object["visibleForPostProc"] = *property.visibleForPostProc;
    Put(object, "readOnly", property.readOnly, false);
    Put(object, "alwaysSave", property.alwaysSave, true);
    Put(object, "noUnitConvert", property.noUnitConvert, false);
    if (property.editFlags != DefaultEditFlags(property.type))
        object["editFlags"] = EditFlagsJson(property.editFlags);
    Put(object, "linked", property.linked, LONG{0});
    if (!property.enumItems.empty())
        object["enumItems"] = EnumItemsJson(property.enumItems);
    PutRules(object, property);
    Put(object, "error", property.error, std::string());
    Put(object, "warning", property.warning, std::string());
    return object;
}

std::string WriteRoutine(const Routine& routine)
{
    Json root = Json::object();
    root["routineVersion"] = 1;
    root["unitMode"] = WordOf(kUnitModeWords, routine.unitMode);
    Put(root, "precision", routine.precision, LONG{4});
    if (routine.collectionId)
        root["collectionId"] = *routine.collectionId;
    Put(root, "state", routine.state, LONG{0});
    if (routine.maxInputValue)
        root["maxInputValue"] = NumberJson(*routine.maxInputValue);
    Put(root, "saveReadOnlyStates", routine.saveReadOnlyStates, true);
    Put(root, "saveEditFlags", routine.saveEditFlags, true);
    root["properties"] = Json::array();
    for (const RoutineProperty& property : routine.properties)
        root["properties"].push_back(PropertyJson(property));
    for (const RoutineHelp& help : routine.help)
        root["help"].push_back(HelpJson(help));
    return FormatJson(root);
}
