// User-visible strings by id: from the language library, then from the own string table.
#pragma once

#include "platform/com/Ole.h"

/// Ids of the strings that the frame itself uses; they live in the language library only.
inline constexpr UINT kInternalErrorString = 7006;
inline constexpr UINT kMissingStringString = 7007;
inline constexpr UINT kUnknownErrorString = 7008;
inline constexpr UINT kLocationString = 7011;

/// Makes a loaded language library the first place to look; 0 takes it away. Any thread: one atomic exchange.
/// @return the handle before.
LONG_PTR SetLanguageModule(LONG_PTR module) noexcept;

/// Handle of the language library, or that of the own module while there is none; never 0.
LONG_PTR LanguageModule() noexcept;

/// Reads a string. False, with `out` untouched, when neither place holds it.
bool LoadLanguageString(UINT id, Text& out);
