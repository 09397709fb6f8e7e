// From the text typed into a number row to the text that is written to the property.
#pragma once

#include "platform/com/Ole.h"

/// Text that reads as no number at all gives the limit, a number outside the limits the nearer one, both written
/// with six decimals. Any other text is committed as it was typed.
/// @param limit     largest magnitude, in the unit of the collection
/// @param imperial  decides how many decimals the comparison with the limit takes into account
Text NumberToCommit(TextView typed, double limit, bool imperial);
