// The tolerance string: a head, then one section for each part that the type selects. Reading it gives a whole record,
// so that results and whatever the type does not select come back as zero.
#include "core/ToleranceParts.h"
#include "core/prpTolerance.h"
#include "frame/NumberScan.h"
#include "frame/NumberText.h"
#include "frame/TextTools.h"

namespace {

// Sections stand between "#", the fields of a section between "¬".
constexpr TextView kSectionMark = OLESTR("#");
constexpr TextView kFieldMark = OLESTR("\u00AC");

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
            out.append(kFieldMark).append(name);
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
    Tokens(TextView text, TextView marks) : m_at(text, marks) {}

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

} // namespace

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
