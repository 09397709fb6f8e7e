// CprpInPlaceDropList, the combo box on the selected row's data cell. Choosing an entry and losing the focus commit;
// there is no cancel.
#pragma once

#include "platform/win/Controls.h"
#include "platform/win/HandleOwners.h"

class CprpPropItem;
class CqorODListBox;

class CprpInPlaceDropList : public CComboBox {
public:
    bool CreateIn(CqorODListBox& list, const Rect& place);
    void SetFont(const LOGFONTW& font, bool redraw);
    /// Null: nothing is reported any more.
    void SetItem(CprpPropItem* pItem) { m_pItem = pItem; }
    /// Gives the focus it has back to the list and destroys the window. The platform's combo box does not survive its
    /// end in one of its own notifications: within a message it is hidden, and destroyed behind it.
    void Close();
    /// False once it is being closed.
    bool IsOpen() const { return Exists() && !m_bClosing; }
    /// Selects the entry with this whole text, letter case aside, else the first that begins with it; no entry for
    /// an empty text.
    void SelectText(const Text& text);
    /// Text of the selected entry, empty without one.
    Text SelectedText() const;

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnException() noexcept override;
    WindowLifetime* Lifetime() override;

private:
    LRESULT OnOwnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnNotification(UINT code);

    FontOwner m_font;
    CprpPropItem* m_pItem = nullptr;
    CqorODListBox* m_pListBox = nullptr;
    int m_nMessages = 0; ///< that are being handled
    bool m_bClosing = false;
};
