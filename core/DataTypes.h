// The data types as a table: how each is kept, written, read, saved and converted. Everything that differs by data
// type is decided by a row of it.
#pragma once

#include "LV_prpPropCollection.h"
#include "platform/com/Ole.h"

#include <cstddef>

/// In which field a value lives and how text becomes a value.
enum class ValueKind {
    Unset,    ///< no value: the last text, which nothing may change
    Number,   ///< m_dbDouble, read by "%lg"
    Signed,   ///< m_nLong, read by "%ld"
    Unsigned, ///< m_nLong, read by "%lu"
    AnyText,  ///< the text as it is
    AnsiText, ///< the text, in ASCII once it holds a character of 128 or above
    Tolerance,
    Position, ///< three numbers
    ScanPath  ///< shown as a count, read as lines of points
};

/// How a value is written into a saved record.
enum class SavedForm {
    Plain,     ///< the value text without escapes: digits, points, signs and semicolons
    Escaped,   ///< the value text; "~" becomes "\$" and "|" becomes "\&"
    MultiLine, ///< as escaped, and a line end becomes "#"
    Points,    ///< the scan path text; a line end becomes "#"
    EnumValue, ///< the number in hexadecimal
    Refused    ///< must not be saved
};

/// What a unit conversion multiplies.
enum class UnitScaling { None, Length, Position, Tolerance, FullPrecision, ScanPath };

/// Decimals of a number's text are the collection's precision.
inline constexpr LONG kCollectionPrecision = -1;

struct DataTypeRule {
    LONG type;
    const OLECHAR* keyword; ///< name in messages and of properties that keep saved data
    ValueKind kind;
    LONG decimals; ///< of the text of a number, or kCollectionPrecision
    SavedForm saved;
    bool emptySavedValue; ///< an empty value in a saved record is a value
    UnitScaling scaling;
};

/// One row for each data type, in the order of their numbers.
extern const DataTypeRule kDataTypeRules[];
inline constexpr LONG kDataTypeCount = E_PROP_DT_POINTS_LIST + 1;

/// Rule of a type; types outside the enumeration have the rule of E_PROP_DT_NONE.
inline const DataTypeRule& RuleOf(LONG type) noexcept
{
    return kDataTypeRules[type > 0 && type < kDataTypeCount ? type : LONG{E_PROP_DT_NONE}];
}

/// "linear", "angle" and so on; "Unknown" for no type.
inline const OLECHAR* DataTypeKeyword(LONG type) noexcept
{
    return RuleOf(type).keyword;
}

/// Whether a value is one number or three.
constexpr bool IsNumeric(ValueKind kind)
{
    return kind == ValueKind::Number || kind == ValueKind::Signed || kind == ValueKind::Unsigned ||
           kind == ValueKind::Position;
}
