// Help texts and pictures of a property in the collection's present state, from the attached help object.
#include "core/prpPropertyCollection.h"
#include "platform/system/ModuleStrings.h"

/// Attaches a help object in place of the present one; it cannot be detached. Raises: null pointer.
STDMETHODIMP CprpPropertyCollection::AttachHelpInfo(IprpHelpInfo* HelpInfo)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::AttachHelpInfo"), [&](const Checks& require) {
        require.Pointer(HelpInfo, OLESTR("pIHelpInfo"));
        m_pIHelpInfo = HelpInfo;
    });
}

/// The attached help object with a reference for the caller, or null. Raises: null pointer.
STDMETHODIMP CprpPropertyCollection::GetHelpInfo(IprpHelpInfo** HelpInfo)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::GetHelpInfo"), [&](const Checks& require) {
        require.Pointer(HelpInfo, OLESTR("ppHelpInfo"));
        *HelpInfo = CComPtr<IprpHelpInfo>(m_pIHelpInfo).Detach();
    });
}

/// Picture of a property in the present state.
/// @param ResID        out, its id; 0 in state 0 and without a help object.
/// @param ResInstance  in and out, its module: 0 for an unknown property; a 0 becomes the property's module, then the
///                     default one. Without a help object not touched.
/// @param Success      out, whether a picture was found.
/// Raises, in this order: null pointers, no open transaction.
STDMETHODIMP CprpPropertyCollection::GetPictureResource(LONG PropID, LONG* ResID, LONG_PTR* ResInstance,
                                                        VARIANT_BOOL* Success)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::GetPictureResource"), [&](const Checks& require) {
        require.Pointer(ResID, OLESTR("pnResID"));
        require.Pointer(ResInstance, OLESTR("pnResInstance"));
        require.Pointer(Success, OLESTR("pbSuccess"));
        require.Transaction(InTransaction());

        *Success = VARIANT_FALSE;
        if (m_nState == 0 || !m_pIHelpInfo)
            *ResID = 0;
        if (!m_pIHelpInfo)
            return;
        Must(m_pIHelpInfo->GetPictureResource(m_nState, PropID, ResInstance, ResID, Success));
        const CprpProperty* const property = Find(PropID);
        if (!property)
            *ResInstance = 0;
        else if (*ResInstance == 0)
            *ResInstance = property->ResModule() ? property->ResModule() : m_hDefaultResInstance;
    });
}

/// Help text of a property in the present state: a text that was added, else a string resource.
/// @param ResID      optional out, id of the string resource; not written by a text that was added.
/// @param ResString  optional out, must come in null; the text, which the caller frees. Null asks for the id alone.
/// @param Success    out, whether help was found, also when the string itself cannot be loaded.
/// Raises, in this order: no open transaction, null pointer, non-null out string, invalid id.
STDMETHODIMP CprpPropertyCollection::GetHelpStringResource(LONG PropID, LONG* ResID, BSTR* ResString,
                                                           VARIANT_BOOL* Success)
{
    return InFrame(kOrigin, OLESTR("CprpPropertyCollection::GetHelpStringResource"), [&](const Checks& require) {
        require.Transaction(InTransaction());
        require.Pointer(Success, OLESTR("pbSuccess"));
        if (ResString)
            require.EmptyString(ResString, OLESTR("pbstrResString"));
        require.PropertyId(PropID);

        if (m_nState == 0 || !m_pIHelpInfo) {
            *Success = VARIANT_FALSE;
            if (ResID)
                *ResID = 0;
        }
        if (!m_pIHelpInfo)
            return;
        if (ResString) {
            Must(m_pIHelpInfo->GetHelpString(m_nState, PropID, ResString, Success));
            if (*Success || !ResID)
                return;
        }
        LONG_PTR module = 0;
        LONG localId = 0;
        LONG* const id = ResID ? ResID : &localId;
        Must(m_pIHelpInfo->GetHelpStringResource(m_nState, PropID, &module, id, Success));
        Text text;
        if (ResString && *Success && LoadModuleString(module, static_cast<UINT>(*id), text))
            *ResString = NewBstr(text);
    });
}
