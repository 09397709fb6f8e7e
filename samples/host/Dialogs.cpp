#include "samples/host/Dialogs.h"

#include <commdlg.h>

#include <lumevor/Text.h>

namespace {

constexpr wchar_t kTitle[] = L"lvhost";
constexpr wchar_t kDocuments[] = L"Routines and plans (*.json, *.qif)\0*.json;*.qif\0All files\0*.*\0";
constexpr wchar_t kSavedLines[] = L"Saved lines (*.txt)\0*.txt\0All files\0*.*\0";

std::optional<std::string> AskForFile(HWND owner, const wchar_t* filter, const std::string& proposed, bool toSave)
{
    std::wstring path = lumevor::FromUtf8(proposed);
    path.resize(32768);
    OPENFILENAMEW question{};
    question.lStructSize = sizeof question;
    question.hwndOwner = owner;
    question.lpstrFilter = filter;
    question.lpstrFile = path.data();
    question.nMaxFile = static_cast<DWORD>(path.size());
    question.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR |
                     (toSave ? OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST : OFN_FILEMUSTEXIST);
    question.lpstrDefExt = toSave ? L"txt" : nullptr;
    if (!(toSave ? GetSaveFileNameW(&question) : GetOpenFileNameW(&question)))
        return std::nullopt;
    return lumevor::ToUtf8(path.c_str());
}

} // namespace

std::optional<std::string> AskForDocument(HWND owner)
{
    return AskForFile(owner, kDocuments, {}, false);
}

std::optional<std::string> AskForSavedLine(HWND owner)
{
    return AskForFile(owner, kSavedLines, {}, false);
}

std::optional<std::string> AskWhereToSave(HWND owner, const std::string& proposed)
{
    return AskForFile(owner, kSavedLines, proposed, true);
}

void TellFault(HWND owner, std::string_view sentence)
{
    MessageBoxW(owner, lumevor::FromUtf8(sentence).c_str(), kTitle, MB_OK | MB_ICONWARNING);
}

void TellFacts(HWND owner, const std::wstring& title, const std::wstring& text)
{
    MessageBoxW(owner, text.c_str(), title.c_str(), MB_OK);
}

int AskToSave(HWND owner, const std::string& name)
{
    const std::wstring question = L"Save the changed values of " + lumevor::FromUtf8(name) + L"?";
    return MessageBoxW(owner, question.c_str(), kTitle, MB_YESNOCANCEL | MB_ICONQUESTION);
}

bool AskToGoOn(HWND owner, const std::wstring& question)
{
    return MessageBoxW(owner, question.c_str(), kTitle, MB_OKCANCEL | MB_ICONQUESTION) == IDOK;
}
