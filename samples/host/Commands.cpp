#include "samples/host/Commands.h"

#include "samples/host/Languages.h"

#include <vector>

namespace {

struct CommandEntry {
    Command command;
    const wchar_t* text; ///< with its underlined letter; null keeps it out of the menu
    const wchar_t* keyName = L"";
    BYTE modifiers = 0;
    WORD key = 0; ///< 0 for none
};

struct MenuEntry {
    const wchar_t* text;
    std::vector<CommandEntry> commands;
};

constexpr CommandEntry kLine{Command::None, nullptr};

const std::vector<MenuEntry>& MenuTable()
{
    static const std::vector<MenuEntry> table = {
        {L"&File",
         {{Command::OpenDocument, L"&Open routine or plan...", L"Ctrl+O", FCONTROL, 'O'},
          {Command::OpenSaved, L"Open saved &line...", L"Ctrl+L", FCONTROL, 'L'},
          {Command::Save, L"&Save line", L"Ctrl+S", FCONTROL, 'S'},
          {Command::SaveAs, L"Save line &as...", L"Ctrl+Shift+S", FCONTROL | FSHIFT, 'S'},
          kLine,
          {Command::Exit, L"E&xit", L"Alt+F4"}}},
        {L"&View",
         {{Command::Metric, L"&Metric", L"Ctrl+M", FCONTROL, 'M'},
          {Command::Imperial, L"&Imperial", L"Ctrl+I", FCONTROL, 'I'},
          kLine,
          {Command::ZoomIn, L"Zoom i&n", L"Ctrl++", FCONTROL, VK_OEM_PLUS},
          {Command::ZoomOut, L"Zoom o&ut", L"Ctrl+-", FCONTROL, VK_OEM_MINUS},
          kLine,
          {Command::ExpandAll, L"&Expand all", L"Ctrl+E", FCONTROL, 'E'},
          {Command::CollapseAll, L"&Collapse all", L"Ctrl+Shift+E", FCONTROL | FSHIFT, 'E'},
          {Command::FitNames, L"&Fit names", L"Ctrl+F", FCONTROL, 'F'},
          {Command::Refresh, L"&Refresh", L"F5", 0, VK_F5},
          kLine,
          {Command::NextPart, L"Next &part", L"F6", 0, VK_F6},
          {Command::ClearEvents, L"Clear e&vents", L"Ctrl+Shift+Del", FCONTROL | FSHIFT, VK_DELETE}}},
    };
    return table;
}

/// Second keys of commands that the menu shows with another one.
constexpr CommandEntry kFurtherKeys[] = {
    {Command::ZoomIn, nullptr, L"", FCONTROL, VK_ADD},
    {Command::ZoomOut, nullptr, L"", FCONTROL, VK_SUBTRACT},
    {Command::PreviousPart, nullptr, L"Shift+F6", FSHIFT, VK_F6},
    {Command::ShowKeys, nullptr, L"F1", 0, VK_F1},
};

HMENU MakePopup(const std::vector<CommandEntry>& commands)
{
    const HMENU popup = CreatePopupMenu();
    for (const CommandEntry& entry : commands) {
        if (entry.command == Command::None)
            AppendMenuW(popup, MF_SEPARATOR, 0, nullptr);
        else
            AppendMenuW(popup, MF_STRING, static_cast<UINT_PTR>(entry.command),
                        (std::wstring(entry.text) + L"\t" + entry.keyName).c_str());
    }
    return popup;
}

HMENU MakeLanguagePopup()
{
    const HMENU popup = CreatePopupMenu();
    UINT_PTR id = static_cast<UINT_PTR>(Command::FirstLanguage);
    for (const HostLanguage& language : kHostLanguages)
        AppendMenuW(popup, MF_STRING, id++, language.name);
    return popup;
}

void AppendPopup(HMENU menu, HMENU popup, const wchar_t* text)
{
    AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), text);
}

} // namespace

HMENU MakeMenu()
{
    const HMENU menu = CreateMenu();
    for (const MenuEntry& entry : MenuTable())
        AppendPopup(menu, MakePopup(entry.commands), entry.text);
    AppendPopup(menu, MakeLanguagePopup(), L"&Language");
    AppendPopup(menu, MakePopup({{Command::ShowKeys, L"&Keys", L"F1"}}), L"&Help");
    return menu;
}

HACCEL MakeAccelerators()
{
    std::vector<ACCEL> keys;
    const auto add = [&keys](const CommandEntry& entry) {
        if (entry.key != 0)
            keys.push_back(
                {static_cast<BYTE>(entry.modifiers | FVIRTKEY), entry.key, static_cast<WORD>(entry.command)});
    };
    for (const MenuEntry& menu : MenuTable()) {
        for (const CommandEntry& entry : menu.commands)
            add(entry);
    }
    for (const CommandEntry& entry : kFurtherKeys)
        add(entry);
    return CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size()));
}

std::wstring DescribeKeys()
{
    std::wstring text;
    for (const MenuEntry& menu : MenuTable()) {
        for (const CommandEntry& entry : menu.commands) {
            if (entry.command == Command::None)
                continue;
            std::wstring name = entry.text;
            std::erase(name, L'&');
            text += std::wstring(entry.keyName) + L"\t" + name + L"\n";
        }
    }
    return text + L"\nIn the grid:\n"
                  L"Up, Down, Page, Home, End\tanother row\n"
                  L"Left, Right\tcollapse, expand or edit the row\n"
                  L"Return, Tab\tedit the row\n"
                  L"Return, Escape\ttake or drop what was typed\n"
                  L"Shift+Left, Shift+Right\tmove the divider\n"
                  L"Ctrl+wheel\tzoom";
}

void CheckCommand(HMENU menu, Command command, bool isChosen)
{
    CheckMenuItem(menu, static_cast<UINT>(command), MF_BYCOMMAND | (isChosen ? MF_CHECKED : MF_UNCHECKED));
}

void EnableCommand(HMENU menu, Command command, bool isPossible)
{
    EnableMenuItem(menu, static_cast<UINT>(command), MF_BYCOMMAND | (isPossible ? MF_ENABLED : MF_GRAYED));
}
