#include "tools/lvprop/SavedCheck.h"

#include "frame/NumberScan.h"
#include "frame/TextTools.h"
#include "platform/system/Utf8.h"
#include "tools/lvprop/Console.h"

#include <algorithm>

namespace {

constexpr size_t kShownColumns = 40;

std::string Quoted(TextView text)
{
    return "\"" + OneLine(Utf8From(text), kShownColumns) + "\"";
}

/// A number is the longest prefix that is one; what follows it is passed over.
template <class Read>
std::string RemarkOnNumber(TextView value, Read&& read)
{
    TextScanner scanner(value);
    if (!read(scanner))
        return Quoted(value) + " is no number: the property keeps its value";
    if (scanner.AtEnd())
        return {};
    return "only " + Quoted(value.substr(0, value.size() - scanner.Rest().size())) + " of " + Quoted(value) +
           " is read";
}

std::string RemarkOnReal(TextView value)
{
    return RemarkOnNumber(value, [](TextScanner& scanner) {
        double number = 0;
        return scanner.ReadDouble(number);
    });
}

std::string RemarkOnWhole(TextView value)
{
    return RemarkOnNumber(value, [](TextScanner& scanner) {
        LONG number = 0;
        return scanner.ReadDecimal(number);
    });
}

std::string RemarkOnEnum(TextView value)
{
    DWORD number = 0;
    const std::string remark = RemarkOnNumber(value, [&](TextScanner& scanner) { return scanner.ReadHex(number); });
    if (remark.empty() && number > 0xFFFF)
        return Quoted(value) + " is cut to its low 16 bits, " + std::to_string(number & 0xFFFF);
    return remark;
}

std::string RemarkOnPosition(TextView value)
{
    Text bare(value);
    EraseAny(bare, OLESTR("()[]{}"));
    size_t count = 0;
    for (const TextView token : SplitAt(bare, OLESTR("; "))) {
        double number = 0;
        if (++count <= 3 && !TextScanner(token).ReadDouble(number))
            return "coordinate " + std::to_string(count) + ", " + Quoted(token) + ", is no number";
    }
    return count == 3 ? std::string() : std::to_string(count) + " coordinates, not 3";
}

std::string RemarkOnPath(TextView value)
{
    const Text lines = ValueLines(value);
    size_t unreadable = 0;
    for (const TextView line : SplitAt(lines, OLESTR("\r\n"))) {
        TextScanner scanner(TrimWhiteSpace(line));
        float x = 0, y = 0, z = 0;
        const bool isPoint = scanner.ReadFloat(x) && scanner.ReadLiteral(OLECHAR{','}) && scanner.ReadFloat(y) &&
                             scanner.ReadLiteral(OLECHAR{','}) && scanner.ReadFloat(z);
        unreadable += !isPoint;
    }
    return unreadable == 0 ? std::string() : Counted(unreadable, "line") + " of the path cannot be read";
}

std::string RemarkOnAnsi(TextView value)
{
    const bool isAscii = std::ranges::all_of(value, [](OLECHAR unit) { return unit < 128; });
    return isAscii ? std::string() : "letters outside ASCII are replaced or dropped";
}

/// Number of sections that a tolerance of this type needs behind its head; 0 for none.
size_t SectionsOf(unsigned type)
{
    switch (type) {
    case E_TOL_TYPE_LINEAR:
    case E_TOL_TYPE_ANGULAR:
    case E_TOL_TYPE_GDT_LINEAR: return 1;
    case E_TOL_TYPE_RECTANGULAR:
    case E_TOL_TYPE_GDT_RECTANGULAR: return 3;
    default: return 0;
    }
}

void CheckTolerance(CheckedRecord& out)
{
    DWORD head = 0;
    size_t sections = 0;
    for (const TextView token : SplitAt(out.record.value, OLESTR("#"))) {
        if (sections++ == 0 && !TextScanner(token).ReadHex(head)) {
            out.remark = "the head " + Quoted(token) + " is no number: the tolerance becomes none";
            return;
        }
    }
    const unsigned type = head & 0xFF;
    if (type > E_TOL_TYPE_GDT_RECTANGULAR)
        out.fault = "tolerance type " + std::to_string(type) + " does not exist: the load ends here with an error";
    else if (sections < SectionsOf(type) + 1)
        out.remark = "sections are missing: their fields become 0";
}

void CheckValue(CheckedRecord& out)
{
    const TextView value = out.record.value;
    if (value.empty())
        return;
    switch (out.record.type) {
    case E_PROP_DT_ANGLE:
    case E_PROP_DT_LINEAR:
    case E_PROP_DT_DOUBLE:
    case E_PROP_DT_FORM:
    case E_PROP_DT_FULL_PRECISION: out.remark = RemarkOnReal(value); break;
    case E_PROP_DT_LONG:
    case E_PROP_DT_DWORD: out.remark = RemarkOnWhole(value); break;
    case E_PROP_DT_ENUM: out.remark = RemarkOnEnum(value); break;
    case E_PROP_DT_POSITION:
    case E_PROP_DT_VECTOR: out.remark = RemarkOnPosition(value); break;
    case E_PROP_DT_SCAN_PATH_LIST: out.remark = RemarkOnPath(value); break;
    case E_PROP_DT_STRING_ANSI: out.remark = RemarkOnAnsi(value); break;
    case E_PROP_DT_TOLERANCE: CheckTolerance(out); break;
    default: break;
    }
}

} // namespace

void CheckRecord(TextView record, LONG version, CheckedRecord& out)
{
    out.text = record;
    out.fault.clear();
    out.remark.clear();
    UndoEscapes(out.text);
    out.error = version == 0 ? ParseRecordVersion0(out.text, out.record) : ParseRecordVersion1(out.text, out.record);
    if (out.error != E_PROP_PARSE_ERROR_NONE) {
        out.fault = Utf8From(ParseErrorText(out.error, out.text, out.record.id));
        return;
    }
    if (out.record.id < 1)
        out.fault = "no property can have the id " + std::to_string(out.record.id);
    else if (version == 0)
        return;
    else if (out.record.type < E_PROP_DT_NONE || out.record.type >= kDataTypeCount)
        out.fault = "no property can have the type " + std::to_string(out.record.type);
    else
        CheckValue(out);
}

std::string FlagWords(unsigned flags)
{
    std::string words = flags & kSavedVisible ? "visible" : "hidden";
    if (flags & kSavedReadOnly)
        words += ", read-only";
    return words;
}
