// Flags, texts of state and links of a property. Each setter compares before it writes, so that a repeated value
// announces nothing.
#include "core/VariantBool.h"
#include "core/prpProperty.h"
#include "core/prpPropertyCollection.h"
#include "frame/TextTools.h"

/// False while the property is in error. Raises, in this order: null pointer, no open transaction.
STDMETHODIMP CprpProperty::IsValid(VARIANT_BOOL* Valid)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::IsValid"), [&](const Checks& require) {
        require.Pointer(Valid, OLESTR("pbValid"));
        require.Transaction(InTransaction());
        *Valid = Out(m_bValid);
    });
}

/// Raises: no open transaction.
STDMETHODIMP CprpProperty::SetValid(VARIANT_BOOL Valid)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetValid"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        if (In(Valid) == m_bValid)
            return;
        m_bValid = In(Valid);
        QueueStateEdit();
    });
}

/// True while a warning stands. Raises, in this order: null pointer, no open transaction.
STDMETHODIMP CprpProperty::IsInWarning(VARIANT_BOOL* InWarning)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::IsInWarning"), [&](const Checks& require) {
        require.Pointer(InWarning, OLESTR("pbIsInWarning"));
        require.Transaction(InTransaction());
        *InWarning = Out(m_bWarning);
    });
}

/// Raises: no open transaction.
STDMETHODIMP CprpProperty::SetWarning(VARIANT_BOOL InWarning)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetWarning"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        if (In(InWarning) == m_bWarning)
            return;
        m_bWarning = In(InWarning);
        QueueStateEdit();
    });
}

/// Shown in the viewers. Raises, in this order: null pointer, no open transaction.
STDMETHODIMP CprpProperty::IsVisible(VARIANT_BOOL* Visible)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::IsVisible"), [&](const Checks& require) {
        require.Pointer(Visible, OLESTR("pbVisible"));
        require.Transaction(InTransaction());
        *Visible = Out(m_bVisible);
    });
}

/// Shows or hides the property in the viewers and to post-processing alike. Raises: no open transaction.
STDMETHODIMP CprpProperty::SetVisible(VARIANT_BOOL Visible)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetVisible"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        StoreVisible(In(Visible));
    });
}

void CprpProperty::StoreVisible(bool visible)
{
    if (visible == m_bVisible)
        return;
    // On purpose: hosts hide both views with this one call; SetDisplayDetails touches m_bVisible alone.
    m_bVisible = visible;
    m_bVisibleForPostProc = visible;
    QueueStateEdit(true);
}

/// Visible to post-processing. Raises, in this order: null pointer, no open transaction.
STDMETHODIMP CprpProperty::IsVisibleForPostProc(VARIANT_BOOL* Visible)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::IsVisibleForPostProc"), [&](const Checks& require) {
        require.Pointer(Visible, OLESTR("pbVisible"));
        require.Transaction(InTransaction());
        *Visible = Out(m_bVisibleForPostProc);
    });
}

/// Shows or hides the property to post-processing alone. Raises: no open transaction.
STDMETHODIMP CprpProperty::SetVisibleForPostProc(VARIANT_BOOL Visible)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetVisibleForPostProc"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        if (In(Visible) == m_bVisibleForPostProc)
            return;
        m_bVisibleForPostProc = In(Visible);
        QueueStateEdit(true);
    });
}

/// Raises, in this order: null pointer, no open transaction.
STDMETHODIMP CprpProperty::IsReadOnly(VARIANT_BOOL* ReadOnly)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::IsReadOnly"), [&](const Checks& require) {
        require.Pointer(ReadOnly, OLESTR("pbReadOnly"));
        require.Transaction(InTransaction());
        *ReadOnly = Out(m_bReadOnly);
    });
}

/// Raises: no open transaction.
STDMETHODIMP CprpProperty::SetReadOnly(VARIANT_BOOL ReadOnly)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetReadOnly"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        StoreReadOnly(In(ReadOnly));
    });
}

void CprpProperty::StoreReadOnly(bool readOnly)
{
    if (readOnly == m_bReadOnly)
        return;
    m_bReadOnly = readOnly;
    QueueStateEdit();
}

