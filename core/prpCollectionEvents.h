// The event connection point of a collection.
#pragma once

#include "LV_prpPropCollection.h"
#include "platform/atl/ConnectionPoint.h"

class CProxy_IqorPropertyCollectionEvents final : public ConnectionPoint {
public:
    explicit CProxy_IqorPropertyCollectionEvents(IConnectionPointContainer& container)
        : ConnectionPoint(container, DIID__IqorPropertyCollectionEvents)
    {
    }

    /// Hands the same stream to each sink in the order of their slots; a sink seeks to the start before reading.
    /// @return the result of the last sink.
    HRESULT Fire_PropertyEventStream(IqorStream* stream) const
    {
        VARIANT argument{};
        V_VT(&argument) = VT_UNKNOWN;
        V_UNKNOWN(&argument) = stream;
        return Fire(1, &argument, 1);
    }
};
