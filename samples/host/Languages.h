// The languages of the suite, and the user's choice among them, which the settings component keeps for all programs.
// A component takes the choice up when a process first uses it.
#pragma once

#include <windows.h>

struct HostLanguage {
    LONG setting;        ///< its number in the settings
    const wchar_t* name; ///< in the language itself
};

inline constexpr HostLanguage kHostLanguages[] = {
    {7014, L"English"},
    {7015, L"Deutsch"},
    {7016, L"Fran\u00E7ais"},
    {7017, L"Italiano"},
    {7031, L"Espa\u00F1ol"},
    {7039, L"\u65E5\u672C\u8A9E"},
    {7058, L"\uD55C\uAD6D\uC5B4"},
    {7059, L"\u7E41\u9AD4\u4E2D\u6587"},
    {7060, L"\u7B80\u4F53\u4E2D\u6587"},
    {7061, L"\u010Ce\u0161tina"},
};

/// Number of the chosen language; English without a choice.
LONG ChosenLanguage();
/// Writes the choice into the user's settings. Throws lumevor::Error, or ToolError when they can't be written.
void ChooseLanguage(LONG setting);
