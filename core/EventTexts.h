// Old values on their way to an event stream: packed as they are, and rendered when somebody reads the text.
#pragma once

#include "LV_suiteStream.h"
#include "core/ValueText.h"
#include "platform/memory/GrowingBuffer.h"

#include <cstdint>

/// Appends the packed form of a text: the number that it renders, or its units.
/// @return bytes of the packed form; it starts at the former end of `out`.
uint32_t PackText(const ValueText& text, GrowingBuffer<uint64_t>& out);

/// Renders packed texts; one object for the whole process, which any stream may keep.
IqorTextRenderer& PackedTextRenderer();
