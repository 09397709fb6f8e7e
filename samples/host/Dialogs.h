// Questions to the user.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

/// Paths in UTF-8; nothing when the user takes it back.
std::optional<std::string> AskForDocument(HWND owner);
std::optional<std::string> AskForSavedLine(HWND owner);
/// @param proposed  path to begin with; may be empty.
std::optional<std::string> AskWhereToSave(HWND owner, const std::string& proposed);

/// Shows sentences in UTF-8.
void TellFault(HWND owner, std::string_view sentence);
void TellFacts(HWND owner, const std::wstring& title, const std::wstring& text);

/// "Save the changes to plate.json?": IDYES, IDNO or IDCANCEL.
int AskToSave(HWND owner, const std::string& name);
bool AskToGoOn(HWND owner, const std::wstring& question);
