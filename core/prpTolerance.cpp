#include "core/prpTolerance.h"

#include "core/NumberRules.h"
#include "core/ToleranceParts.h"
#include "core/VariantBool.h"
#include "frame/Raise.h"
#include "frame/TextTools.h"

#include <bit>
#include <cmath>
#include <utility>

namespace {

// The repeated fields of the interface records, in the order of the arrays that hold them here.
constexpr SprpLinearTolInfo SprpTolerance::*kLinearFields[kAxes] = {
    &SprpTolerance::LinearTolInfo_X, &SprpTolerance::LinearTolInfo_Y, &SprpTolerance::LinearTolInfo_Z};
constexpr SprpGDTInfo SprpTolerance::*kGdtFields[kAxes] = {&SprpTolerance::GDTInfo_X, &SprpTolerance::GDTInfo_Y,
                                                           &SprpTolerance::GDTInfo_Z};
constexpr BSTR SprpGDTInfo::*kDatumNameFields[kDatums] = {&SprpGDTInfo::bstrDatumPlane1, &SprpGDTInfo::bstrDatumPlane2,
                                                          &SprpGDTInfo::bstrDatumPlane3};
constexpr VARIANT_BOOL SprpGDTInfo::*kDatumActiveFields[kDatums] = {
    &SprpGDTInfo::bDatum1Active, &SprpGDTInfo::bDatum2Active, &SprpGDTInfo::bDatum3Active};

/// The number in a field of an enumeration, which a host fills as it likes.
template <class Enumeration>
LONG NumberOf(const Enumeration& field)
{
    return std::bit_cast<LONG>(field);
}

CprpFormTol FormOf(const SprpFormTolInfo& record)
{
    CprpFormTol form;
    form.eTolStatus = NumberOf(record.eTolStatus);
    form.bActive = In(record.bActive);
    form.dbNominalValue = record.dbNominalValue;
    form.dbCalculatedValue = record.dbCalculatedValue;
    form.dbError = record.dbError;
    form.bAllowEdit = In(record.bAllowEdit);
    return form;
}

CprpLinearTol LinearOf(const SprpLinearTolInfo& record)
{
    CprpLinearTol linear;
    linear.eTolStatus = NumberOf(record.eTolStatus);
    linear.bActive = In(record.bActive);
    linear.dbNominalValue = record.dbNominalValue;
    linear.dbUpperBound = record.dbUpperBound;
    linear.dbLowerBound = record.dbLowerBound;
    linear.dbCalculatedValue = record.dbCalculatedValue;
    linear.dbError = record.dbError;
    linear.bAbsoluteBounds = In(record.bAbsoluteBounds);
    linear.nEditFlags = record.nEditFlags;
    return linear;
}

CprpGDTTol GdtOf(const SprpGDTInfo& record)
{
    CprpGDTTol gdt;
    gdt.eTolStatus = NumberOf(record.eTolStatus);
    gdt.bActive = In(record.bActive);
    gdt.eType = NumberOf(record.eType);
    gdt.eMaterialModifier = NumberOf(record.eMaterialModifier);
    gdt.dbToleranceValue = record.dbToleranceValue;
    gdt.dbCalculatedValue = record.dbCalculatedValue;
    gdt.dbError = record.dbError;
    gdt.bRadial = In(record.bRadial);
    gdt.nEditFlags = record.nEditFlags;
    for (std::size_t i = 0; i < kDatums; ++i) {
        gdt.datums[i] = ViewOf(record.*kDatumNameFields[i]);
        gdt.datumActive[i] = In(record.*kDatumActiveFields[i]);
    }
    return gdt;
}

void Fill(SprpFormTolInfo& record, const CprpFormTol& form)
{
    record.eTolStatus = static_cast<EprpTolStatus>(form.eTolStatus);
    record.bActive = Out(form.bActive);
    record.dbNominalValue = form.dbNominalValue;
    record.dbCalculatedValue = form.dbCalculatedValue;
    record.dbError = form.dbError;
    record.bAllowEdit = Out(form.bAllowEdit);
}

void Fill(SprpLinearTolInfo& record, const CprpLinearTol& linear)
{
    record.eTolStatus = static_cast<EprpTolStatus>(linear.eTolStatus);
    record.bActive = Out(linear.bActive);
    record.dbNominalValue = linear.dbNominalValue;
    record.dbUpperBound = linear.dbUpperBound;
    record.dbLowerBound = linear.dbLowerBound;
    record.dbCalculatedValue = linear.dbCalculatedValue;
    record.dbError = linear.dbError;
    record.bAbsoluteBounds = Out(linear.bAbsoluteBounds);
    record.nEditFlags = linear.nEditFlags;
}

void Fill(SprpGDTInfo& record, const CprpGDTTol& gdt)
{
    record.eTolStatus = static_cast<EprpTolStatus>(gdt.eTolStatus);
    record.bActive = Out(gdt.bActive);
    record.eType = static_cast<EprpGDTType>(gdt.eType);
    record.eMaterialModifier = static_cast<EprpGDTMatMod>(gdt.eMaterialModifier);
    record.dbToleranceValue = gdt.dbToleranceValue;
    record.dbCalculatedValue = gdt.dbCalculatedValue;
    record.dbError = gdt.dbError;
    record.bRadial = Out(gdt.bRadial);
    record.nEditFlags = gdt.nEditFlags;
    for (std::size_t i = 0; i < kDatums; ++i) {
        BSTR& name = record.*kDatumNameFields[i];
        SysFreeString(std::exchange(name, nullptr));
        name = NewBstr(gdt.datums[i]);
        record.*kDatumActiveFields[i] = Out(gdt.datumActive[i]);
    }
}

/// The threshold of tolerances is the same in both unit modes.
bool Same(double left, double right)
{
    return NearlyEqual(std::fabs(left - right), kToleranceThreshold);
}

/// Results count only where there are any.
template <class Part>
bool SameResult(const Part& left, const Part& right)
{
    if (left.eTolStatus != right.eTolStatus)
        return false;
    return left.eTolStatus == E_TOL_STATUS_NOT_CALCULATED ||
           (Same(left.dbCalculatedValue, right.dbCalculatedValue) && Same(left.dbError, right.dbError));
}

bool SamePart(const CprpLinearTol& left, const CprpLinearTol& right)
{
    return left.bAbsoluteBounds == right.bAbsoluteBounds && Same(left.dbNominalValue, right.dbNominalValue) &&
           Same(left.dbUpperBound, right.dbUpperBound) && Same(left.dbLowerBound, right.dbLowerBound) &&
           left.bActive == right.bActive && left.nEditFlags == right.nEditFlags && SameResult(left, right);
}

bool SamePart(const CprpGDTTol& left, const CprpGDTTol& right)
{
    for (std::size_t i = 0; i < kDatums; ++i) {
        if (!EqualsIgnoringCase(left.datums[i], right.datums[i]))
            return false;
    }
    return left.datumActive == right.datumActive && left.eType == right.eType &&
           left.eMaterialModifier == right.eMaterialModifier && left.bRadial == right.bRadial &&
           left.bActive == right.bActive && left.nEditFlags == right.nEditFlags &&
           Same(left.dbToleranceValue, right.dbToleranceValue) && SameResult(left, right);
}

template <class Part>
bool SameParts(const std::array<Part, kAxes>& left, const std::array<Part, kAxes>& right, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        if (!SamePart(left[i], right[i]))
            return false;
    }
    return true;
}

