#include "list/EditKeys.h"

#include "core/NumberRules.h"
#include "frame/NumberText.h"

#include <cmath>
#include <utility>

namespace {

constexpr OLECHAR kBackspace = 8;

/// Ctrl+A, Ctrl+C, Ctrl+V, Ctrl+X, Ctrl+Z as the characters that they arrive as.
constexpr bool IsEditCommand(OLECHAR c)
{
    return c == 1 || c == 3 || c == 22 || c == 24 || c == 26;
}

constexpr bool IsDigitOrBackspace(OLECHAR c)
{
    return (c >= OLECHAR('0') && c <= OLECHAR('9')) || c == kBackspace;
}

/// A minus typed over the front of the text replaces it; everywhere else it toggles the sign.
KeyAction ActionOfMinus(EditSelection selection)
{
    return selection.start == 0 && selection.end != selection.start ? KeyAction::PassOn : KeyAction::ToggleSign;
}

KeyAction ActionInNumber(OLECHAR c, EditSelection selection, bool real)
{
    if (IsDigitOrBackspace(c) || (real && c == OLECHAR('.')))
        return KeyAction::PassOn;
    if (c == OLECHAR('-'))
        return ActionOfMinus(selection);
    if (c == OLECHAR('~'))
        return KeyAction::ToggleSign;
    return real && UnitKeyOf(c) ? KeyAction::ConvertUnit : KeyAction::Drop;
}

struct UnitKeyRow {
    OLECHAR character;
    UnitKey key;
};

constexpr UnitKeyRow kUnitKeys[] = {
    {OLECHAR('m'), {kFactorToMetric, true, 9.9999999999999e-15, 39370078740158.0}},
    {OLECHAR('M'), {kFactorToMetric, false, 0, 0}},
    {OLECHAR('i'), {kFactorToImperial, true, 2.5399999999999e-13, 1e15}},
    {OLECHAR('I'), {kFactorToImperial, false, 0, 0}},
};

} // namespace

KeyAction ActionOfCharacter(EditType type, OLECHAR character, EditSelection selection, TextView refused)
{
    if (IsEditCommand(character))
        return KeyAction::PassOn;
    const bool isRefused = refused.find(character) != refused.npos;
    switch (type) {
    case EditType::SignedInteger: return ActionInNumber(character, selection, false);
    case EditType::UnsignedInteger: return IsDigitOrBackspace(character) ? KeyAction::PassOn : KeyAction::Drop;
    case EditType::FloatingPoint: return ActionInNumber(character, selection, true);
    case EditType::AnsiString: return character < 128 && !isRefused ? KeyAction::PassOn : KeyAction::Beep;
    case EditType::UnicodeString: return isRefused ? KeyAction::Beep : KeyAction::PassOn;
    default: return KeyAction::PassOn;
    }
}

EditedText ToggleSign(TextView text, EditSelection selection)
{
    if (text.find(OLECHAR('-')) == text.npos)
        return {Text(1, OLECHAR('-')).append(text), {selection.start + 1, selection.end + 1}};
    Text unsignedText;
    for (const OLECHAR c : text) {
        if (c != OLECHAR('-'))
            unsignedText += c;
    }
    return {std::move(unsignedText), {selection.start - 1, selection.end - 1}};
}

bool UnitKey::ActsOn(double value) const
{
    const double magnitude = std::fabs(value);
    return !guarded || (magnitude > above && magnitude < below);
}

std::optional<UnitKey> UnitKeyOf(OLECHAR character)
{
    for (const UnitKeyRow& row : kUnitKeys) {
        if (row.character == character)
            return row.key;
    }
    return std::nullopt;
}

Text UnitKeyText(double value)
{
    return FormatGeneral(value, 16);
}