/// Id of a linked property; the link is for hosts. Raises, in this order: null pointer, no open transaction.
STDMETHODIMP CprpProperty::GetLinkedProperty(LONG* LinkedPropertyID)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetLinkedProperty"), [&](const Checks& require) {
        require.Pointer(LinkedPropertyID, OLESTR("pnLinkedPropertyID"));
        require.Transaction(InTransaction());
        *LinkedPropertyID = Extras().linkedPropID;
    });
}

/// Raises, in this order: no open transaction, negative id.
STDMETHODIMP CprpProperty::SetLinkedProperty(LONG LinkedPropertyID)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetLinkedProperty"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        require.NotNegative(LinkedPropertyID);
        if (LinkedPropertyID == Extras().linkedPropID)
            return;
        MakeExtras().linkedPropID = LinkedPropertyID;
        QueueStateEdit();
    });
}

/// Valid, visible and read-only at once. Raises, in this order: null pointers, no open transaction.
STDMETHODIMP CprpProperty::GetDisplayDetails(VARIANT_BOOL* Valid, VARIANT_BOOL* Visible, VARIANT_BOOL* ReadOnly)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetDisplayDetails"), [&](const Checks& require) {
        require.Pointer(Valid, OLESTR("pbValid"));
        require.Pointer(Visible, OLESTR("pbVisible"));
        require.Pointer(ReadOnly, OLESTR("pbReadOnly"));
        require.Transaction(InTransaction());
        *Valid = Out(m_bValid);
        *Visible = Out(m_bVisible);
        *ReadOnly = Out(m_bReadOnly);
    });
}

/// Valid, visible and read-only at once, with one event. Raises: no open transaction.
STDMETHODIMP CprpProperty::SetDisplayDetails(VARIANT_BOOL Valid, VARIANT_BOOL Visible, VARIANT_BOOL ReadOnly)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetDisplayDetails"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        const bool visibilityChanged = In(Visible) != m_bVisible;
        if (!visibilityChanged && In(Valid) == m_bValid && In(ReadOnly) == m_bReadOnly)
            return;
        // On purpose: the flag of post-processing stays, unlike with SetVisible.
        m_bValid = In(Valid);
        m_bVisible = In(Visible);
        m_bReadOnly = In(ReadOnly);
        QueueStateEdit(visibilityChanged);
    });
}

/// Whether the property is a part of the saved text. Raises: no open transaction.
STDMETHODIMP CprpProperty::SetAlwaysSave(VARIANT_BOOL AlwaysSave)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetAlwaysSave"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        if (In(AlwaysSave) == m_bAlwaysSave)
            return;
        m_bAlwaysSave = In(AlwaysSave);
        QueueStateEdit();
    });
}

/// Raises, in this order: null pointer, no open transaction.
STDMETHODIMP CprpProperty::GetAlwaysSave(VARIANT_BOOL* AlwaysSave)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetAlwaysSave"), [&](const Checks& require) {
        require.Pointer(AlwaysSave, OLESTR("pbAlwaysSave"));
        require.Transaction(InTransaction());
        *AlwaysSave = Out(m_bAlwaysSave);
    });
}

/// Error text shown for this property; stays null while the property is hidden everywhere.
/// @param ErrorString  out, must come in null; the caller frees it.
/// Raises, in this order: null pointer, non-null out string, no open transaction.
STDMETHODIMP CprpProperty::GetErrorString(BSTR* ErrorString)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetErrorString"), [&](const Checks& require) {
        require.Pointer(ErrorString, OLESTR("pbstrErrorString"));
        require.EmptyString(ErrorString, OLESTR("pbstrErrorString"));
        require.Transaction(InTransaction());
        if (m_bVisible || m_bVisibleForPostProc)
            *ErrorString = NewBstr(Extras().error.View());
    });
}

/// Error text; null counts as empty. The property is valid exactly when the text is empty.
/// Raises: no open transaction.
STDMETHODIMP CprpProperty::SetErrorString(BSTR ErrorString)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetErrorString"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        SetErrorText(ViewOf(ErrorString));
    });
}

