// The window: the grid, the events beside it, the status line, the menu and its commands. One thread.
#pragma once

#include "samples/host/CommandLine.h"
#include "samples/host/Commands.h"
#include "samples/host/Document.h"
#include "samples/host/EventLog.h"
#include "samples/host/EventPane.h"
#include "samples/host/Grid.h"

#include <memory>
#include <optional>
#include <string>

class MainWindow final : private GridListener {
public:
    /// Throws lumevor::Error when the grid can't be made.
    MainWindow();
    ~MainWindow();
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    /// Shows another document in place of the present one. Throws ToolError and leaves the present one as it is.
    void Open(const std::string& path);
    /// Loads a saved line into the document. Throws ToolError.
    void LoadSaved(const std::string& path);
    void Close();
    void Run(Command command);

    /// Messages until the window is closed. @return the program's exit status.
    int Loop();
    /// Hands one message to the control, the keys of the commands, or its window.
    void Dispatch(MSG& message);

    HWND Window() const { return m_window; }
    Grid& TheGrid() { return *m_grid; }
    const EventPane& Events() const { return *m_events; }
    /// Null when nothing is open.
    Document* TheDocument() { return m_document ? &*m_document : nullptr; }
    void Tell(const std::string& sentence);

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void MakeParts();
    void DestroyParts();
    LRESULT OnSetCursor(WPARAM wParam, LPARAM lParam);
    void OnSplitterDown(Point at);
    void OnSplitterMove(Point at);
    void PlaceParts();
    Rect ClientAboveStatus() const;
    void MoveFocus();

    // GridListener
    void OnSelectionChanged(LONG propertyId) override;
    void OnExtendedInfoButton(LONG propertyId) override;
    void OnTyping(bool isTyping) override;

    void OnEvents(const lumevor::EventRange& events);
    void Show(std::unique_ptr<Document> document);
    void RunOnDocument(Command command);
    bool Save(bool askWhere);
    void ChangeUnits(EprpUnitMode mode);
    void ChangeLanguage(std::size_t index);
    /// False when the user wants to stay.
    bool MayLeave();
    void ShowState();
    void SetStatus(int part, const std::wstring& text);

    HWND m_window = nullptr;
    HWND m_status = nullptr;
    HACCEL m_accelerators = nullptr;
    LONG m_language = 0;        ///< its number in the settings, as the components found it
    HWND m_lastFocus = nullptr; ///< while another program is in front
    int m_eventsWidth = 420;
    bool m_isDragging = false;

    EventLog m_log;
    std::unique_ptr<Grid> m_grid;
    std::unique_ptr<EventPane> m_events;
    std::unique_ptr<Document> m_document;
    std::optional<lumevor::Subscription> m_subscription;
};
