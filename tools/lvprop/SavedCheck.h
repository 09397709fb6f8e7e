// What a loader will make of saved records, told without any tree: what is wrong with a record, and what of its value
// a property of its type would not take as it stands.
#pragma once

#include "core/SavedRecord.h"

#include <string>

struct CheckedRecord {
    Text text; ///< the record with its escapes undone; `record` refers to it
    SavedRecord record;
    EprpParseError error = E_PROP_PARSE_ERROR_NONE;
    std::string fault;  ///< why the record will not load; empty for one that will
    std::string remark; ///< what of it will not be taken as it stands

    bool IsFine() const { return fault.empty() && remark.empty(); }
};

/// Undoes the escapes and judges one record. The result is reused from call to call.
/// @param record  still escaped, without its marker. @param version  0 or 1.
void CheckRecord(TextView record, LONG version, CheckedRecord& out);

/// "visible, read-only"
std::string FlagWords(unsigned flags);