void CprpProperty::SetErrorText(TextView text)
{
    // A change of case alone keeps the old spelling; the flag follows the text in any case, without an event.
    const bool bothEmpty = text.empty() && (!m_pExtras || Extras().error.Empty()); // what nearly every value edit meets
    if (!bothEmpty && !EqualsIgnoringCase(text, Extras().error.View())) {
        MakeExtras().error.Assign(text);
        QueueStateEdit();
    }
    m_bValid = text.empty();
}

/// Warning text shown for this property; stays null while the property is hidden everywhere.
/// @param WarningString  out, must come in null; the caller frees it.
/// Raises, in this order: null pointer, non-null out string, no open transaction.
STDMETHODIMP CprpProperty::GetWarningString(BSTR* WarningString)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetWarningString"), [&](const Checks& require) {
        require.Pointer(WarningString, OLESTR("pbstrWarningString"));
        require.EmptyString(WarningString, OLESTR("pbstrWarningString"));
        require.Transaction(InTransaction());
        if (m_bVisible || m_bVisibleForPostProc)
            *WarningString = NewBstr(Extras().warning.View());
    });
}

/// Warning text; null counts as empty. The property is in warning exactly when the text is not empty.
/// Raises: no open transaction.
STDMETHODIMP CprpProperty::SetWarningString(BSTR WarningString)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetWarningString"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        const TextView text = ViewOf(WarningString);
        if (!EqualsIgnoringCase(text, Extras().warning.View())) {
            MakeExtras().warning.Assign(text);
            QueueStateEdit();
        }
        m_bWarning = !text.empty();
    });
}

/// Bits of EprpEditFlags. Raises, in this order: null pointer, no open transaction.
STDMETHODIMP CprpProperty::GetEditFlags(LONG* EditFlags)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetEditFlags"), [&](const Checks& require) {
        require.Pointer(EditFlags, OLESTR("pnEditFlags"));
        require.Transaction(InTransaction());
        *EditFlags = m_nEditFlags;
    });
}

/// Bits of EprpEditFlags, stored as given. Raises: no open transaction.
STDMETHODIMP CprpProperty::SetEditFlags(LONG EditFlags)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetEditFlags"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        StoreEditFlags(EditFlags);
    });
}

void CprpProperty::StoreEditFlags(LONG flags)
{
    if (flags == m_nEditFlags)
        return;
    m_nEditFlags = flags;
    QueueStateEdit();
}

/// Whether the property and its children are exempt from unit conversion.
/// Raises, in this order: null pointer, no open transaction.
STDMETHODIMP CprpProperty::GetNoUnitConvert(VARIANT_BOOL* NoUnitConvert)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetNoUnitConvert"), [&](const Checks& require) {
        require.Pointer(NoUnitConvert, OLESTR("pbNoUnitConvert"));
        require.Transaction(InTransaction());
        *NoUnitConvert = Out(m_bNoUnitConvert);
    });
}

/// Announces nothing. Raises: no open transaction.
STDMETHODIMP CprpProperty::SetNoUnitConvert(VARIANT_BOOL NoUnitConvert)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetNoUnitConvert"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        m_bNoUnitConvert = In(NoUnitConvert);
    });
}

/// Module of the property's strings and pictures; 0 stands for the collection's default one.
/// Raises, in this order: null pointer, no open transaction.
STDMETHODIMP CprpProperty::GetHResModule(LONG_PTR* hModule)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetHResModule"), [&](const Checks& require) {
        require.Pointer(hModule, OLESTR("phModule"));
        require.Transaction(InTransaction());
        *hModule = Extras().hResModule;
    });
}

/// Raises, in this order: no open transaction, negative handle.
STDMETHODIMP CprpProperty::SetHResModule(LONG_PTR hModule)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetHResModule"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        require.NotNegative(hModule);
        if (hModule == Extras().hResModule)
            return;
        MakeExtras().hResModule = hModule;
        QueueStateEdit();
    });
}
