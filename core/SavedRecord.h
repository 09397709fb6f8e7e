// The saved text as a codec: pure functions between text and plain records, without a collection. Loader, saver,
// tools and fuzzers share it. A saved text is a row of records, each opened by the start marker; the current format
// is version 1, version 0 is read only.
#pragma once

#include "LV_prpPropCollection.h"
#include "core/DataTypes.h"
#include "frame/TextBuffer.h"
#include "frame/TextTools.h"
#include "platform/com/Ole.h"
#include "platform/memory/FindUnit.h"

/// Opens each record of a saved text.
inline constexpr TextView g_strStartMarker = OLESTR("~");

/// Bits of a record's flags.
enum SavedFlags : unsigned { kSavedVisible = 1, kSavedReadOnly = 2, kSavedEditFlags = 4 };

/// One record, its escapes undone. The value refers to the text that was parsed.
struct SavedRecord {
    LONG id = E_PROP_ID_INVALID;
    unsigned flags = 0;         ///< SavedFlags; version 0 knows the first two
    LONG editFlags = 0;         ///< meaningful with kSavedEditFlags
    LONG type = E_PROP_DT_NONE; ///< of version 1; negative or above 19 for a damaged type character
    TextView value;
};

/// The records of a saved text, still escaped and without their markers; empty ones are passed over.
inline TokenRange SavedRecords(TextView text)
{
    return SplitAt(text, g_strStartMarker);
}

/// Whether a record may hold an escape; most don't, and are read as they stand.
inline bool HasEscapes(TextView record)
{
    return Contains(record, OLESTR('\\'));
}
/// Undoes the escapes of a whole record: "\$" becomes "~", then "\&" becomes "|".
void UndoEscapes(Text& record);

/// Splits a record of version 1. @return E_PROP_PARSE_ERROR_NONE, or the first fault that the record itself shows.
EprpParseError ParseRecordVersion1(TextView record, SavedRecord& out);

/// Splits a record of version 0. The id is cut to 16 bits and stays -1 when it cannot be read; an empty value is for
/// the caller to judge by the property's type.
EprpParseError ParseRecordVersion0(TextView record, SavedRecord& out);

/// Writes marker, id, flags, edit flags and type of a version 1 record into kMostRecordHead units and returns the end;
/// the value goes behind.
OLECHAR* WriteRecordHead(OLECHAR* out, LONG id, unsigned flags, LONG editFlags, LONG type) noexcept;
inline constexpr std::size_t kMostRecordHead = 68;

/// Appends a whole record of version 1, its value escaped as the type's saved form tells.
void AppendRecord(TextBuffer& out, const SavedRecord& record);

/// Escapes what stands in `out` from `begin` on, as the saved form tells.
void EscapeValue(TextBuffer& out, std::size_t begin, SavedForm form);

/// The value of a record as the property reads it: "#" of several lines and of points becomes a line end.
Text ValueLines(TextView value);

/// Character that a saved record holds for a type.
constexpr OLECHAR TypeCharacter(LONG type)
{
    return static_cast<OLECHAR>(type >= 0 && type <= 9 ? type + '0' : type + 'a');
}

/// Why a record was not taken: the text inside the message.
/// @param record  as it was parsed, without its marker.
Text ParseErrorText(EprpParseError error, TextView record, LONG id);

/// The whole message of a fault. @param line  everything that was read from the stream.
Text ParseErrorMessage(EprpParseError error, TextView record, LONG id, TextView line);
