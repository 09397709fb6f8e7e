// What tells one control from another as far as the common base is concerned, as data.
#pragma once

#include "platform/com/Ole.h"

#include <span>

/// Member that is kept in the control's persistent form, read and written by its dispatch id.
struct PersistedMember {
    const OLECHAR* name; ///< in a property bag
    DISPID id;
    VARTYPE type;
};

/// Category that a property browser shows a member under.
struct MemberCategory {
    DISPID id;
    int category; ///< negative: one of the platform's own
};

/// Category of the control's own, named by a string of the language table.
struct OwnCategory {
    int category;
    UINT nameId;
};

struct ControlFacts {
    const CLSID& clsid;
    const IID& events; ///< default source; IID_NULL for a control that fires nothing
    const OLECHAR* windowClass;
    std::span<const PersistedMember> members; ///< in their persistent order, behind the extent
    std::span<const MemberCategory> categories;
    std::span<const OwnCategory> ownCategories;
};

/// Recompose on resize, no link inside, inside out, activate when visible, site first: the same for every control.
inline constexpr DWORD kControlMiscStatus = 131473;
