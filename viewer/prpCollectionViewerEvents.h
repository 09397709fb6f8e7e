// The events of the collection viewer. Each call goes to every sink in the order of its slot and may do anything to
// the viewer; whoever fires holds a reference to it and looks everything up again afterwards.
#pragma once

#include "LV_prpPropCollection.h"
#include "platform/atl/ConnectionPoint.h"

class CProxy_IprpCollectionViewerCtrlEvents final : public ConnectionPoint {
public:
    explicit CProxy_IprpCollectionViewerCtrlEvents(IConnectionPointContainer& container)
        : ConnectionPoint(container, DIID__IprpCollectionViewerCtrlEvents)
    {
    }

    void Fire_ExtendedInfoButtonClicked(LONG PropertyID) { FireId(1, PropertyID); }
    void Fire_PropertyExpandCollapse(LONG PropertyID, bool Collapsed)
    {
        VARIANT reversed[2]{};
        V_VT(&reversed[1]) = VT_I4;
        V_I4(&reversed[1]) = PropertyID;
        V_VT(&reversed[0]) = VT_BOOL;
        V_BOOL(&reversed[0]) = Collapsed ? VARIANT_TRUE : VARIANT_FALSE;
        Fire(2, reversed, 2);
    }
    void Fire_SelectionChanged(LONG PropertyID) { FireId(3, PropertyID); }
    void Fire_MultiEditStart() { Fire(4, nullptr, 0); }
    void Fire_MultiEditEnd() { Fire(5, nullptr, 0); }
    void Fire_InPlaceEditStart() { Fire(6, nullptr, 0); }
    void Fire_InPlaceEditEnd() { Fire(7, nullptr, 0); }

private:
    void FireId(DISPID event, LONG id)
    {
        VARIANT argument{};
        V_VT(&argument) = VT_I4;
        V_I4(&argument) = id;
        Fire(event, &argument, 1);
    }
};
