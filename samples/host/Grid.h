// The grid in a window of the platform's own ActiveX container, and what a host does with it beyond single calls.
#pragma once

#include "platform/draw/Rect.h"
#include "samples/host/Document.h"
#include "samples/host/GridEvents.h"

#include <optional>

class Grid {
public:
    /// Makes the container's window with the control in it. Throws lumevor::Error when the control can't be made.
    Grid(HWND parent, UINT id, GridListener& listener);
    ~Grid();
    Grid(const Grid&) = delete;
    Grid& operator=(const Grid&) = delete;

    /// The control's interface.
    IprpCollectionViewerCtrl* operator->() const { return m_viewer.Get(); }

    /// The container's window.
    HWND Window() const { return m_window; }
    /// The window of the rows; null while the control has none.
    HWND RowsWindow() const;

    /// Shows a collection, or nothing when it is null, with the names as wide as they need up to half of the window.
    void Show(IqorPropertyCollection* collection);
    void FitNames();
    /// Expands or collapses every row that has children.
    void ExpandAll(const Document& document, bool expand);
    /// One step of zoom, as a turn of the wheel with Ctrl does it.
    void Zoom(bool in);
    /// Takes over what is being typed, as a loss of focus does.
    void CommitTyping();

    bool HasFocus() const;
    void TakeFocus();
    /// Offers a message to the control ahead of the host's own keys. True when it is done with.
    bool Translate(MSG& message);

    LONG Selected() const;
    /// Place of a value in client pixels of the rows' window; nothing for a property without a row.
    std::optional<Rect> PlaceOf(LONG property) const;

private:
    HWND m_window = nullptr;
    lumevor::Ref<IprpCollectionViewerCtrl> m_viewer;
    lumevor::Ref<IOleInPlaceActiveObject> m_active;
    std::optional<GridConnection> m_connection;
};
