// What the commands of the window do, and what it does for the events that it hears.
#include "samples/host/Dialogs.h"
#include "samples/host/Languages.h"
#include "samples/host/MainWindow.h"
#include "samples/host/Relaunch.h"
#include "tools/lvprop/Console.h"

#include <algorithm>

using lumevor::FromUtf8;

namespace {

/// The first sentence, and how many stand behind it.
std::string Summary(const std::vector<std::string>& faults)
{
    std::string text = faults.front();
    if (faults.size() > 1)
        text += " (and " + Counted(faults.size() - 1, "more fault") + ")";
    return text;
}

} // namespace

void MainWindow::Run(Command command)
{
    switch (command) {
    case Command::OpenDocument:
        if (!MayLeave())
            return;
        if (const auto path = AskForDocument(m_window))
            Open(*path);
        return;
    case Command::Exit: SendMessageW(m_window, WM_CLOSE, 0, 0); return;
    case Command::ZoomIn:
    case Command::ZoomOut: m_grid->Zoom(command == Command::ZoomIn); return;
    case Command::FitNames: m_grid->FitNames(); return;
    case Command::NextPart:
    case Command::PreviousPart: // two parts: the next one is the previous one
        if (m_grid->HasFocus())
            SetFocus(m_events->Window());
        else
            m_grid->TakeFocus();
        return;
    case Command::ClearEvents:
        m_log.Clear();
        m_events->ShowNewest();
        ShowState();
        return;
    case Command::ShowKeys: TellFacts(m_window, L"Keys", DescribeKeys()); return;
    default: break;
    }
    const auto language = static_cast<std::size_t>(command) - static_cast<std::size_t>(Command::FirstLanguage);
    if (language < std::size(kHostLanguages))
        ChangeLanguage(language);
    else if (m_document)
        RunOnDocument(command);
}

void MainWindow::RunOnDocument(Command command)
{
    m_grid->CommitTyping();
    switch (command) {
    case Command::OpenSaved:
        if (!MayLeave())
            return;
        if (const auto path = AskForSavedLine(m_window))
            LoadSaved(*path);
        return;
    case Command::Save:
    case Command::SaveAs: Save(command == Command::SaveAs); return;
    case Command::Metric: ChangeUnits(E_METRIC); return;
    case Command::Imperial: ChangeUnits(E_IMPERIAL); return;
    case Command::ExpandAll:
    case Command::CollapseAll: m_grid->ExpandAll(*m_document, command == Command::ExpandAll); return;
    case Command::Refresh: lumevor::Check((*m_grid)->Refresh()); return;
    default: return;
    }
}

void MainWindow::Open(const std::string& path)
{
    auto document = std::make_unique<Document>(path);
    const std::vector<std::string> faults = document->ImportFaults();
    Show(std::move(document));
    Tell(faults.empty() ? std::to_string(m_document->Ids().size()) + " properties" : Summary(faults));
}

/// The subscription comes after the tree was built: building it is nothing that happened to it.
void MainWindow::Show(std::unique_ptr<Document> document)
{
    m_subscription.reset();
    m_grid->Show(document ? document->Collection().Get() : nullptr);
    m_document = std::move(document);
    m_log.Clear();
    m_events->ShowNewest();
    if (m_document)
        m_subscription.emplace(m_document->Collection(),
                               [this](const lumevor::EventRange& events) { OnEvents(events); });
    ShowState();
}

void MainWindow::Close()
{
    Show(nullptr);
    Tell("");
}

void MainWindow::LoadSaved(const std::string& path)
{
    const LoadOutcome outcome = m_document->LoadSaved(path);
    lumevor::Check((*m_grid)->Refresh()); // the grid passes over the event of a load: its host reads anew
    ShowState();
    if (!outcome.raised.empty())
        Tell(outcome.raised);
    else
        Tell(outcome.faults.empty() ? "All saved values fit" : Summary(outcome.faults));
}

bool MainWindow::Save(bool askWhere)
{
    std::string path = m_document->SavedPath();
    if (askWhere || path.empty()) {
        const auto chosen = AskWhereToSave(m_window, path);
        if (!chosen)
            return false;
        path = *chosen;
    }
    m_document->Save(path);
    ShowState();
    Tell("Saved to " + path);
    return true;
}

bool MainWindow::MayLeave()
{
    if (!m_document)
        return true;
    m_grid->CommitTyping();
    if (!m_document->HasChanges())
        return true;
    const int answer = AskToSave(m_window, m_document->Name());
    return answer == IDYES ? Save(false) : answer == IDNO;
}

void MainWindow::ChangeUnits(EprpUnitMode mode)
{
    m_document->ConvertTo(mode);
    lumevor::Check((*m_grid)->Refresh());
    ShowState();
}

void MainWindow::ChangeLanguage(std::size_t index)
{
    const HostLanguage& language = kHostLanguages[index];
    if (language.setting == m_language)
        return;
    const std::wstring question = L"The components read their language when a program starts.\n\nOpen this window "
                                  L"anew in " +
                                  std::wstring(language.name) + L"?";
    if (!AskToGoOn(m_window, question) || !MayLeave())
        return;
    ChooseLanguage(language.setting);
    HostOptions options;
    if (m_document) {
        options.document = m_document->Path();
        options.saved = m_document->SavedPath();
    }
    Relaunch(options);
    DestroyWindow(m_window);
}

void MainWindow::OnEvents(const lumevor::EventRange& events)
{
    m_log.Add(events, m_document->Collection());
    m_document->NoteChange();
    m_events->ShowNewest();
    ShowState();
}

void MainWindow::OnSelectionChanged(LONG propertyId)
{
    if (m_document)
        Tell(lumevor::ToUtf8(m_document->Describe(propertyId)));
}

void MainWindow::OnExtendedInfoButton(LONG propertyId)
{
    lumevor::Check((*m_grid)->DoDefaultExtendedInfoAction(propertyId));
    Tell("More about " + lumevor::ToUtf8(m_document->Describe(propertyId)));
}

void MainWindow::OnTyping(bool isTyping)
{
    if (isTyping)
        Tell("Return takes the value, Escape drops it");
    else
        OnSelectionChanged(m_grid->Selected());
}

void MainWindow::Tell(const std::string& sentence)
{
    SetStatus(0, FromUtf8(sentence));
}

/// Title, status line and the marks of the menu, as things stand now.
void MainWindow::ShowState()
{
    const bool isOpen = m_document != nullptr;
    const bool isImperial = isOpen && m_document->UnitMode() == E_IMPERIAL;
    std::wstring title = L"lvhost";
    if (isOpen)
        title = FromUtf8(m_document->Name()) + (m_document->HasChanges() ? L"* - " : L" - ") + title;
    SetWindowTextW(m_window, title.c_str());
    SetStatus(1, !isOpen ? L"" : isImperial ? L"imperial, inch" : L"metric, mm");
    SetStatus(2, FromUtf8(Counted(m_log.Total(), "event")));

    const HMENU menu = GetMenu(m_window);
    CheckCommand(menu, Command::Metric, isOpen && !isImperial);
    CheckCommand(menu, Command::Imperial, isImperial);
    for (const Command command :
         {Command::OpenSaved, Command::Save, Command::SaveAs, Command::Metric, Command::Imperial, Command::ExpandAll,
          Command::CollapseAll, Command::FitNames, Command::Refresh})
        EnableCommand(menu, command, isOpen);
    auto language = static_cast<WORD>(Command::FirstLanguage);
    for (const HostLanguage& known : kHostLanguages)
        CheckCommand(menu, static_cast<Command>(language++), known.setting == m_language);
}
