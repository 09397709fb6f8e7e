// The directory where the hosting product keeps files for its support staff.
#pragma once

#include "platform/com/Ole.h"

/// Directory of the host that is installed, environment variables expanded; empty when none is known. Asks the
/// registry at each call.
Text GetSupportFilesDir();

/// Puts the values of environment variables in place of their names between percent signs, those inside values too.
/// Ends at the first name that is not set, or that has no second percent sign; from there the text stays as it is.
Text ExpandEnvironment(Text text);
