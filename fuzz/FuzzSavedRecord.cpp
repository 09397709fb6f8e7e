// The record codec: what was decoded and encoded again decodes to the same record.
#include "core/SavedRecord.h"
#include "fuzz/FuzzCollection.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Text text = LatinText(data, size);
    for (const TextView escaped : SavedRecords(text)) {
        Text record(escaped);
        UndoEscapes(record);
        SavedRecord old;
        (void)ParseRecordVersion0(record, old);
        SavedRecord first;
        if (ParseRecordVersion1(record, first) != E_PROP_PARSE_ERROR_NONE || first.type < 0 ||
            RuleOf(first.type).saved == SavedForm::Refused)
            continue;
        TextBuffer encoded;
        AppendRecord(encoded, first);
        Text again(encoded.View().substr(1)); // behind the marker
        UndoEscapes(again);
        SavedRecord second;
        Require(ParseRecordVersion1(again, second) == E_PROP_PARSE_ERROR_NONE);
        Require(first.id == second.id && first.flags == second.flags && first.type == second.type);
        Require(!(first.flags & kSavedEditFlags) || first.editFlags == second.editFlags);
        // Values whose form has no escapes are numbers and points when they come from a property.
        if (RuleOf(first.type).saved == SavedForm::Escaped) {
            Text value(first.value);
            UndoEscapes(value);
            Require(second.value == value);
        }
    }
    return 0;
}
