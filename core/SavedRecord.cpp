#include "core/SavedRecord.h"

#include "frame/FormatText.h"
#include "frame/LanguageStrings.h"
#include "frame/NumberScan.h"
#include "frame/NumberText.h"

#include <algorithm>

namespace {

constexpr OLECHAR kBar = OLESTR('|');
constexpr OLECHAR kFlagBase = OLESTR('g');
constexpr unsigned kKnownFlags = kSavedVisible | kSavedReadOnly | kSavedEditFlags;
constexpr UINT kStreamEmptyString = 32000;

/// The letters behind the hexadecimal digits; the first of them ends the id.
constexpr bool IsFlagLetter(OLECHAR unit)
{
    return FoldAscii(unit) >= kFlagBase && FoldAscii(unit) <= OLESTR('z');
}

/// A missing type character reads as the terminator, which is no type.
LONG TypeOf(TextView rest)
{
    const OLECHAR letter = rest.empty() ? OLECHAR{0} : FoldAscii(rest.front());
    return letter >= OLESTR('0') && letter <= OLESTR('9') ? letter - OLESTR('0') : letter - OLESTR('a');
}

/// Takes the id off a record and leaves at least the letter behind it.
EprpParseError TakeId(TextView& rest, LONG& id)
{
    TextScanner scanner(rest);
    uint32_t bits = 0;
    if (scanner.ReadBareHex(bits) && !scanner.AtEnd() && IsFlagLetter(scanner.Rest().front())) {
        id = static_cast<LONG>(bits);
        rest = scanner.Rest();
        return E_PROP_PARSE_ERROR_NONE;
    }
    // What no saver writes: white space, a sign, or something else between the digits and the letter.
    const auto letter = std::find_if(rest.begin(), rest.end(), IsFlagLetter);
    const TextView text(rest.begin(), letter);
    rest.remove_prefix(text.size());
    if (text.empty())
        return E_V1_PROP_PARSE_ERROR_INVALID_PROPERTY_STRING;
    if (!TextScanner(text).ReadHex(id))
        return E_V1_PROP_PARSE_ERROR_PROPERTYID_FAILED;
    return rest.empty() ? E_V1_PROP_PARSE_ERROR_INVALID_PROPERTY_STRING : E_PROP_PARSE_ERROR_NONE;
}

/// Takes the edit flags and the bar behind them. False when either is missing.
bool TakeEditFlags(TextView& rest, LONG& editFlags)
{
    TextScanner scanner(rest);
    uint32_t bits = 0;
    if (scanner.ReadBareHex(bits) && scanner.ReadLiteral(kBar)) {
        editFlags = static_cast<LONG>(bits);
        rest = scanner.Rest();
        return true;
    }
    const auto bar = rest.find(kBar);
    if (bar == rest.npos || !TextScanner(rest.substr(0, bar)).ReadHex(editFlags))
        return false;
    rest.remove_prefix(bar + 1);
    return true;
}

/// Texts of the faults in the order of their numbers. Those with a placeholder get the record or the id.
struct FaultText {
    EprpParseError error;
    const OLECHAR* text;
};

constexpr FaultText kFaultTexts[] = {
    {E_PROP_PARSE_ERROR_DELIM_NOT_FOUND, OLESTR("Delimiter not found.")},
    {E_PROP_PARSE_ERROR_VALUE_NOT_FOUND, OLESTR("Value not found - token %s.")},
    {E_PROP_PARSE_ERROR_PROPID_NOT_FOUND, OLESTR("PropertyID %d was not found in the collection.")},
    {E_PROP_PARSE_ERROR_EMPTY, OLESTR("The string was empty.")},
    {E_V1_PROP_PARSE_ERROR_UNKNOWN_PROPERTY_VERSION, OLESTR("Unknown property version")},
    {E_V1_PROP_PARSE_ERROR_INVALID_PROPERTY_STRING, OLESTR("Invalid property string")},
    {E_V1_PROP_PARSE_ERROR_PROPERTYID_FAILED, OLESTR("Propertyid failed")},
    {E_V1_PROP_PARSE_ERROR_DATA_TYPE_MISMATCH, OLESTR("Data type mismatch")},
    {E_V1_PROP_PARSE_ERROR_PROPERTY_NOT_FOUND, OLESTR("Property not found")},
    {E_V1_PROP_PARSE_ERROR_INVALID_DATA_TYPE, OLESTR("Invalid data type")},
};

} // namespace

void UndoEscapes(Text& record)
{
    ReplaceAll(record, OLESTR("\\$"), OLESTR("~"));
    ReplaceAll(record, OLESTR("\\&"), OLESTR("|"));
}

