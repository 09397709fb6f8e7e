#include "tools/lvprop/PropertyFields.h"

#include "tools/lvprop/Console.h"
#include "tools/lvprop/Keywords.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace {

constexpr std::array<const char*, 3> kAxes = {"X", "Y", "Z"};

std::string YesNo(bool flag)
{
    return flag ? "yes" : "no";
}

class FieldList {
public:
    std::vector<PropertyField> fields;

    void Add(std::string name, std::string text) { fields.push_back({std::move(name), std::move(text)}); }

    void operator()(std::monostate) {}
    void operator()(double number) { Add("value", NumberText(number)); }
    void operator()(LONG number) { Add("value", std::to_string(number)); }
    void operator()(const std::string& text) { Add("value", text); }
    void operator()(const RoutinePoint& point)
    {
        for (size_t i = 0; i < 3; ++i)
            Add(kAxes[i], NumberText(point[i]));
    }
    void operator()(const RoutinePath& path)
    {
        Add("points", std::to_string(path.size()));
        for (size_t i = 0; i < path.size(); ++i)
            Add("point " + std::to_string(i),
                NumberText(path[i][0]) + ", " + NumberText(path[i][1]) + ", " + NumberText(path[i][2]));
    }
    void operator()(const RoutineTolerance& tolerance)
    {
        Add("tolerance type", WordOf(kToleranceTypeWords, tolerance.type));
        Add("default", YesNo(tolerance.markAsDefault));
        Add("none", YesNo(tolerance.markAsNone));
        for (size_t i = 0; i < tolerance.PartCount(); ++i) {
            if (tolerance.IsLinear())
                AddPart(kAxes[i], tolerance.linear[i]);
            else
                AddPart(kAxes[i], tolerance.geometric[i]);
        }
        if (tolerance.form)
            AddPart("form", *tolerance.form);
    }

private:
    template <class Part>
    void AddOutcome(const std::string& prefix, const Part& part)
    {
        Add(prefix + "active", YesNo(part.active));
        Add(prefix + "status", WordOf(kStatusWords, part.status));
        Add(prefix + "measured", NumberText(part.measured));
        Add(prefix + "error", NumberText(part.error));
    }
    void AddPart(const std::string& axis, const RoutineLinearTolerance& part)
    {
        const std::string prefix = axis + ".";
        Add(prefix + "nominal", NumberText(part.nominal));
        Add(prefix + "upper", NumberText(part.upper));
        Add(prefix + "lower", NumberText(part.lower));
        Add(prefix + "absolute", YesNo(part.absolute));
        Add(prefix + "editFlags", std::to_string(part.editFlags));
        AddOutcome(prefix, part);
    }
    void AddPart(const std::string& axis, const RoutineGeometricTolerance& part)
    {
        const std::string prefix = axis + ".";
        Add(prefix + "kind", WordOf(kGeometricKindWords, part.kind));
        Add(prefix + "value", NumberText(part.value));
        Add(prefix + "radial", YesNo(part.radial));
        Add(prefix + "modifier", WordOf(kModifierWords, part.modifier));
        for (size_t i = 0; i < part.datums.size(); ++i) {
            Add(prefix + "datum " + std::to_string(i + 1), part.datums[i]);
            Add(prefix + "datum " + std::to_string(i + 1) + " active", YesNo(part.datumActive[i]));
        }
        Add(prefix + "editFlags", std::to_string(part.editFlags));
        AddOutcome(prefix, part);
    }
    void AddPart(const std::string& name, const RoutineFormTolerance& part)
    {
        const std::string prefix = name + ".";
        Add(prefix + "nominal", NumberText(part.nominal));
        Add(prefix + "allowEdit", YesNo(part.allowEdit));
        AddOutcome(prefix, part);
    }
};

void AddBound(FieldList& list, const std::string& name, const std::optional<RoutineBound>& bound)
{
    if (!bound)
        return;
    list.Add(name, NumberText(bound->value));
    list.Add(name + " logic", WordOf(kBoundLogicWords, bound->logic));
}

void CompareFields(const TreeProperty& before, const TreeProperty& after, std::vector<FieldDifference>& differences)
{
    const std::vector<PropertyField> left = FieldsOf(before);
    const std::vector<PropertyField> right = FieldsOf(after);
    std::unordered_map<std::string, const std::string*> texts;
    for (const PropertyField& field : right)
        texts.emplace(field.name, &field.text);
    const auto add = [&](const std::string& field, const std::string& was, const std::string& is) {
        differences.push_back(
            {before.property.id, before.property.name, WordOf(kDataTypeWords, before.property.type), field, was, is});
    };
    for (const PropertyField& field : left) {
        const auto other = texts.find(field.name);
        const std::string text = other == texts.end() ? std::string() : *other->second;
        if (field.text != text)
            add(field.name, field.text, text);
        if (other != texts.end())
            texts.erase(other);
    }
    for (const PropertyField& field : right)
        if (texts.contains(field.name) && !field.text.empty())
            add(field.name, {}, field.text);
}

} // namespace

std::vector<PropertyField> FieldsOf(const TreeProperty& read)
{
    const RoutineProperty& property = read.property;
    FieldList list;
    list.Add("type", WordOf(kDataTypeWords, property.type));
    std::visit([&](const auto& value) { list(value); }, property.value);
    list.Add("visible", YesNo(property.visible));
    list.Add("visibleForPostProc", YesNo(property.visibleForPostProc.value_or(property.visible)));
    list.Add("readOnly", YesNo(property.readOnly));
    list.Add("editFlags", std::to_string(property.editFlags));
    list.Add("parent", std::to_string(property.parent));
    list.Add("name", property.name);
    AddBound(list, "lower bound", property.lowerBound);
    AddBound(list, "upper bound", property.upperBound);
    list.Add("error text", property.error);
    list.Add("warning text", property.warning);
    list.Add("valid", YesNo(read.isValid));
    list.Add("in warning", YesNo(read.isInWarning));
    return std::move(list.fields);
}

std::vector<FieldDifference> CompareTrees(const std::vector<TreeProperty>& before,
                                          const std::vector<TreeProperty>& after)
{
    std::unordered_map<LONG, const TreeProperty*> others;
    for (const TreeProperty& property : after)
        others.emplace(property.property.id, &property);
    std::vector<FieldDifference> differences;
    const auto addWhole = [&](const RoutineProperty& property, const char* was, const char* is) {
        differences.push_back({property.id, property.name, WordOf(kDataTypeWords, property.type), "property", was, is});
    };
    for (const TreeProperty& property : before) {
        const auto other = others.find(property.property.id);
        if (other == others.end()) {
            addWhole(property.property, "there", "missing");
            continue;
        }
        CompareFields(property, *other->second, differences);
        others.erase(other);
    }
    for (const TreeProperty& property : after)
        if (others.contains(property.property.id))
            addWhole(property.property, "missing", "there");
    return differences;
}
