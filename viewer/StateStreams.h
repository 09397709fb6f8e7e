// What a viewer takes in and gives out by streams: which categories are collapsed, and whose visibility is forced.
// Pure functions between a stream and a map; all numbers little endian, no header, no version.
#pragma once

#include "LV_prpPropCollection.h"
#include "platform/com/Ole.h"

#include <map>

/// Collapsed flags of categories by property id, in the order in which they are saved.
using CategoryStates = std::map<LONG, BYTE>;
/// Forced visibility by property id, 0 or 1.
using VisibilityOverrides = std::map<LONG, BYTE>;

/// Reads a count of 4 bytes, then id and flag of each entry, from the start. Without a whole count the map stands.
/// Raises, in this order: a failing stream call, a stream that is not binary.
void ReadCategoryStates(IqorStream& stream, CategoryStates& states);

/// Replaces the content of a stream in memory: a count of 8 bytes, then id and flag of each entry.
/// Raises, in this order: a failing stream call, a stream that is not in memory.
void WriteCategoryStates(IqorStream& stream, const CategoryStates& states);

/// Reads records of 8 bytes from the start until one is not whole.
VisibilityOverrides ReadVisibilityOverrides(IqorStream& stream);
