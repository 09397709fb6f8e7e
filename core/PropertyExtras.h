// What few properties have: made on first need, so that a plain number stays small.
#pragma once

#include "LV_prpPropCollection.h"
#include "core/Lazy.h"
#include "core/PackedText.h"
#include "core/PropertyNameText.h"
#include "core/SiblingList.h"
#include "core/prpTolerance.h"
#include "platform/atl/ComPtr.h"
#include "platform/com/Ole.h"

#include <map>
#include <vector>

class CprpProperty;

/// The name as given and its derived forms. Invariant: an empty name has empty forms.
struct PropertyNames {
    Text raw;
    PropertyNameForms forms;
};

/// The choices of an enumerated property.
struct PropertyEnums {
    std::vector<SprpEnumItem> items;
    std::map<LONG, Text> texts; ///< literal item texts by enumeration value
};

struct PropertyExtras {
    LONG nameResID = 0; ///< string resource of the name; 0 none, -1 after a name given as text
    LONG linkedPropID = 0;
    LONG dataType = E_PROP_DT_NONE;     ///< of a type outside the enumeration
    LONG listOwnerID = 0;               ///< of a redirected property: the parent on whose list it really is
    LONG_PTR hResModule = 0;            ///< 0 stands for the collection's default module
    SiblingList<CprpProperty> children; ///< one reference each
    SprpPosition position{};
    PackedText error;
    PackedText warning;
    CComBSTR invalidCharacters; ///< null when none were given
    Lazy<PropertyNames> names;
    Lazy<SprpBoundsInfo> bounds;
    Lazy<CprpTolerance> tolerance;
    Lazy<PropertyEnums> enums;
    Lazy<std::vector<SprpPosition>> scanPath;
    CComPtr<IprpVisibilityInfo> visibilityInfo;
    CComPtr<IprpVisibilityInfo> postProcVisibilityInfo;
};
