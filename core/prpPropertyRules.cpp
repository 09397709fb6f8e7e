// The visibility rules of a property: objects that hosts share, evaluated when they are set and at the end of each
// transaction that queued anything.
#include "core/prpProperty.h"
#include "core/prpPropertyCollection.h"

namespace {

/// Asks a rule. The reference keeps it while it may call out; an evaluation that fails counts as not visible.
VARIANT_BOOL AnswerOf(CComPtr<IprpVisibilityInfo> rule, CprpPropertyCollection& collection)
{
    VARIANT_BOOL visible = VARIANT_FALSE;
    return SUCCEEDED(rule->IsVisible(&collection, &visible)) ? visible : VARIANT_FALSE;
}

} // namespace

/// Gives the property a rule for its visibility, in place of the present one, and applies it at once. Shares the
/// object. Needs no transaction of its own, but SetVisible does: outside of one the rule is stored and the method
/// fails. Raises: null pointer; what SetVisible raises.
STDMETHODIMP CprpProperty::SetVisibilityInfo(IprpVisibilityInfo* VisibilityInfo)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetVisibilityInfo"), [&](const Checks& require) {
        require.Pointer(VisibilityInfo, OLESTR("pIVisibilityInfo"));
        MakeExtras().visibilityInfo = VisibilityInfo;
        Owner().NoteRule(*this);
        Must(SetVisible(AnswerOf(VisibilityInfo, Owner())));
    });
}

/// The rule with a reference for the caller, or null.
/// @param VisibilityInfo  in and out: what it holds is released, so it must come in null or owned.
/// Needs no transaction. Raises: null pointer.
STDMETHODIMP CprpProperty::GetVisibilityInfo(IprpVisibilityInfo** VisibilityInfo)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::GetVisibilityInfo"), [&](const Checks& require) {
        require.Pointer(VisibilityInfo, OLESTR("ppIVisibilityInfo"));
        if (IprpVisibilityInfo* const former = std::exchange(*VisibilityInfo, nullptr))
            former->Release();
        *VisibilityInfo = CComPtr<IprpVisibilityInfo>(Extras().visibilityInfo).Detach();
    });
}

/// Gives the property a rule for its visibility to post-processing, like SetVisibilityInfo.
/// Raises: null pointer; what SetVisibleForPostProc raises.
STDMETHODIMP CprpProperty::SetPostProcVisibilityInfo(IprpVisibilityInfo* VisibilityInfo)
{
    return InFrame(kOrigin, OLESTR("CprpProperty::SetPostProcVisibilityInfo"), [&](const Checks& require) {
        require.Pointer(VisibilityInfo, OLESTR("pIVisibilityInfo"));
        MakeExtras().postProcVisibilityInfo = VisibilityInfo;
        Owner().NoteRule(*this);
        Must(SetVisibleForPostProc(AnswerOf(VisibilityInfo, Owner())));
    });
}

/// Takes the rule for the visibility away. The visibility stays as it is, and so does the rule for post-processing.
/// Needs no transaction; nothing is announced.
STDMETHODIMP CprpProperty::ClearVisibilityInfo()
{
    return InFrame(kOrigin, OLESTR("CprpProperty::ClearVisibilityInfo"), [&](const Checks&) {
        if (m_pExtras)
            MakeExtras().visibilityInfo.Release();
    });
}

void CprpProperty::ApplyRules()
{
    const CComPtr<IqorProperty> living(this); // a rule of a host may remove what it decides about
    if (IprpVisibilityInfo* const rule = Extras().visibilityInfo)
        Must(SetVisible(AnswerOf(rule, Owner())));
    // On purpose second: SetVisible writes both flags, and the rule for post-processing has the last word on its own.
    if (IprpVisibilityInfo* const rule = Extras().postProcVisibilityInfo)
        Must(SetVisibleForPostProc(AnswerOf(rule, Owner())));
}
