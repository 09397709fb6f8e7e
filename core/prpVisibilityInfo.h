// A rule that says whether a property should be visible, from the integer values of other properties: a disjunction
// of rows, each a conjunction over the controlling properties.
#pragma once

#include "LV_prpPropCollection.h"
#include "frame/MethodFrame.h"
#include "platform/atl/ComObject.h"
#include "platform/atl/Dispatch.h"

#include <vector>

class CprpVisibilityInfo : public CComObjectRootEx<CComSingleThreadModel>,
                           public CComCoClass<&CLSID_prpVisibilityInfo>,
                           public IDispatchImpl<IprpVisibilityInfo>,
                           public ISupportErrorInfoImpl<IprpVisibilityInfo> {
public:
    using Interfaces = InterfaceList<IprpVisibilityInfo, IDispatch, ISupportErrorInfo>;

    // IprpVisibilityInfo
    STDMETHODIMP IsVisible(IqorPropertyCollection* PropCollection, VARIANT_BOOL* IsVisible) override;
    STDMETHODIMP AddControlProperties(LONG* PropIDs, LONG NumPropIDs) override;
    STDMETHODIMP AddCtrlPropValues(LONG* PropValues, LONG NumPropValues) override;

private:
    static const Origin kOrigin;

    std::vector<LONG> ControlValues(IqorPropertyCollection& collection) const;

    std::vector<LONG> m_ControlPropIDs;
    std::vector<std::vector<LONG>> m_ValueRows; ///< each as long as the controls were when it came
};
