#include "core/prpHelpInfo.h"

#include "core/VariantBool.h"

const Origin CprpHelpInfo::kOrigin{CLSID_prpHelpInfo, IID_IprpHelpInfo};

namespace {

HRESULT FindResource(const Origin& origin, const OLECHAR* method, const HelpTable& table, LONG state, LONG propId,
                     LONG_PTR* hModule, LONG* resId, VARIANT_BOOL* success)
{
    return InFrame(origin, method, [&](const Checks& require) {
        require.Pointer(hModule, OLESTR("phModule"));
        require.Pointer(resId, OLESTR("pnResID"));
        require.Pointer(success, OLESTR("pbSuccess"));
        const HelpResource* const found = table.FindResource(state, propId);
        *success = Out(found != nullptr);
        if (!found)
            return;
        *hModule = found->hModule;
        *resId = found->nResID;
    });
}

} // namespace

/// Gives a property in a state a help text.
/// @param State   the host's number, -1 for any state.
/// @param PropID  -1 for any property; 0 is a property like another here.
/// @param Res     null is kept: an answer without a text.
STDMETHODIMP CprpHelpInfo::AddHelpString(LONG State, LONG PropID, BSTR Res)
{
    return InFrame(kOrigin, OLESTR("CprpHelpInfo::AddHelpString"), [&](const Checks&) {
        m_HelpTable.AddText(State, PropID, Res ? HelpTable::Entry(ViewOf(Res)) : std::nullopt);
    });
}

/// Help text of a property in a state, or else in any state.
/// @param ResString  out, must come in null; the caller frees it. Null without an answer and for a null entry.
/// @param Success    out, whether there is an answer.
/// Raises, in this order: null pointers, non-null out string.
STDMETHODIMP CprpHelpInfo::GetHelpString(LONG State, LONG PropID, BSTR* ResString, VARIANT_BOOL* Success)
{
    return InFrame(kOrigin, OLESTR("CprpHelpInfo::GetHelpString"), [&](const Checks& require) {
        require.Pointer(ResString, OLESTR("pbstrResString"));
        require.Pointer(Success, OLESTR("pbSuccess"));
        require.EmptyString(ResString, OLESTR("pbstrResString"));
        const HelpTable::Entry* const found = m_HelpTable.FindText(State, PropID);
        *Success = Out(found != nullptr);
        if (found && *found)
            *ResString = NewBstr(**found);
    });
}

/// Gives a property in a state a picture.
/// @param State    the host's number, -1 for any state.
/// @param Mask     bits of a state that count for the property; the first one given with a state other than -1 stands.
/// @param PropID   -1 or 0 for every property that has no pictures of its own.
/// @param hModule  module of the picture; 0 lets the property's or the collection's stand in.
STDMETHODIMP CprpHelpInfo::AddPictureResource(LONG State, LONG Mask, LONG PropID, LONG_PTR hModule, LONG ResID)
{
    return InFrame(kOrigin, OLESTR("CprpHelpInfo::AddPictureResource"), [&](const Checks&) {
        m_PictureTable.AddResource(State, Mask, PropID, {hModule, ResID});
    });
}

/// Gives a property in a state a help text in a string resource; the arguments are those of AddPictureResource.
STDMETHODIMP CprpHelpInfo::AddHelpStringResource(LONG State, LONG Mask, LONG PropID, LONG_PTR hModule, LONG ResID)
{
    return InFrame(kOrigin, OLESTR("CprpHelpInfo::AddHelpStringResource"), [&](const Checks&) {
        m_HelpTable.AddResource(State, Mask, PropID, {hModule, ResID});
    });
}

/// String resource of a property's help text in a state.
/// @param hModule  out, untouched without an answer, and so is ResID.
/// @param Success  out, whether there is an answer.
/// Raises: null pointers, in argument order.
STDMETHODIMP CprpHelpInfo::GetHelpStringResource(LONG State, LONG PropID, LONG_PTR* hModule, LONG* ResID,
                                                 VARIANT_BOOL* Success)
{
    return FindResource(kOrigin, OLESTR("CprpHelpInfo::GetHelpStringResource"), m_HelpTable, State, PropID, hModule,
                        ResID, Success);
}

/// Picture of a property in a state; the arguments are those of GetHelpStringResource.
STDMETHODIMP CprpHelpInfo::GetPictureResource(LONG State, LONG PropID, LONG_PTR* hModule, LONG* ResID,
                                              VARIANT_BOOL* Success)
{
    return FindResource(kOrigin, OLESTR("CprpHelpInfo::GetPictureResource"), m_PictureTable, State, PropID, hModule,
                        ResID, Success);
}
