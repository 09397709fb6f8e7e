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
    OLECHAR* const head = out.Room(kMostRecordHead + ValueText::kMostWritten);
    OLECHAR* const at = WriteRecordHead(head, property.Id(), flags, property.EditFlags(), property.DataType());
    if (form == SavedForm::EnumValue) {
        out.EndAt(WriteHex(at, static_cast<uint32_t>(property.LongValue()), HexCase::Lower));
        return;
    }
    if (IsNumeric(rule.kind)) {
        if (OLECHAR* const end = property.RenderValue(m_nPrecision).TryWrite(at)) {
            out.EndAt(end);
            return;
        }
    }
    out.EndAt(at);
    const std::size_t begin = out.Size();
    if (form == SavedForm::Points) {
        Text points;
        property.AppendScanPath(points);
        out.Append(points);
    } else {
        property.RenderValue(m_nPrecision).AppendTo(out);
    }
    EscapeValue(out, begin, form);
}
