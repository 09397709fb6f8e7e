// Messages from the list and its editors to the window of the control. The numbers are part of the design.
#pragma once

#include "platform/com/Ole.h"

inline constexpr UINT kItemToggledMessage = 0x8501; ///< posted; item, its new collapsed flag. The item may be gone.
inline constexpr UINT kDeleteKeyMessage = 0x8502;   ///< sent
inline constexpr UINT kDragBeginsMessage = 0x8503;  ///< sent, tree lists only
inline constexpr UINT kReturnKeyMessage = 0x8504;   ///< sent
inline constexpr UINT kTabKeyMessage = 0x8505;      ///< sent
inline constexpr UINT kEditStartMessage = 0x9201;   ///< sent when a text box gains the focus
inline constexpr UINT kEditEndMessage = 0x9202;     ///< sent ahead of a commit from a text box
