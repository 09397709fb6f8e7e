#include "samples/host/GridEvents.h"

using lumevor::Ref;

namespace {

enum GridEvent : DISPID {
    kExtendedInfoButtonClicked = 1,
    kSelectionChanged = 3,
    kInPlaceEditStart = 6,
    kInPlaceEditEnd = 7,
};

class GridSink final : public lumevor::EventSink<_IprpCollectionViewerCtrlEvents> {
public:
    explicit GridSink(GridListener& listener) : m_listener(listener) {}

private:
    HRESULT OnEvent(DISPID id, const DISPPARAMS& arguments) override
    {
        switch (id) {
        case kExtendedInfoButtonClicked: m_listener.OnExtendedInfoButton(PropertyIn(arguments)); break;
        case kSelectionChanged: m_listener.OnSelectionChanged(PropertyIn(arguments)); break;
        case kInPlaceEditStart: m_listener.OnTyping(true); break;
        case kInPlaceEditEnd: m_listener.OnTyping(false); break;
        default: break;
        }
        return S_OK;
    }

    /// The events that carry a property have it as their only or first argument, which comes last.
    static LONG PropertyIn(const DISPPARAMS& arguments)
    {
        if (arguments.cArgs == 0)
            return E_PROP_ID_INVALID;
        const VARIANT& first = arguments.rgvarg[arguments.cArgs - 1];
        return V_VT(&first) == VT_I4 ? V_I4(&first) : LONG{E_PROP_ID_INVALID};
    }

    GridListener& m_listener;
};

} // namespace

GridConnection::GridConnection(IUnknown* control, GridListener& listener)
    : m_connection(control, __uuidof(_IprpCollectionViewerCtrlEvents),
                   Ref<GridSink>::Adopt(new GridSink(listener)).Get())
{
}