void Scale(CprpLinearTol& linear, double factor)
{
    for (double* value : {&linear.dbNominalValue, &linear.dbUpperBound, &linear.dbLowerBound, &linear.dbCalculatedValue,
                          &linear.dbError})
        *value *= factor;
}

void Scale(CprpGDTTol& gdt, double factor)
{
    for (double* value : {&gdt.dbToleranceValue, &gdt.dbCalculatedValue, &gdt.dbError})
        *value *= factor;
}

} // namespace

void CprpTolerance::RequireType(LONG type)
{
    if (type < 0 || static_cast<std::size_t>(type) >= std::size(kPartsRules))
        ThrowInternal(CallSite::current(), "prpTolerance");
}

void CprpTolerance::Set(const SprpTolerance& record)
{
    RequireType(NumberOf(record.eTolType));
    eTolType = NumberOf(record.eTolType);
    bMarkAsDefault = In(record.bMarkAsDefault);
    bMarkAsNone = In(record.bMarkAsNone);
    form = FormOf(record.FormTolInfo);
    for (std::size_t i = 0; i < kAxes; ++i) {
        linear[i] = LinearOf(record.*kLinearFields[i]);
        gdt[i] = GdtOf(record.*kGdtFields[i]);
    }
}

void CprpTolerance::Get(SprpTolerance& record) const
{
    record.eTolType = static_cast<EprpToleranceType>(eTolType);
    record.bMarkAsDefault = Out(bMarkAsDefault);
    record.bMarkAsNone = Out(bMarkAsNone);
    Fill(record.FormTolInfo, form);
    for (std::size_t i = 0; i < kAxes; ++i) {
        Fill(record.*kLinearFields[i], linear[i]);
        Fill(record.*kGdtFields[i], gdt[i]);
    }
}

bool CprpTolerance::Equals(const CprpTolerance& other) const
{
    const PartsRule& parts = PartsOf(eTolType);
    return eTolType == other.eTolType && bMarkAsNone == other.bMarkAsNone && bMarkAsDefault == other.bMarkAsDefault &&
           SameParts(linear, other.linear, parts.linear) && SameParts(gdt, other.gdt, parts.gdt);
}

void CprpTolerance::Convert(double factor)
{
    const PartsRule& parts = PartsOf(eTolType);
    if (!parts.lengths)
        return;
    for (std::size_t i = 0; i < parts.linear; ++i)
        Scale(linear[i], factor);
    for (std::size_t i = 0; i < parts.gdt; ++i)
        Scale(gdt[i], factor);
}
