#include "tools/lvprop/PropertyValues.h"

#include "tools/lvprop/Console.h"

using lumevor::Check;

namespace {

BSTR NewBstr(const std::string& utf8)
{
    return lumevor::String(lumevor::FromUtf8(utf8)).Detach();
}

std::string Utf8Of(BSTR text)
{
    return text ? lumevor::ToUtf8({text, SysStringLen(text)}) : std::string();
}

/// Owns the datum texts of the interface record.
struct ToleranceRecord : SprpTolerance {
    ToleranceRecord() : SprpTolerance{} {}
    ~ToleranceRecord()
    {
        for (SprpGDTInfo* part : {&GDTInfo_X, &GDTInfo_Y, &GDTInfo_Z})
            for (const BSTR datum : {part->bstrDatumPlane1, part->bstrDatumPlane2, part->bstrDatumPlane3})
                SysFreeString(datum);
    }
    ToleranceRecord(const ToleranceRecord&) = delete;
    ToleranceRecord& operator=(const ToleranceRecord&) = delete;

    std::array<SprpLinearTolInfo*, 3> Linear() { return {&LinearTolInfo_X, &LinearTolInfo_Y, &LinearTolInfo_Z}; }
    std::array<SprpGDTInfo*, 3> Geometric() { return {&GDTInfo_X, &GDTInfo_Y, &GDTInfo_Z}; }
};

void Put(const RoutineLinearTolerance& from, SprpLinearTolInfo& to)
{
    to.eTolStatus = from.status;
    to.bActive = lumevor::Property::ToVariantBool(from.active);
    to.dbNominalValue = from.nominal;
    to.dbUpperBound = from.upper;
    to.dbLowerBound = from.lower;
    to.dbCalculatedValue = from.measured;
    to.dbError = from.error;
    to.bAbsoluteBounds = lumevor::Property::ToVariantBool(from.absolute);
    to.nEditFlags = from.editFlags;
}

RoutineLinearTolerance Take(const SprpLinearTolInfo& from)
{
    return {from.eTolStatus,        from.bActive != 0, from.dbNominalValue,       from.dbUpperBound, from.dbLowerBound,
            from.dbCalculatedValue, from.dbError,      from.bAbsoluteBounds != 0, from.nEditFlags};
}

void Put(const RoutineGeometricTolerance& from, SprpGDTInfo& to)
{
    to.eTolStatus = from.status;
    to.bActive = lumevor::Property::ToVariantBool(from.active);
    to.eType = from.kind;
    to.eMaterialModifier = from.modifier;
    to.dbToleranceValue = from.value;
    to.dbCalculatedValue = from.measured;
    to.dbError = from.error;
    to.bstrDatumPlane1 = NewBstr(from.datums[0]);
    to.bstrDatumPlane2 = NewBstr(from.datums[1]);
    to.bstrDatumPlane3 = NewBstr(from.datums[2]);
    to.bRadial = lumevor::Property::ToVariantBool(from.radial);
    to.bDatum1Active = lumevor::Property::ToVariantBool(from.datumActive[0]);
    to.bDatum2Active = lumevor::Property::ToVariantBool(from.datumActive[1]);
    to.bDatum3Active = lumevor::Property::ToVariantBool(from.datumActive[2]);
    to.nEditFlags = from.editFlags;
}

RoutineGeometricTolerance Take(const SprpGDTInfo& from)
{
    RoutineGeometricTolerance to;
    to.status = from.eTolStatus;
    to.active = from.bActive != 0;
    to.kind = from.eType;
    to.modifier = from.eMaterialModifier;
    to.value = from.dbToleranceValue;
    to.measured = from.dbCalculatedValue;
    to.error = from.dbError;
    to.datums = {Utf8Of(from.bstrDatumPlane1), Utf8Of(from.bstrDatumPlane2), Utf8Of(from.bstrDatumPlane3)};
    to.datumActive = {from.bDatum1Active != 0, from.bDatum2Active != 0, from.bDatum3Active != 0};
    to.radial = from.bRadial != 0;
    to.editFlags = from.nEditFlags;
    return to;
}

void Put(const RoutineFormTolerance& from, SprpFormTolInfo& to)
{
    to.eTolStatus = from.status;
    to.bActive = lumevor::Property::ToVariantBool(from.active);
    to.dbNominalValue = from.nominal;
    to.dbCalculatedValue = from.measured;
    to.dbError = from.error;
    to.bAllowEdit = lumevor::Property::ToVariantBool(from.allowEdit);
}

RoutineFormTolerance Take(const SprpFormTolInfo& from)
{
    return {from.eTolStatus,        from.bActive != 0, from.dbNominalValue,
            from.dbCalculatedValue, from.dbError,      from.bAllowEdit != 0};
}

/// A form part that nobody has filled counts as none.
bool IsUnused(const SprpFormTolInfo& form)
{
    return Take(form) == RoutineFormTolerance{E_TOL_STATUS_NOT_CALCULATED, false, 0, 0, 0, false};
}

void SetTolerance(const lumevor::Property& property, const RoutineTolerance& tolerance)
{
    ToleranceRecord record;
    record.eTolType = tolerance.type;
    record.bMarkAsDefault = lumevor::Property::ToVariantBool(tolerance.markAsDefault);
    record.bMarkAsNone = lumevor::Property::ToVariantBool(tolerance.markAsNone);
    if (tolerance.form)
        Put(*tolerance.form, record.FormTolInfo);
    for (size_t i = 0; i < tolerance.PartCount(); ++i) {
        if (tolerance.IsLinear())
            Put(tolerance.linear[i], *record.Linear()[i]);
        else
            Put(tolerance.geometric[i], *record.Geometric()[i]);
    }
    Check(property->SetPropertyTolerance(&record));
}

RoutineTolerance GetTolerance(const lumevor::Property& property)
{
    ToleranceRecord record;
    Check(property->GetPropertyTolerance(&record));
    RoutineTolerance tolerance;
    tolerance.type = record.eTolType;
    tolerance.markAsDefault = record.bMarkAsDefault != 0;
    tolerance.markAsNone = record.bMarkAsNone != 0;
    if (!IsUnused(record.FormTolInfo))
        tolerance.form = Take(record.FormTolInfo);
    for (size_t i = 0; i < tolerance.PartCount(); ++i) {
        if (tolerance.IsLinear())
            tolerance.linear[i] = Take(*record.Linear()[i]);
        else
            tolerance.geometric[i] = Take(*record.Geometric()[i]);
    }
    return tolerance;
}

SprpPosition PositionOf(const RoutinePoint& point)
{
    return {point[0], point[1], point[2]};
}

void SetPath(const lumevor::Property& property, const RoutinePath& path)
{
    for (size_t i = 0; i < path.size(); ++i) {
        VARIANT_BOOL changed = VARIANT_FALSE;
        Check(property->SetScanPathPointAt(static_cast<LONG>(i), {PositionOf(path[i])}, VARIANT_TRUE, &changed));
    }
}

RoutinePath GetPath(const lumevor::Property& property)
{
    LONG count = 0;
    Check(property->GetScanPathListCount(&count));
    RoutinePath path;
    for (LONG i = 0; i < count; ++i) {
        SprgScanPathPoint point{};
        Check(property->GetScanPathPointAt(i, &point));
        path.push_back({point.Position.X, point.Position.Y, point.Position.Z});
    }
    return path;
}

struct ValueSetter {
    const lumevor::Property& property;

