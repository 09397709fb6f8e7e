// The settings file as a text: sections in brackets, each with lines "name=value". Pure text in, pure text out; where
// the file lies and how it is written is told elsewhere. Comments, blank lines and lines that it does not understand
// come out as they came in, so that a file edited by hand stays as it was but for the values that were set.
#pragma once

#include "platform/com/Ole.h"

#include <optional>
#include <vector>

/// What a value is found by. Refers to texts that the caller keeps.
struct SettingsKey {
    TextView section;
    TextView name;
};

class SettingsText {
public:
    SettingsText() = default;
    /// Takes any text; a first line with a byte-order mark, CR LF and LF line ends are all understood.
    explicit SettingsText(TextView content);

    /// True for a text that can name a section or a value: not empty, no blank at either end, no control character,
    /// none of "[", "]", "=", ";".
    static bool IsName(TextView text) noexcept;

    bool HasSection(TextView section) const noexcept;
    /// The first value of that name in the first section of that name; ASCII letters match in either case.
    std::optional<Text> Find(const SettingsKey& key) const;
    /// Replaces a value where it stands, or adds it at the end of its section, or adds the section at the end.
    /// @param value  any text; one with line ends, or with blanks at its ends, is written in quotes and with escapes.
    void Set(const SettingsKey& key, TextView value);
    /// False when there was no such value.
    bool Remove(const SettingsKey& key);

    /// Each line with CR LF.
    Text Write() const;

private:
    /// One line as it stands, with what it means beside it.
    struct Line {
        Text text;
        Text section; // the section that the line belongs to, or opens
        Text name;    // empty unless the line holds a value
        bool opensSection = false;
    };

    std::optional<std::size_t> IndexOf(const SettingsKey& key) const noexcept;

    std::vector<Line> m_lines;
};
