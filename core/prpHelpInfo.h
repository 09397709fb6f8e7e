// Help texts and pictures by state and property; filled by a host, shared by collections.
#pragma once

#include "LV_prpPropCollection.h"
#include "core/HelpTable.h"
#include "frame/MethodFrame.h"
#include "platform/atl/ComObject.h"
#include "platform/atl/Dispatch.h"

class CprpHelpInfo : public CComObjectRootEx<CComSingleThreadModel>,
                     public CComCoClass<&CLSID_prpHelpInfo>,
                     public IDispatchImpl<IprpHelpInfo>,
                     public ISupportErrorInfoImpl<IprpHelpInfo> {
public:
    using Interfaces = InterfaceList<IprpHelpInfo, IDispatch, ISupportErrorInfo>;

    // IprpHelpInfo
    STDMETHODIMP AddHelpString(LONG State, LONG PropID, BSTR Res) override;
    STDMETHODIMP GetHelpString(LONG State, LONG PropID, BSTR* ResString, VARIANT_BOOL* Success) override;
    STDMETHODIMP AddPictureResource(LONG State, LONG Mask, LONG PropID, LONG_PTR hModule, LONG ResID) override;
    STDMETHODIMP AddHelpStringResource(LONG State, LONG Mask, LONG PropID, LONG_PTR hModule, LONG ResID) override;
    STDMETHODIMP GetHelpStringResource(LONG State, LONG PropID, LONG_PTR* hModule, LONG* ResID,
                                       VARIANT_BOOL* Success) override;
    STDMETHODIMP GetPictureResource(LONG State, LONG PropID, LONG_PTR* hModule, LONG* ResID,
                                    VARIANT_BOOL* Success) override;

private:
    static const Origin kOrigin;

    HelpTable m_PictureTable;
    HelpTable m_HelpTable;
};
