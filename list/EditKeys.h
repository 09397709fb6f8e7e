// What a typed character does in a text box of each kind, the sign toggle, and the unit keys. Pure functions over
// kind, text, selection and character; the text boxes of rows and of the value viewers run them.
#pragma once

#include "platform/com/Ole.h"

#include <optional>

/// Kind of a text box. The numbers are those that a row is configured with.
enum class EditType : int {
    Free = 0,
    SignedInteger = 1,
    UnsignedInteger = 2,
    FloatingPoint = 3,
    AnsiString = 4,
    UnicodeString = 5,
};

/// Most characters that may be typed.
constexpr int TextLimitOf(EditType type)
{
    switch (type) {
    case EditType::SignedInteger:
    case EditType::UnsignedInteger: return 9;
    case EditType::FloatingPoint: return 15;
    default: return 500;
    }
}

/// Character positions; the end is exclusive. Toggling the sign may take them outside the text.
struct EditSelection {
    int start = 0;
    int end = 0;

    friend constexpr bool operator==(const EditSelection&, const EditSelection&) = default;
};

enum class KeyAction {
    PassOn, ///< the text box does what it does
    Drop,   ///< nothing happens
    Beep,   ///< refused aloud
    ToggleSign,
    ConvertUnit, ///< see UnitKeyOf
};

/// @param refused  characters that text kinds refuse
KeyAction ActionOfCharacter(EditType type, OLECHAR character, EditSelection selection, TextView refused);

struct EditedText {
    Text text;
    EditSelection selection;
};

/// Makes a positive number negative and the reverse. Both ends of the selection move by one, however many minus
/// signs go.
EditedText ToggleSign(TextView text, EditSelection selection);

/// A key that multiplies the value. Small letters act within a range of magnitudes only; capitals always do.
struct UnitKey {
    double factor;
    bool guarded;
    double above;
    double below;

    bool ActsOn(double value) const;
};

std::optional<UnitKey> UnitKeyOf(OLECHAR character);

/// A converted number as it stands in the text box: 16 significant digits, as "%.16g" writes them.
Text UnitKeyText(double value);
