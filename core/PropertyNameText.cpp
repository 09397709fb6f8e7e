#include "core/PropertyNameText.h"

#include "core/Transliterate.h"
#include "frame/TextTools.h"

namespace {

constexpr TextView kMacroReportMarker = OLESTR("[MACRO REPORT PROP]");
constexpr OLECHAR kReportMark = '|';

/// What a macro's token may not hold: the blank (other white space is mapped) and what a macro reads as an operator.
constexpr TextView kDeletedFromTokens = OLESTR(" '+-*/=");

Text Trimmed(TextView text)
{
    return Text(TrimWhiteSpace(text));
}

Text Joined(const Text& label, const Text& report)
{
    return label + OLESTR(" : ") + report;
}

/// Deletes the first note, brackets included; a second one stays. False when it has no end.
bool EraseNote(Text& text)
{
    const std::size_t begin = text.find(OLECHAR{'('});
    if (begin == Text::npos)
        return true;
    const std::size_t end = text.find(OLECHAR{')'}, begin);
    if (end == Text::npos)
        return false;
    text.erase(begin, end + 1 - begin);
    return true;
}

Text MacroToken(Text label)
{
    EraseAny(label, kDeletedFromTokens);
    MapNameCharacters(label);
    return label;
}

bool ParsePlainName(TextView raw, PropertyNameForms& forms)
{
    forms.full = raw;
    forms.stripped = raw;
    if (!EraseNote(forms.stripped))
        return false;
    forms.stripped = Trimmed(forms.stripped);
    forms.macroPost = forms.stripped;
    forms.report = forms.stripped;
    return true;
}

bool ParseMacroReportName(TextView name, PropertyNameForms& forms)
{
    forms.bMacroReportProperty = true;
    forms.full = name;
    forms.stripped = name;
    const std::size_t mark = name.find(kReportMark);
    if (mark != TextView::npos) {
        forms.report = Trimmed(name.substr(mark + 1));
        forms.stripped = Trimmed(name.substr(0, mark));
    }
    if (!EraseNote(forms.stripped)) // sought ahead of the bar alone: a note that ends behind it has no end
        return false;
    forms.stripped = Trimmed(forms.stripped);
    forms.macroPost = MacroToken(forms.stripped);
    if (forms.report.empty()) {
        forms.report = forms.stripped; // an empty report text leaves its bar in the full form
    } else {
        forms.stripped = Joined(forms.stripped, forms.report);
        forms.full = Joined(Trimmed(name.substr(0, mark)), forms.report);
    }
    return true;
}

} // namespace

bool ParseNameText(TextView raw, PropertyNameForms& forms)
{
    forms = {};
    if (raw.starts_with(kMacroReportMarker))
        return ParseMacroReportName(raw.substr(kMacroReportMarker.size()), forms);
    return ParsePlainName(raw, forms);
}
