// Loading: saved values go into the present tree by id. Faults are reported and passed over; what no longer fits is
// gathered for the two keeping categories.
#include "core/SavedRecord.h"
#include "core/StreamText.h"
#include "core/prpPropertyCollection.h"
#include "frame/NumberScan.h"

namespace {

constexpr UINT kUnusedCategoryString = 32035;
constexpr UINT kMismatchedCategoryString = 32036;
constexpr LONG kUnusedCategory = 190;
constexpr LONG kMismatchedCategory = 191;

/// Enumeration values are saved with 32 bits and read with 16.
constexpr uint32_t kEnumBits = 0xFFFF;

void Report(IqorStream* errors, TextView message)
{
    if (!errors)
        return;
    const CComBSTR text(message);
    Must(errors->WriteString(text, VARIANT_TRUE));
}

} // namespace

/// Reads saved values into the present tree, in the format of LoadVersion. Properties that the text does not mention
/// keep their values. Data that has no property, or one of another type, is kept under a category of its own.
/// @param ErrorStream  optional; gets one message for each fault.
/// @param Success      optional out, whether every record was taken; then one load event is queued.
/// Raises, in this order: no open transaction, null stream; what a property or the keeping of data raises, with the
/// records ahead of it applied and Success untouched.
STDMETHODIMP CprpPropertyCollection::LoadFromStream(IqorStream* LoadStream, IqorStream* ErrorStream,
                                                    VARIANT_BOOL* Success)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::LoadFromStream"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        require.Pointer(LoadStream, OLESTR("pIStream"));

        const StreamText text(*LoadStream, ErrorStream); // an unreadable stream reads as an empty one
        if (text.View().empty()) {
            Report(ErrorStream, ParseErrorText(E_PROP_PARSE_ERROR_STREAM_EMPTY, {}, E_PROP_ID_INVALID));
            if (Success)
                *Success = VARIANT_FALSE;
            return;
        }
        m_bFireEvents = false; // a load announces itself, not each change; a raise leaves the events switched off
        const bool complete = LoadRecords(text.View(), ErrorStream);
        m_bFireEvents = true;
        if (complete)
            QueueLoadEvent();
        if (Success)
            *Success = complete ? VARIANT_TRUE : VARIANT_FALSE;
    });
}

bool CprpPropertyCollection::LoadRecords(TextView text, IqorStream* errors)
{
    bool complete = true;
    Text unescaped;
    Text unused;
    Text mismatched;
    for (const TextView untouched : SavedRecords(text)) {
        TextView record = untouched;
        if (HasEscapes(untouched)) {
            unescaped.assign(untouched);
            UndoEscapes(unescaped);
            record = unescaped;
        }
        LONG id = E_PROP_ID_INVALID;
        const EprpParseError result = LoadRecord(record, id);
        if (result == E_PROP_PARSE_ERROR_NONE)
            continue;
        complete = false;
        if (result == E_V1_PROP_PARSE_ERROR_PROPERTY_NOT_FOUND)
            unused.append(g_strStartMarker).append(untouched);
        if (result == E_V1_PROP_PARSE_ERROR_DATA_TYPE_MISMATCH)
            mismatched.append(g_strStartMarker).append(untouched);
        if (errors)
            Report(errors, ParseErrorMessage(result, record, id, text));
    }
    if (!unused.empty()) {
        m_nUnusedCategoryID = kUnusedCategory;
        KeepRecords(unused, kUnusedCategory, kUnusedCategoryString);
    }
    if (!mismatched.empty()) {
        m_nMismatchedCategoryID = kMismatchedCategory;
        KeepRecords(mismatched, kMismatchedCategory, kMismatchedCategoryString);
    }
    return complete;
}

EprpParseError CprpPropertyCollection::LoadRecord(TextView record, LONG& id)
{
    switch (m_nLoadVersion) {
    case 0: return LoadRecordVersion0(record, id);
    case 1: return LoadRecordVersion1(record);
    default: return E_V1_PROP_PARSE_ERROR_UNKNOWN_PROPERTY_VERSION;
    }
}

EprpParseError CprpPropertyCollection::LoadRecordVersion1(TextView record)
{
    SavedRecord saved;
    if (const EprpParseError fault = ParseRecordVersion1(record, saved))
        return fault;
    CprpProperty* property = Find(saved.id);
    if (!property)
        return E_V1_PROP_PARSE_ERROR_PROPERTY_NOT_FOUND;
    m_mapProperties.PrefetchAfter(*property); // a saved text comes in the order of the map
    if (const EprpParseError fault = ApplySavedValue(*property, saved))
        return fault;
    ApplySavedFlags(*property, saved);
    // On purpose only here: a text saved without read-only states clears them, one without edit flags keeps them.
    if (saved.flags & kSavedEditFlags)
        property->StoreEditFlags(saved.editFlags);
    return E_PROP_PARSE_ERROR_NONE;
}

EprpParseError CprpPropertyCollection::LoadRecordVersion0(TextView record, LONG& id)
{
    SavedRecord saved;
    const EprpParseError fault = ParseRecordVersion0(record, saved);
    id = saved.id;
    if (fault)
        return fault;
    CprpProperty* property = Find(saved.id);
    if (!property)
        return E_PROP_PARSE_ERROR_PROPID_NOT_FOUND;
    if (saved.value.empty() && !RuleOf(property->DataType()).emptySavedValue)
        return E_PROP_PARSE_ERROR_VALUE_NOT_FOUND;
    StoreSavedValue(*property, saved.value);
    ApplySavedFlags(*property, saved);
    return E_PROP_PARSE_ERROR_NONE;
}

EprpParseError CprpPropertyCollection::ApplySavedValue(CprpProperty& property, const SavedRecord& saved)
{
    if (property.DataType() == E_PROP_DT_NONE)
        return E_V1_PROP_PARSE_ERROR_INVALID_DATA_TYPE;
    if (static_cast<LONG>(property.DataType()) != saved.type)
        return E_V1_PROP_PARSE_ERROR_DATA_TYPE_MISMATCH;
    StoreSavedValue(property, saved.value);
    return E_PROP_PARSE_ERROR_NONE;
}

void CprpPropertyCollection::StoreSavedValue(CprpProperty& property, TextView value)
{
    switch (RuleOf(property.DataType()).saved) {
    case SavedForm::EnumValue: {
        uint32_t number = 0;
        if (TextScanner(value).ReadHex(number))
            property.StoreLong(static_cast<LONG>(number & kEnumBits));
        break;
    }
    case SavedForm::MultiLine: property.StoreString(ValueLines(value)); break;
    case SavedForm::Points: property.StoreScanPathText(ValueLines(value)); break;
    default: property.StoreString(value); break;
    }
}

void CprpPropertyCollection::ApplySavedFlags(CprpProperty& property, const SavedRecord& saved)
{
    property.StoreVisible((saved.flags & kSavedVisible) != 0);
    property.StoreReadOnly((saved.flags & kSavedReadOnly) != 0);
}
