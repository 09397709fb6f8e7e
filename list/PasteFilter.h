// What of a clipboard text goes into the text box of a row.
#pragma once

#include "platform/com/Ole.h"

/// Maps the text to ASCII letter by letter and drops what has no mapping: control characters, characters above 255.
/// On purpose blind to the kind of the text box: a paste can bring characters into a number that typing refuses;
/// the parse at commit deals with them.
Text FilterPaste(TextView text);
