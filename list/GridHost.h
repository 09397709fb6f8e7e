// What the list and its rows ask of the control that shows them. The control implements it; the list never includes
// the control.
#pragma once

#include "platform/com/Ole.h"

class CprpPropItem;

/// User-interface thread only. Every Fire operation calls hosts, which may clear the control, show other collections
/// or give their last reference back; the control itself stays in memory while a GridReference stands.
class GridHost {
public:
    /// The control's own reference count.
    virtual void AddGridReference() noexcept = 0;
    virtual void ReleaseGridReference() noexcept = 0;

    virtual void FireExtendedInfoButtonClicked(CprpPropItem& item) = 0;
    /// Around the writing of one value to all collections of a row.
    virtual void FireMultiEditStart() = 0;
    virtual void FireMultiEditEnd() = 0;

    /// Ground of category rows, already translated from its OLE form.
    virtual COLORREF CategoryBackground() const = 0;

protected:
    ~GridHost() = default;
};
