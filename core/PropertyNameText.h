// The grammar of a property's name: from the name as given to the forms that are shown, posted to macros and printed
// in reports. Text in, forms out.
//
//   plain        any text; a first "(" begins a note that ends at the next ")"
//   macro report "[MACRO REPORT PROP]" at the very start, a label with its optional note, and optionally "|" and a
//                text for reports
#pragma once

#include "platform/com/Ole.h"

struct PropertyNameForms {
    Text full;      ///< for display, note included
    Text stripped;  ///< a short label without the note
    Text macroPost; ///< of a macro report name: a token without blanks and operators, ASCII only
    Text report;
    bool bMacroReportProperty = false;
};

/// Derives the forms of a name; an empty name has empty forms.
/// @return false when a note has no end. The forms are then incomplete, but hold what was derived so far.
bool ParseNameText(TextView raw, PropertyNameForms& forms);
