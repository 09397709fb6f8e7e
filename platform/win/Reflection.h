// Parents hand the messages that a control sends them back to the control, moved up by a fixed number.
#pragma once

#include "platform/com/Ole.h"

#include <optional>

inline constexpr UINT kReflected = 0xBC00;

/// Hands WM_COMMAND, WM_CTLCOLOR* and the owner-drawing messages to the hooked child that they came from.
/// @return the child's answer; nothing when the message is none of these or the child is not hooked.
std::optional<LRESULT> ReflectToChild(HWND parent, UINT message, WPARAM wParam, LPARAM lParam);
