// The text of a value: what a list shows, what a host reads and writes, and what each value edit carries as the old
// text. The rules by data type stand in DataTypes.
#include "core/DataTypes.h"
#include "core/Transliterate.h"
#include "core/prpProperty.h"
#include "core/prpPropertyCollection.h"
#include "frame/FormatText.h"
#include "frame/LanguageStrings.h"
#include "frame/NumberScan.h"
#include "frame/NumberText.h"
#include "frame/TextTools.h"

#include <utility>

namespace {

constexpr UINT kPathPointsString = 32015;

bool ReadWrittenPosition(TextScanner& scanner, LONG decimals, SprpPosition& position)
{
    constexpr OLECHAR between = OLESTR(';');
    return scanner.ReadWrittenNumber(decimals, position.X) && scanner.ReadLiteral(between) &&
           scanner.ReadWrittenNumber(decimals, position.Y) && scanner.ReadLiteral(between) &&
           scanner.ReadWrittenNumber(decimals, position.Z);
}

Text CountText(std::size_t points)
{
    Text format; // without the string the text is empty
    LoadLanguageString(kPathPointsString, format);
    return FormatText(format, points);
}

} // namespace

const ValueText& CprpProperty::RenderValue(LONG precision)
{
    const DataTypeRule& rule = RuleOf(m_eDataType);
    const LONG decimals = rule.decimals == kCollectionPrecision ? precision : rule.decimals;
    switch (rule.kind) {
    case ValueKind::Number:
        if (!m_Value.IsNumber(m_dbDouble, decimals)) // what stands there is not written again: that would cost memory
            m_Value = ValueText::OfNumber(m_dbDouble, decimals);
        break;
    case ValueKind::Signed: m_Value = ValueText::OfSigned(m_nLong); break;
    case ValueKind::Unsigned: m_Value = ValueText::OfUnsigned(static_cast<ULONG>(m_nLong)); break;
    case ValueKind::Position:
        if (!m_Value.IsPosition(Extras().position, decimals))
            m_Value = ValueText::OfPosition(Extras().position, decimals);
        break;
    case ValueKind::ScanPath: m_Value = ValueText::OfText(CountText(Extras().scanPath->size())); break;
    case ValueKind::Tolerance: {
        Text text;
        Extras().tolerance->AppendTo(text);
        m_Value = ValueText::OfText(text);
        break;
    }
    case ValueKind::Unset:
    case ValueKind::AnyText:
    case ValueKind::AnsiText: break;
    }
    return m_Value;
}

const ValueText& CprpProperty::RenderValue()
{
    return RenderValue(Owner().PrecisionValue());
}

const ValueText& CprpProperty::RenderForEdit(CallSite at)
{
    if (!InTransaction())
        ThrowFormatted(at, kNoTransactionText);
    return RenderValue();
}

/// The value as text, numbers with the collection's decimals.
/// @param PropertyString  out, must come in null; the caller frees it.
/// Raises, in this order: null pointer, non-null out string, no open transaction; an internal error for a tolerance
/// of a bad type.
STDMETHODIMP CprpProperty::GetPropertyString(BSTR* PropertyString)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetPropertyString"), [&](const Checks& require) {
        require.Pointer(PropertyString, OLESTR("pbstrPropString"));
        require.EmptyString(PropertyString, OLESTR("pbstrPropString"));
        require.Transaction(InTransaction());
        const ValueText& value = RenderValue();
        *PropertyString =
            value.GetForm() == ValueText::Form::Literal ? NewBstr(value.Literal()) : NewBstr(value.ToText());
    });
}

/// Takes the value from text; null counts as empty. A differing text clears the error before it is read. A text that
/// holds no number leaves the value, and is announced like a change; it is not reported.
/// Raises: no open transaction; an internal error for a property without a type and for a tolerance of a bad type.
STDMETHODIMP CprpProperty::SetPropertyString(BSTR NewPropertyString)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetPropertyString"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        StoreString(ViewOf(NewPropertyString));
    });
}

