// Saving: one text of all records, in the order of the id map, handed to the stream in one call.
#include "core/SavedRecord.h"
#include "core/prpPropertyCollection.h"
#include "frame/NumberText.h"

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
        Text text;
        m_mapProperties.ForEach([&](CprpProperty& property) {
            if (property.AlwaysSave())
                AppendRecord(text, property);
        });
        const CComBSTR saved(text);
        if (!saved)
            throw ComError{E_OUTOFMEMORY, {}};
        Must(SaveStream->WriteString(saved, VARIANT_TRUE));
        *Success = VARIANT_TRUE;
    });
}

void CprpPropertyCollection::AppendRecord(Text& out, CprpProperty& property)
{
    const SavedForm form = RuleOf(property.DataType()).saved;
    if (form == SavedForm::Refused)
        ThrowInternal();
    const unsigned flags = (property.Visible() ? kSavedVisible : 0U) |
                           (property.ReadOnly() && m_bSaveReadOnlyStates ? kSavedReadOnly : 0U) |
                           (m_bSaveEditFlags ? kSavedEditFlags : 0U);
    AppendRecordHead(out, property.Id(), flags, property.EditFlags(), property.DataType());
    const std::size_t begin = out.size();
    switch (form) {
    case SavedForm::EnumValue: AppendHex(out, static_cast<uint32_t>(property.LongValue()), HexCase::Lower); break;
    case SavedForm::Points: property.AppendScanPath(out); break;
    default: property.AppendValue(out, m_nPrecision); break;
    }
    EscapeValue(out, begin, form);
}