    void operator()(std::monostate) const {}
    /// By the value text: the typed setter takes a small difference from the present value for none.
    void operator()(double number) const { (*this)(NumberText(number)); }
    void operator()(LONG number) const { property.SetLong(number); }
    void operator()(const std::string& text) const { property.SetValue(lumevor::FromUtf8(text)); }
    void operator()(const RoutinePoint& point) const { property.SetPosition(PositionOf(point), true); }
    void operator()(const RoutineTolerance& tolerance) const { SetTolerance(property, tolerance); }
    void operator()(const RoutinePath& path) const { SetPath(property, path); }
};

} // namespace

void SetPropertyValue(const lumevor::Property& property, const RoutineProperty& routine)
{
    if (routine.text)
        property.SetValue(lumevor::FromUtf8(*routine.text));
    else
        std::visit(ValueSetter{property}, routine.value);
}

RoutineValue GetPropertyValue(const lumevor::Property& property, EprpPropDataType type)
{
    if (IsNumberType(type))
        return property.Double();
    if (IsIntegerType(type))
        return property.Long();
    switch (type) {
    case E_PROP_DT_TOLERANCE: return GetTolerance(property);
    case E_PROP_DT_POSITION:
    case E_PROP_DT_VECTOR: {
        const SprpPosition position = property.Position();
        return RoutinePoint{position.X, position.Y, position.Z};
    }
    case E_PROP_DT_SCAN_PATH_LIST: return GetPath(property);
    case E_PROP_DT_NONE: return {};
    default: return lumevor::ToUtf8(property.Value());
    }
}
