// The events as a table: shows the lines of a log, and holds none of its own.
#pragma once

#include "platform/draw/Rect.h"
#include "samples/host/EventLog.h"

class EventPane {
public:
    /// The log must outlive the pane.
    EventPane(HWND parent, UINT id, const EventLog& log);

    HWND Window() const { return m_window; }
    void Place(const Rect& place);
    /// Shows the newest line. Cheap: the table asks for the lines that it paints.
    void ShowNewest();
    /// A notification of the table, from its parent. True when it was answered.
    bool OnNotify(NMHDR& notification) const;

private:
    void SetWidths(int width) const;

    const EventLog& m_log;
    HWND m_window = nullptr;
};
