// Ids of the child windows, of the tip and of the timer.
#pragma once

inline constexpr unsigned kListBoxId = 556;
inline constexpr unsigned kDropListId = 505;
inline constexpr unsigned kButtonId = 506;
inline constexpr unsigned kTextBoxId = 507;
inline constexpr unsigned kTipToolId = 1064;
inline constexpr unsigned kPendingEditTimer = 120; ///< of tree lists
