// From 16-bit text to plain ASCII by one table of 256 entries: for values of ANSI properties and for the tokens that
// macros see in place of a name. Characters without a counterpart are dropped in the one and become "@" in the other.
#pragma once

#include "platform/com/Ole.h"

/// True when the text holds a character of 128 or above: only then is an ANSI value transliterated at all.
bool NeedsTransliteration(TextView text);

/// Replaces letters of Latin-1 and its relatives by their ASCII base letter and drops every other character that is
/// not printable ASCII, control characters among them.
Text TransliterateToAscii(TextView text);

/// The same replacement in place, but what has no counterpart becomes "@" instead of vanishing.
void MapNameCharacters(Text& name);
