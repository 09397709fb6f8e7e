#include "core/prpTolerance.h"

#include "core/NumberRules.h"
#include "frame/NumberScan.h"
#include "frame/NumberText.h"
#include "frame/Raise.h"
#include "frame/TextTools.h"

#include <bit>
#include <cmath>
#include <span>
#include <utility>

namespace {

constexpr std::size_t kAxes = 3;
constexpr std::size_t kDatums = 3;

/// What a tolerance type selects: so many of the linear and of the geometric parts, from X on.
struct PartsRule {
    EprpToleranceType type;
    std::size_t linear;
    std::size_t gdt;
    bool lengths; ///< its numbers are lengths, which a change of the unit multiplies
};

constexpr PartsRule kPartsRules[] = {
    {E_TOL_TYPE_NONE, 0, 0, false},       {E_TOL_TYPE_LINEAR, 1, 0, true},     {E_TOL_TYPE_ANGULAR, 1, 0, false},
    {E_TOL_TYPE_RECTANGULAR, 3, 0, true}, {E_TOL_TYPE_GDT_LINEAR, 0, 1, true}, {E_TOL_TYPE_GDT_RECTANGULAR, 0, 3, true},
};

constexpr bool IsOrderedByType(std::span<const PartsRule> rules)
{
    for (std::size_t i = 0; i < rules.size(); ++i) {
        if (static_cast<std::size_t>(rules[i].type) != i)
            return false;
    }
    return true;
}
static_assert(IsOrderedByType(kPartsRules));

/// The rule of a type; an internal error for a number that is none.
const PartsRule& PartsOf(LONG type)
{
    CprpTolerance::RequireType(type);
    return kPartsRules[type];
}

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

bool In(VARIANT_BOOL flag)
{
    return flag != VARIANT_FALSE;
}

VARIANT_BOOL Out(bool flag)
{
    return flag ? VARIANT_TRUE : VARIANT_FALSE;
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

// The tolerance string: sections between "#", fields of a section between "¬".
constexpr OLECHAR kSectionMark = '#';
constexpr OLECHAR kFieldMark = 0xAC;

// Bits of the head and of the packed numbers that open a section.
constexpr ULONG kHeadDefault = 0x100;
constexpr ULONG kHeadNone = 0x200;
constexpr ULONG kLinearActive = 0x1;
constexpr ULONG kLinearAbsolute = 0x2;
constexpr ULONG kGdtActive = 0x1;
constexpr ULONG kGdtRadial = 0x2;
constexpr ULONG kGdtFirstDatumActive = 0x4;
constexpr ULONG kGdtFirstDatumNamed = 0x20;
constexpr int kGdtTypeByte = 1;
constexpr int kGdtEditFlagsByte = 2;
constexpr int kGdtModifierByte = 3;

constexpr ULONG Bit(bool set, ULONG bit)
{
    return set ? bit : 0;
}

/// The low byte of a number, put at a byte of a packed one. What does not fit a byte is lost.
constexpr ULONG AtByte(LONG value, int byte)
{
    return (static_cast<ULONG>(value) & 0xFF) << (8 * byte);
}

constexpr LONG ByteAt(ULONG packed, int byte)
{
    return static_cast<LONG>((packed >> (8 * byte)) & 0xFF);
}

void AppendField(Text& out, double value)
{
    out += kFieldMark;
    AppendGeneral(out, value);
}

void AppendSection(Text& out, const CprpLinearTol& linear)
{
    out += kSectionMark;
    AppendHex(out, Bit(linear.bActive, kLinearActive) | Bit(linear.bAbsoluteBounds, kLinearAbsolute), HexCase::Upper);
    out += kFieldMark;
    AppendHex(out, static_cast<ULONG>(linear.nEditFlags), HexCase::Upper);
    AppendField(out, linear.dbNominalValue);
    AppendField(out, linear.dbUpperBound);
    AppendField(out, linear.dbLowerBound);
}

ULONG Packed(const CprpGDTTol& gdt)
{
    ULONG packed = Bit(gdt.bActive, kGdtActive) | Bit(gdt.bRadial, kGdtRadial);
    for (std::size_t i = 0; i < kDatums; ++i) {
        packed |= Bit(gdt.datumActive[i], kGdtFirstDatumActive << i);
        packed |= Bit(!gdt.datums[i].empty(), kGdtFirstDatumNamed << i);
    }
    return packed | AtByte(gdt.eType, kGdtTypeByte) | AtByte(gdt.nEditFlags, kGdtEditFlagsByte) |
           AtByte(gdt.eMaterialModifier, kGdtModifierByte);
}

/// On purpose no datum name is protected against the marks in it: the text of a host's files is what it always was.
void AppendSection(Text& out, const CprpGDTTol& gdt)
{
    out += kSectionMark;
    AppendHex(out, Packed(gdt), HexCase::Upper);
    AppendField(out, gdt.dbToleranceValue);
    for (const Text& name : gdt.datums) {
        if (!name.empty())
            out.append(1, kFieldMark).append(name);
    }
}

/// What cannot be read stays zero, and so does all behind it.
void ReadSection(TextView section, CprpLinearTol& linear)
{
    TextScanner scanner(section);
    const auto mark = [&] { return scanner.ReadLiteral(kFieldMark); };
    ULONG flags = 0;
    scanner.ReadHex(flags) && mark() && scanner.ReadHex(linear.nEditFlags) && mark() &&
        scanner.ReadDouble(linear.dbNominalValue) && mark() && scanner.ReadDouble(linear.dbUpperBound) && mark() &&
        scanner.ReadDouble(linear.dbLowerBound);
    linear.bActive = flags & kLinearActive;
    linear.bAbsoluteBounds = flags & kLinearAbsolute;
}

/// The tokens of a text, one at a time; empty behind the last.
class Tokens {
public:
    Tokens(TextView text, const OLECHAR& mark) : m_at(text, TextView(&mark, 1)) {}

    TextView Next()
    {
        const TextView token = *m_at;
        if (!token.empty())
            ++m_at;
        return token;
    }

private:
    TokenRange::Iterator m_at;
};

void ReadSection(TextView section, CprpGDTTol& gdt)
{
    Tokens fields(section, kFieldMark);
    ULONG packed = 0;
    TextScanner(fields.Next()).ReadHex(packed);
    TextScanner(fields.Next()).ReadDouble(gdt.dbToleranceValue);
    gdt.bActive = packed & kGdtActive;
    gdt.bRadial = packed & kGdtRadial;
    gdt.eType = ByteAt(packed, kGdtTypeByte);
    gdt.nEditFlags = ByteAt(packed, kGdtEditFlagsByte);
    gdt.eMaterialModifier = ByteAt(packed, kGdtModifierByte);
    for (std::size_t i = 0; i < kDatums; ++i) {
        gdt.datumActive[i] = packed & (kGdtFirstDatumActive << i);
        if (packed & (kGdtFirstDatumNamed << i))
            gdt.datums[i] = fields.Next();
    }
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

void CprpTolerance::AppendTo(Text& out) const
{
    const PartsRule& parts = PartsOf(eTolType);
    AppendHex(out, static_cast<ULONG>(eTolType) | Bit(bMarkAsDefault, kHeadDefault) | Bit(bMarkAsNone, kHeadNone),
              HexCase::Upper);
    for (std::size_t i = 0; i < parts.linear; ++i)
        AppendSection(out, linear[i]);
    for (std::size_t i = 0; i < parts.gdt; ++i)
        AppendSection(out, gdt[i]);
}

CprpTolerance CprpTolerance::Parse(TextView text)
{
    Tokens sections(text, kSectionMark);
    ULONG head = 0;
    TextScanner(sections.Next()).ReadHex(head);
    CprpTolerance tolerance;
    tolerance.eTolType = ByteAt(head, 0);
    tolerance.bMarkAsDefault = head & kHeadDefault;
    tolerance.bMarkAsNone = head & kHeadNone;
    const PartsRule& parts = PartsOf(tolerance.eTolType);
    for (std::size_t i = 0; i < parts.linear; ++i)
        ReadSection(sections.Next(), tolerance.linear[i]);
    for (std::size_t i = 0; i < parts.gdt; ++i)
        ReadSection(sections.Next(), tolerance.gdt[i]);
    return tolerance;
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
