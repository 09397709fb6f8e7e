// CprpMultiplePropInfo, one node of the merged tree of the shown collections: a property id and every collection that
// has it. The control owns the tree; a row points at its node and the node at its row, neither owning the other.
#pragma once

#include "LV_prpPropCollection.h"
#include "platform/atl/ComPtr.h"
#include "platform/com/Ole.h"

#include <memory>
#include <vector>

class CprpPropItem;

struct CprpMultiplePropInfo {
    EprpPropDataType m_eDataType = E_PROP_DT_NONE; ///< from the first collection only
    LONG m_nPropertyID = E_PROP_ID_INVALID;
    std::vector<std::unique_ptr<CprpMultiplePropInfo>> m_listChildren;
    std::vector<CComPtr<IqorPropertyCollection>> m_listCollections; ///< in the order in which they were given
    CprpMultiplePropInfo* m_pParent = nullptr;
    CprpPropItem* m_pItem = nullptr; ///< null until rows are made, and again when the row goes
};
