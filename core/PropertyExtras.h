// What few properties have: made on first need, so that a plain number stays small.
#pragma once

#include "LV_prpPropCollection.h"
#include "core/PropertyNameText.h"
#include "core/prpTolerance.h"
#include "platform/atl/ComPtr.h"
#include "platform/com/Ole.h"

#include <map>
#include <memory>
#include <vector>

/// The name as given and its derived forms. Invariant: an empty name has empty forms.
struct PropertyNames {
    Text raw;
    PropertyNameForms forms;
};

struct PropertyExtras {
    LONG nameResID = 0; ///< string resource of the name; 0 none, -1 after a name given as text
    LONG linkedPropID = 0;
    LONG_PTR hResModule = 0; ///< 0 stands for the collection's default module
    SprpPosition position{};
    PropertyNames names;
    Text error;
    Text warning;
    CComBSTR invalidCharacters; ///< null when none were given
    SprpBoundsInfo bounds{};
    std::unique_ptr<CprpTolerance> tolerance; ///< null is the zero record
    std::vector<SprpEnumItem> enumItems;
    std::map<LONG, Text> enumStrings; ///< literal item texts by enumeration value
    std::vector<SprpPosition> scanPath;
    CComPtr<IprpVisibilityInfo> visibilityInfo;
    CComPtr<IprpVisibilityInfo> postProcVisibilityInfo;

    const CprpTolerance& Tolerance() const
    {
        static const CprpTolerance s_zero;
        return tolerance ? *tolerance : s_zero;
    }

    /// What a property without extras reads.
    static const PropertyExtras& None() noexcept
    {
        static const PropertyExtras s_none;
        return s_none;
    }
};
