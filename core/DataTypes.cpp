#include "core/DataTypes.h"

namespace {

constexpr LONG kAngleDecimals = 4;
constexpr LONG kFullPrecisionDecimals = 6;
constexpr LONG kPrecision = kCollectionPrecision;

} // namespace

// clang-format off
const DataTypeRule kDataTypeRules[kDataTypeCount] = {
    {E_PROP_DT_NONE,                 OLESTR("Unknown"),        ValueKind::Unset,     kPrecision,             SavedForm::Escaped,   false, UnitScaling::None},
    {E_PROP_DT_ANGLE,                OLESTR("angle"),          ValueKind::Number,    kAngleDecimals,         SavedForm::Plain,     false, UnitScaling::None},
    {E_PROP_DT_LINEAR,               OLESTR("linear"),         ValueKind::Number,    kPrecision,             SavedForm::Plain,     false, UnitScaling::Length},
    {E_PROP_DT_LONG,                 OLESTR("long"),           ValueKind::Signed,    kPrecision,             SavedForm::Escaped,   false, UnitScaling::None},
    {E_PROP_DT_DOUBLE,               OLESTR("double"),         ValueKind::Number,    kPrecision,             SavedForm::Plain,     false, UnitScaling::None},
    {E_PROP_DT_STRING_ANSI,          OLESTR("string"),         ValueKind::AnsiText,  kPrecision,             SavedForm::Escaped,   true,  UnitScaling::None},
    {E_PROP_DT_MULTI_STRING_UNICODE, OLESTR("multi_string"),   ValueKind::AnyText,   kPrecision,             SavedForm::MultiLine, true,  UnitScaling::None},
    {E_PROP_DT_TOLERANCE,            OLESTR("tolerance"),      ValueKind::Tolerance, kPrecision,             SavedForm::Escaped,   false, UnitScaling::Tolerance},
    {E_PROP_DT_POSITION,             OLESTR("position"),       ValueKind::Position,  kPrecision,             SavedForm::Plain,     false, UnitScaling::Position},
    {E_PROP_DT_VECTOR,               OLESTR("vector"),         ValueKind::Position,  kPrecision,             SavedForm::Plain,     false, UnitScaling::Position},
    {E_PROP_DT_ENUM,                 OLESTR("enum"),           ValueKind::Signed,    kPrecision,             SavedForm::EnumValue, false, UnitScaling::None},
    {E_PROP_DT_DATE,                 OLESTR("date"),           ValueKind::AnyText,   kPrecision,             SavedForm::Escaped,   true,  UnitScaling::None},
    {E_PROP_DT_FORM,                 OLESTR("form"),           ValueKind::Number,    kPrecision,             SavedForm::Plain,     false, UnitScaling::None},
    {E_PROP_DT_STATEMENT,            OLESTR("statement"),      ValueKind::AnyText,   kPrecision,             SavedForm::Escaped,   false, UnitScaling::None},
    {E_PROP_DT_FULL_PRECISION,       OLESTR("full_precision"), ValueKind::Number,    kFullPrecisionDecimals, SavedForm::Plain,     false, UnitScaling::FullPrecision},
    {E_PROP_DT_STRING_UNICODE,       OLESTR("string_unicode"), ValueKind::AnyText,   kPrecision,             SavedForm::Refused,   true,  UnitScaling::None},
    {E_PROP_DT_DWORD,                OLESTR("dword"),          ValueKind::Unsigned,  kPrecision,             SavedForm::Escaped,   false, UnitScaling::None},
    {E_PROP_DT_SCAN_PATH_LIST,       OLESTR("scan_path_list"), ValueKind::ScanPath,  kPrecision,             SavedForm::Points,    false, UnitScaling::ScanPath},
    {E_PROP_DT_CATEGORY,             OLESTR("category"),       ValueKind::AnyText,   kPrecision,             SavedForm::Escaped,   true,  UnitScaling::None},
    {E_PROP_DT_POINTS_LIST,          OLESTR("points_list"),    ValueKind::AnyText,   kPrecision,             SavedForm::Escaped,   false, UnitScaling::None},
};
// clang-format on
