// Saving: one text of all records, in the order of the id map, which the stream takes over.
#include "core/SavedRecord.h"
#include "core/StreamText.h"
#include "core/prpPropertyCollection.h"
#include "frame/NumberText.h"

#include <utility>

/// Writes the values of all saved properties as one text item.
/// @param Success  out, true once the text stands on the stream.
/// Raises, in this order: null pointers, no open transaction; an internal error for a saved property of type
/// E_PROP_DT_STRING_UNICODE, with nothing written.
STDMETHODIMP CprpPropertyCollection::SaveToStream(IqorStream* SaveStream, VARIANT_BOOL* Success)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::SaveToStream"), [&](const Checks& require) {
        require.Pointer(SaveStream, OLESTR("pIStream"));
        require.Pointer(Success, OLESTR("pbSuccess"));
        require.Transaction(InTransaction());

        *Success = VARIANT_FALSE;
        TextBuffer text;
        text.Reserve(m_nSavedUnits + m_nSavedUnits / 16); // values grow and shrink a little from save to save
        m_mapProperties.ForEach([&](CprpProperty& property) {
            if (property.AlwaysSave())
                AppendRecord(text, property);
        });
        m_nSavedUnits = text.Size();
        WriteWhole(*SaveStream, std::move(text));
        *Success = VARIANT_TRUE;
    });
}

void CprpPropertyCollection::AppendRecord(TextBuffer& out, CprpProperty& property)
{
    const DataTypeRule& rule = RuleOf(property.DataType());
    const SavedForm form = rule.saved;
    if (form == SavedForm::Refused)
        ThrowInternal();
    const unsigned flags = (property.Visible() ? kSavedVisible : 0U) |
                           (property.ReadOnly() && m_bSaveReadOnlyStates ? kSavedReadOnly : 0U) |
                           (m_bSaveEditFlags ? kSavedEditFlags : 0U);
    AppendRecordHead(out, property.Id(), flags, property.EditFlags(), property.DataType());
    const std::size_t begin = out.Size();
    switch (form) {
    case SavedForm::EnumValue: {
        const auto value = static_cast<uint32_t>(property.LongValue());
        out.EndAt(WriteHex(out.Room(kMaxFastNumber), value, HexCase::Lower));
        break;
    }
    case SavedForm::Points: {
        Text points;
        property.AppendScanPath(points);
        out.Append(points);
        break;
    }
    default: property.AppendValue(out, m_nPrecision); break;
    }
    if (!IsNumeric(rule.kind)) // no number holds what is escaped
        EscapeValue(out, begin, form);
}
