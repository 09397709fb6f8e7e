// What a host does in code when it builds a collection, as plain values: units, properties, rules, help texts.
// The reader and writer of the routine file and the importers fill it; the tree builder replays it on a collection.
#pragma once

#include "LV_prpPropCollection.h"

#include <array>
#include <optional>
#include <string>
#include <variant>
#include <vector>

/// X, Y and Z in the routine's unit mode; a direction for vectors.
using RoutinePoint = std::array<double, 3>;

struct RoutineFormTolerance {
    EprpTolStatus status = E_TOL_STATUS_NOT_CALCULATED;
    bool active = true;
    double nominal = 0;
    double measured = 0;
    double error = 0;
    bool allowEdit = false;
    friend bool operator==(const RoutineFormTolerance&, const RoutineFormTolerance&) = default;
};

struct RoutineLinearTolerance {
    EprpTolStatus status = E_TOL_STATUS_NOT_CALCULATED;
    bool active = true;
    double nominal = 0;
    double upper = 0;
    double lower = 0;
    double measured = 0;
    double error = 0;
    bool absolute = false; ///< the bounds are values, not offsets from the nominal
    LONG editFlags = 0;
    friend bool operator==(const RoutineLinearTolerance&, const RoutineLinearTolerance&) = default;
};

struct RoutineGeometricTolerance {
    EprpTolStatus status = E_TOL_STATUS_NOT_CALCULATED;
    bool active = true;
    EprpGDTType kind = E_GDT_TYPE_NONE;
    EprpGDTMatMod modifier = E_GDT_MAT_MOD_NONE;
    double value = 0;
    double measured = 0;
    double error = 0;
    std::array<std::string, 3> datums; ///< UTF-8
    std::array<bool, 3> datumActive{};
    bool radial = false;
    LONG editFlags = 0;
    friend bool operator==(const RoutineGeometricTolerance&, const RoutineGeometricTolerance&) = default;
};

/// The type says which parts count: none, the first of a kind, or all three.
struct RoutineTolerance {
    EprpToleranceType type = E_TOL_TYPE_NONE;
    bool markAsDefault = false;
    bool markAsNone = false;
    std::optional<RoutineFormTolerance> form;
    std::array<RoutineLinearTolerance, 3> linear;
    std::array<RoutineGeometricTolerance, 3> geometric;
    friend bool operator==(const RoutineTolerance&, const RoutineTolerance&) = default;

    bool IsLinear() const
    {
        return type == E_TOL_TYPE_LINEAR || type == E_TOL_TYPE_ANGULAR || type == E_TOL_TYPE_RECTANGULAR;
    }
    bool IsGeometric() const { return type == E_TOL_TYPE_GDT_LINEAR || type == E_TOL_TYPE_GDT_RECTANGULAR; }
    /// Number of parts of its kind that count: 0, 1 or 3.
    size_t PartCount() const
    {
        if (type == E_TOL_TYPE_NONE)
            return 0;
        return type == E_TOL_TYPE_RECTANGULAR || type == E_TOL_TYPE_GDT_RECTANGULAR ? 3 : 1;
    }
};

using RoutinePath = std::vector<RoutinePoint>;

/// The alternative follows the data type; monostate leaves the value that a new property has.
using RoutineValue =
    std::variant<std::monostate, double, LONG, std::string, RoutinePoint, RoutineTolerance, RoutinePath>;

struct RoutineEnumItem {
    LONG index = 0;
    LONG value = 0;
    LONG resource = 0; ///< string resource of its text, 0 for none; it wins over the literal text
    std::string text;
    bool show = true;
    friend bool operator==(const RoutineEnumItem&, const RoutineEnumItem&) = default;
};

struct RoutineBound {
    EprpBoundLogic logic = E_PRP_BOUND_LOGIC_NONE;
    double value = 0; ///< of an integer type: a whole number of 32 bits
    friend bool operator==(const RoutineBound&, const RoutineBound&) = default;
};

/// One of the rows must match the values of the controlling properties; -1 matches any.
struct RoutineRule {
    std::vector<LONG> controls;
    std::vector<std::vector<LONG>> rows;
    friend bool operator==(const RoutineRule&, const RoutineRule&) = default;
};

struct RoutineProperty {
    LONG id = 0;
    LONG parent = E_PROP_ID_TOP_LEVEL;
    std::string name;
    LONG nameResource = 0;
    EprpPropDataType type = E_PROP_DT_NONE;
    RoutineValue value;
    std::optional<std::string> text; ///< set through the value text instead of a typed value
    bool visible = true;
    std::optional<bool> visibleForPostProc;
    bool readOnly = false;
    bool alwaysSave = true;
    bool noUnitConvert = false;
    LONG editFlags = E_PROP_EDIT_VALUE;
    LONG linked = 0;
    std::vector<RoutineEnumItem> enumItems;
    std::optional<RoutineBound> lowerBound;
    std::optional<RoutineBound> upperBound;
    std::optional<std::string> invalidCharacters;
    std::optional<RoutineRule> visibility;
    std::optional<RoutineRule> postProcVisibility;
    std::string error;
    std::string warning;
    friend bool operator==(const RoutineProperty&, const RoutineProperty&) = default;
};

struct RoutineHelp {
    LONG state = -1;    ///< -1 answers in every state
    LONG property = -1; ///< -1 answers for every property
    std::string text;
    friend bool operator==(const RoutineHelp&, const RoutineHelp&) = default;
};

/// Properties stand in the order in which they are added: each parent before its children.
struct Routine {
    EprpUnitMode unitMode = E_METRIC;
    LONG precision = 4;
    std::optional<LONG> collectionId;
    LONG state = 0;
    std::optional<double> maxInputValue;
    bool saveReadOnlyStates = true;
    bool saveEditFlags = true;
    std::vector<RoutineProperty> properties;
    std::vector<RoutineHelp> help;
    friend bool operator==(const Routine&, const Routine&) = default;
};

/// Edit flags of a property that says nothing else: a category has no value to edit.
constexpr LONG DefaultEditFlags(EprpPropDataType type)
{
    return type == E_PROP_DT_CATEGORY ? E_PROP_EDIT_NONE : E_PROP_EDIT_VALUE;
}

constexpr bool IsIntegerType(EprpPropDataType type)
{
    return type == E_PROP_DT_LONG || type == E_PROP_DT_DWORD || type == E_PROP_DT_ENUM;
}

constexpr bool IsNumberType(EprpPropDataType type)
{
    return type == E_PROP_DT_ANGLE || type == E_PROP_DT_LINEAR || type == E_PROP_DT_DOUBLE || type == E_PROP_DT_FORM ||
           type == E_PROP_DT_FULL_PRECISION;
}
