// The words of the routine file and of the tool's tables for the enumerations of the interfaces.
#pragma once

#include "LV_prpPropCollection.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <string_view>

struct Keyword {
    int value;
    std::string_view word;
};

inline constexpr Keyword kDataTypeWords[] = {
    {E_PROP_DT_NONE, "none"},
    {E_PROP_DT_ANGLE, "angle"},
    {E_PROP_DT_LINEAR, "linear"},
    {E_PROP_DT_LONG, "long"},
    {E_PROP_DT_DOUBLE, "double"},
    {E_PROP_DT_STRING_ANSI, "string"},
    {E_PROP_DT_MULTI_STRING_UNICODE, "multi_string"},
    {E_PROP_DT_TOLERANCE, "tolerance"},
    {E_PROP_DT_POSITION, "position"},
    {E_PROP_DT_VECTOR, "vector"},
    {E_PROP_DT_ENUM, "enum"},
    {E_PROP_DT_DATE, "date"},
    {E_PROP_DT_FORM, "form"},
    {E_PROP_DT_STATEMENT, "statement"},
    {E_PROP_DT_FULL_PRECISION, "full_precision"},
    {E_PROP_DT_STRING_UNICODE, "string_unicode"},
    {E_PROP_DT_DWORD, "dword"},
    {E_PROP_DT_SCAN_PATH_LIST, "scan_path_list"},
    {E_PROP_DT_CATEGORY, "category"},
    {E_PROP_DT_POINTS_LIST, "points_list"},
};

inline constexpr Keyword kUnitModeWords[] = {{E_METRIC, "metric"}, {E_IMPERIAL, "imperial"}};

inline constexpr Keyword kToleranceTypeWords[] = {
    {E_TOL_TYPE_NONE, "none"},
    {E_TOL_TYPE_LINEAR, "linear"},
    {E_TOL_TYPE_ANGULAR, "angular"},
    {E_TOL_TYPE_RECTANGULAR, "rectangular"},
    {E_TOL_TYPE_GDT_LINEAR, "geometric"},
    {E_TOL_TYPE_GDT_RECTANGULAR, "geometric_rectangular"},
};

inline constexpr Keyword kGeometricKindWords[] = {
    {E_GDT_TYPE_NONE, "none"},
    {E_GDT_TYPE_TRUE_POSITION, "position"},
    {E_GDT_TYPE_CONCENTRICITY, "concentricity"},
    {E_GDT_TYPE_LINE_PROFILE, "line_profile"},
    {E_GDT_TYPE_SURFACE_PROFILE, "surface_profile"},
    {E_GDT_TYPE_ANGULARITY, "angularity"},
    {E_GDT_TYPE_PERPENDICULARITY, "perpendicularity"},
    {E_GDT_TYPE_PARALLELISM, "parallelism"},
    {E_GDT_TYPE_RUNOUT, "runout"},
    {E_GDT_TYPE_TOTAL_RUNOUT, "total_runout"},
    {E_GDT_TYPE_FLATNESS, "flatness"},
    {E_GDT_TYPE_STRAIGHTNESS, "straightness"},
    {E_GDT_TYPE_CIRCULARITY, "circularity"},
    {E_GDT_TYPE_CYLINDRICITY, "cylindricity"},
};

inline constexpr Keyword kModifierWords[] = {
    {E_GDT_MAT_MOD_NONE, "none"},
    {E_GDT_MAT_MOD_MMC, "maximum"},
    {E_GDT_MAT_MOD_LMC, "least"},
    {E_GDT_MAT_MOD_RFS, "regardless"},
};

inline constexpr Keyword kStatusWords[] = {
    {E_TOL_STATUS_NOT_CALCULATED, "not_calculated"},
    {E_TOL_STATUS_IN_TOL, "in_tolerance"},
    {E_TOL_STATUS_OUT_OF_TOL, "out_of_tolerance"},
};

inline constexpr Keyword kBoundLogicWords[] = {
    {E_PRP_BOUND_LOGIC_NONE, "none"}, {E_PRP_BOUND_LOGIC_GT, "gt"}, {E_PRP_BOUND_LOGIC_GE, "ge"},
    {E_PRP_BOUND_LOGIC_LT, "lt"},     {E_PRP_BOUND_LOGIC_LE, "le"}, {E_PRP_BOUND_LOGIC_NE, "ne"},
};

inline constexpr Keyword kEditFlagWords[] = {
    {E_PROP_EDIT_VALUE, "value"},
    {E_PROP_EDIT_SHOW_EXTENDED_INFO, "extended_info"},
    {E_PRP_INFO_AVAILABLE_IN_MACRO_MODE, "macro_mode"},
};

inline constexpr Keyword kEventWords[] = {
    {E_PROP_EVENT_NONE, "none"},
    {E_PROP_EVENT_PROP_EDITED, "edited"},
    {E_PROP_EVENT_PROP_ADDED, "added"},
    {E_PROP_EVENT_PROP_DELETED, "deleted"},
    {E_PROP_EVENT_COLLECTION_LOADED, "loaded"},
};

/// The word of a value; the bare number for one that has none.
template <class Value>
std::string WordOf(std::span<const Keyword> words, Value value)
{
    const auto found = std::ranges::find(words, static_cast<int>(value), &Keyword::value);
    return found != words.end() ? std::string(found->word) : std::to_string(static_cast<int>(value));
}

inline std::optional<int> ValueOf(std::span<const Keyword> words, std::string_view word)
{
    const auto found = std::ranges::find(words, word, &Keyword::word);
    return found != words.end() ? std::optional(found->value) : std::nullopt;
}

/// "a, b, c" for messages.
inline std::string ListOf(std::span<const Keyword> words)
{
    std::string list;
    for (const Keyword& keyword : words)
        list.append(list.empty() ? "" : ", ").append(keyword.word);
    return list;
}
