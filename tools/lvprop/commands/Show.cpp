// lvprop show: the tree as a table.
#include "tools/lvprop/Command.h"
#include "tools/lvprop/Inputs.h"
#include "tools/lvprop/Keywords.h"
#include "tools/lvprop/RoutineJson.h"

#include <algorithm>

namespace {

constexpr size_t kValueColumns = 60;
constexpr size_t kTextColumns = 40;

constexpr const char* kExamples = R"(  lvprop show plate.json              every property with the values of the routine
  lvprop show plate.json plate.txt    ... after the saved text was loaded
  lvprop show plate.json --json       the same for a program

Flags: v visible, p visible for post-processing, r read-only, s saved, u kept out of unit conversion; behind them the
edit flags in hexadecimal.)";

std::string FlagLetters(const RoutineProperty& property)
{
    std::string letters;
    const auto add = [&](char letter, bool isSet) { letters += isSet ? letter : '-'; };
    add('v', property.visible);
    add('p', property.visibleForPostProc.value_or(false));
    add('r', property.readOnly);
    add('s', property.alwaysSave);
    add('u', property.noUnitConvert);
    char hex[16];
    std::snprintf(hex, sizeof hex, " %X", static_cast<unsigned>(property.editFlags));
    return letters + hex;
}

/// Levels beyond the last that shows are indented no further: a table is as wide as its widest cell in every row.
std::string Indent(size_t depth)
{
    constexpr size_t kLastLevel = 24;
    return std::string(2 * std::min(depth, kLastLevel), ' ');
}

std::string ShownValue(const TreeProperty& read)
{
    if (!read.itemText.empty())
        return read.itemText + " [" + read.shown + "]";
    return read.shown;
}

Json JsonOf(const TreeProperty& read)
{
    Json json = PropertyJson(read.property);
    json["shown"] = read.shown;
    if (!read.itemText.empty())
        json["itemText"] = read.itemText;
    json["valid"] = read.isValid;
    json["inWarning"] = read.isInWarning;
    return json;
}

void PrintTable(const std::vector<TreeProperty>& properties, const Console& console)
{
    Table table({{"id", true}, {"name"}, {"type"}, {"value"}, {"flags"}, {"error"}, {"warning"}});
    for (const TreeProperty& read : properties) {
        const RoutineProperty& property = read.property;
        const Colour colour = property.type == E_PROP_DT_CATEGORY ? Colour::Bold
                              : property.visible                  ? Colour::None
                                                                  : Colour::Dim;
        table.Add({std::to_string(property.id),
                   {Indent(read.depth) + OneLine(property.name, kValueColumns), colour},
                   WordOf(kDataTypeWords, property.type),
                   OneLine(ShownValue(read), kValueColumns),
                   FlagLetters(property),
                   {OneLine(property.error, kTextColumns), Colour::Red},
                   {OneLine(property.warning, kTextColumns), Colour::Yellow}});
    }
    table.Print(console);
    console.out << properties.size() << (properties.size() == 1 ? " property" : " properties") << '\n';
}

ExitStatus RunShow(const TreeInputs& inputs, const Console& console)
{
    const LoadedTree loaded = OpenTree(inputs, console);
    const std::vector<TreeProperty> properties = loaded.tree.Read();
    if (console.json) {
        Json json = {{"unitMode", WordOf(kUnitModeWords, loaded.routine.unitMode)}, {"properties", Json::array()}};
        for (const TreeProperty& read : properties)
            json["properties"].push_back(JsonOf(read));
        console.out << FormatJson(json);
    } else {
        PrintTable(properties, console);
    }
    return loaded.isComplete ? ExitStatus::Fine : ExitStatus::DataHasFaults;
}

} // namespace

void AddShowCommand(CLI::App& tool, Action& chosen)
{
    const auto inputs = std::make_shared<TreeInputs>();
    AddTreeOptions(
        AddCommand(tool, chosen, "show", "Shows the tree of a routine as a table", kExamples, inputs, &RunShow),
        *inputs);
}
