// The three registered messages by which a host's Edit menu asks whether the focused field can act.
#pragma once

#include "platform/com/Ole.h"

struct EditMessages {
    UINT canCut;
    UINT canCopy;
    UINT canPaste;

    bool Has(UINT message) const { return message == canCut || message == canCopy || message == canPaste; }
};

/// Registered once in the process, at the first call.
const EditMessages& RegisteredEditMessages();

/// Answers to the three messages.
inline constexpr LRESULT kCanAct = 1;
inline constexpr LRESULT kCannotAct = -1;
