// The commands of the window: one table that the menu, the keys and the help text are made of.
#pragma once

#include <windows.h>

#include <string>

enum class Command : WORD {
    None = 0, ///< a line between groups
    OpenDocument = 100,
    OpenSaved,
    Save,
    SaveAs,
    Exit,
    Metric,
    Imperial,
    ZoomIn,
    ZoomOut,
    ExpandAll,
    CollapseAll,
    FitNames,
    Refresh,
    NextPart,
    PreviousPart,
    ClearEvents,
    ShowKeys,
    FirstLanguage = 200, ///< and one for each further language behind it
};

/// The window's menu, with a popup of the languages. Owned by the window that it is given to.
HMENU MakeMenu();
/// The keys of the commands. The caller destroys it.
HACCEL MakeAccelerators();
/// A line for each key, for people.
std::wstring DescribeKeys();

/// Marks a command as chosen among its kind, or not.
void CheckCommand(HMENU menu, Command command, bool isChosen);
void EnableCommand(HMENU menu, Command command, bool isPossible);