void CprpProperty::StoreString(TextView text)
{
    if (StoreRendering(text))
        return;
    const ValueKind kind = RuleOf(m_eDataType).kind;
    RenderValue();
    if (text.empty() && IsNumeric(kind)) {
        QueueValueEdit(m_Value); // an empty text changes no number, and is announced all the same
        return;
    }
    if (m_Value.Equals(text))
        return;
    SetErrorText({}); // any change of the text makes the property valid, before the text has been read
    if (!ParseValue(text)) {
        QueueValueEdit(m_Value);
        return;
    }
    const bool toAscii = kind == ValueKind::AnsiText && NeedsTransliteration(text);
    ValueText value = toAscii ? ValueText::OfText(TransliterateToAscii(text)) : ValueText::OfText(text);
    std::swap(m_Value, value);
    QueueValueEdit(value);
}

bool CprpProperty::StoreRendering(TextView text)
{
    const DataTypeRule& rule = RuleOf(m_eDataType);
    const LONG decimals = rule.decimals == kCollectionPrecision ? Owner().PrecisionValue() : rule.decimals;
    TextScanner scanner(text);
    switch (rule.kind) {
    case ValueKind::Number: {
        double number = 0;
        if (!scanner.ReadWrittenNumber(decimals, number) || !scanner.AtEnd())
            return false;
        StoreRead(ValueText::OfNumber(number, decimals), [&] { m_dbDouble = number; });
        return true;
    }
    case ValueKind::Signed: {
        int32_t number = 0;
        if (!scanner.ReadWrittenSigned(number) || !scanner.AtEnd())
            return false;
        StoreRead(ValueText::OfSigned(number), [&] { m_nLong = number; });
        return true;
    }
    case ValueKind::Unsigned: {
        uint32_t number = 0;
        if (!scanner.ReadWrittenUnsigned(number) || !scanner.AtEnd())
            return false;
        StoreRead(ValueText::OfUnsigned(number), [&] { m_nLong = static_cast<LONG>(number); });
        return true;
    }
    case ValueKind::Position: {
        SprpPosition position{};
        if (!ReadWrittenPosition(scanner, decimals, position) || !scanner.AtEnd())
            return false;
        StoreRead(ValueText::OfPosition(position, decimals), [&] { MakeExtras().position = position; });
        return true;
    }
    default: return false;
    }
}

template <class Store>
void CprpProperty::StoreRead(ValueText value, Store&& store)
{
    RenderValue();
    if (m_Value.Equals(value))
        return;
    SetErrorText({});
    store();
    QueueValueEdit(m_Value);
    m_Value = std::move(value);
}

bool CprpProperty::ParseValue(TextView text)
{
    TextScanner scanner(text);
    switch (RuleOf(m_eDataType).kind) {
    case ValueKind::Unset: ThrowInternal();
    case ValueKind::Number: return scanner.ReadDouble(m_dbDouble);
    case ValueKind::Signed:
    case ValueKind::Unsigned: return scanner.ReadDecimal(m_nLong);
    case ValueKind::Position: return ParsePosition(text);
    case ValueKind::Tolerance: MakeExtras().tolerance.Make() = CprpTolerance::Parse(text); break;
    case ValueKind::ScanPath: StoreScanPathText(text); break;
    case ValueKind::AnyText:
    case ValueKind::AnsiText: break;
    }
    return true;
}

bool CprpProperty::ParsePosition(TextView text)
{
    Text plain(text);
    EraseAny(plain, OLESTR("()[]{}"));
    SprpPosition& position = MakeExtras().position;
    double* const coordinates[] = {&position.X, &position.Y, &position.Z};
    std::size_t read = 0;
    for (const TextView token : SplitAt(plain, OLESTR("; "))) {
        // Coordinates read ahead of a bad token stay.
        if (read == std::size(coordinates) || !TextScanner(token).ReadDouble(*coordinates[read]))
            return false;
        ++read;
    }
    return read == std::size(coordinates);
}
