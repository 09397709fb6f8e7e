// A module with the string resources of TestStrings.inc, and one without any of them.
#pragma once

#include "platform/com/Ole.h"

inline constexpr LONG kPlainString = 100;
inline constexpr LONG kMacroReportString = 101;
inline constexpr LONG kBrokenNoteString = 102;
inline constexpr LONG kMarkerOnlyString = 103;
inline constexpr LONG kItemString = 104;
inline constexpr LONG kHelpString = 105;
inline constexpr LONG kMissingString = 199;

LONG_PTR ModuleWithStrings();
LONG_PTR ModuleWithoutStrings();