EprpParseError ParseRecordVersion1(TextView record, SavedRecord& out)
{
    out = {};
    if (record.empty())
        return E_V1_PROP_PARSE_ERROR_INVALID_PROPERTY_STRING;
    TextView rest = record;
    if (const EprpParseError fault = TakeId(rest, out.id))
        return fault;

    out.flags = static_cast<unsigned>(FoldAscii(rest.front()) - kFlagBase) & kKnownFlags;
    rest.remove_prefix(1);
    if ((out.flags & kSavedEditFlags) && !TakeEditFlags(rest, out.editFlags))
        return E_V1_PROP_PARSE_ERROR_INVALID_DATA_TYPE;
    out.type = TypeOf(rest);
    if (out.type == E_PROP_DT_NONE)
        return E_V1_PROP_PARSE_ERROR_INVALID_DATA_TYPE;
    if (!rest.empty())
        rest.remove_prefix(1);
    out.value = rest;
    return rest.empty() && !RuleOf(out.type).emptySavedValue ? E_PROP_PARSE_ERROR_VALUE_NOT_FOUND
                                                             : E_PROP_PARSE_ERROR_NONE;
}

EprpParseError ParseRecordVersion0(TextView record, SavedRecord& out)
{
    out = {};
    if (record.empty())
        return E_PROP_PARSE_ERROR_EMPTY;
    const auto bar = record.find(kBar);
    if (bar == record.npos)
        return E_PROP_PARSE_ERROR_PROPID_NOT_FOUND;
    TextScanner scanner(record.substr(0, bar));
    uint32_t id = 0;
    if (!scanner.ReadHex(id))
        return E_PROP_PARSE_ERROR_PROPID_NOT_FOUND;
    out.id = static_cast<LONG>(id & 0xFFFF);
    uint32_t flags = 0;
    if (scanner.ReadLiteral(OLESTR(',')) && scanner.ReadHex(flags))
        out.flags = flags & (kSavedVisible | kSavedReadOnly);
    out.value = record.substr(bar + 1);
    return E_PROP_PARSE_ERROR_NONE;
}

OLECHAR* WriteRecordHead(OLECHAR* out, LONG id, unsigned flags, LONG editFlags, LONG type) noexcept
{
    static_assert(kMostRecordHead >= g_strStartMarker.size() + 2 * kMaxFastNumber + 3);
    out = std::copy(g_strStartMarker.begin(), g_strStartMarker.end(), out);
    out = WriteHex(out, static_cast<uint32_t>(id), HexCase::Lower);
    *out++ = static_cast<OLECHAR>(kFlagBase + flags);
    if (flags & kSavedEditFlags) {
        out = WriteHex(out, static_cast<uint32_t>(editFlags), HexCase::Upper);
        *out++ = kBar;
    }
    *out++ = TypeCharacter(type);
    return out;
}

void AppendRecord(TextBuffer& out, const SavedRecord& record)
{
    out.EndAt(WriteRecordHead(out.Room(kMostRecordHead), record.id, record.flags, record.editFlags, record.type));
    const std::size_t begin = out.Size();
    out.Append(record.value);
    EscapeValue(out, begin, RuleOf(record.type).saved);
}

void EscapeValue(TextBuffer& out, std::size_t begin, SavedForm form)
{
    if (form == SavedForm::Plain || form == SavedForm::EnumValue)
        return;
    const bool points = form == SavedForm::Points;
    const TextView plain = out.View().substr(begin);
    if (!Contains(plain, OLESTR('\r')) && (points || (!Contains(plain, OLESTR('~')) && !Contains(plain, kBar))))
        return;
    Text value(plain);
    if (points || form == SavedForm::MultiLine)
        ReplaceAll(value, OLESTR("\r\n"), OLESTR("#"));
    if (!points) {
        ReplaceAll(value, OLESTR("~"), OLESTR("\\$"));
        ReplaceAll(value, OLESTR("|"), OLESTR("\\&"));
    }
    out.Cut(begin);
    out.Append(value);
}

Text ValueLines(TextView value)
{
    Text lines(value);
    ReplaceAll(lines, OLESTR("#"), OLESTR("\r\n"));
    return lines;
}

Text ParseErrorText(EprpParseError error, TextView record, LONG id)
{
    if (error == E_PROP_PARSE_ERROR_STREAM_EMPTY) {
        Text text;
        LoadLanguageString(kStreamEmptyString, text);
        return text;
    }
    for (const FaultText& fault : kFaultTexts) {
        if (fault.error == error)
            return error == E_PROP_PARSE_ERROR_VALUE_NOT_FOUND ? FormatText(fault.text, record)
                                                               : FormatText(fault.text, id);
    }
    return OLESTR("An unknown parsing error has occurred.");
}

Text ParseErrorMessage(EprpParseError error, TextView record, LONG id, TextView line)
{
    return FormatText(OLESTR("A parsing error has occurred (%s) at line: %s"), ParseErrorText(error, record, id), line);
}
