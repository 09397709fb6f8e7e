// The plain text log for support staff, beside the error path: entries are added and nothing is ever reported.
#pragma once

#include "platform/com/Ole.h"

/// Appends an entry to "ProductSupportErrorLog.txt" in the support directory or, where that can't be written, in the
/// documents folder of all users. The file is opened and closed for each entry and others can't write meanwhile.
/// @param bWithHeader  puts the program, the version and the local time ahead of the text and a line end behind it;
///                     otherwise the text is written as it stands.
/// A failure drops the entry. Any thread.
void WriteSupportLog(const Text& text, bool bWithHeader) noexcept;
