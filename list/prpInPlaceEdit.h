// CprpInPlaceEdit, the text box on the selected row's data cell. It filters keys, decides nothing about the value,
// and reports to its item, which may go away, and the text box with it, during any report.
#pragma once

#include "list/EditKeys.h"
#include "platform/win/HandleOwners.h"
#include "toolkit/qorNoIMEEdit.h"

class CprpPropItem;
class CqorODListBox;

class CprpInPlaceEdit : public CqorNoIMEEdit {
public:
    /// Makes the window in the list, without an item as yet.
    bool CreateIn(CqorODListBox& list, const Rect& place, DWORD extraStyle);
    void SetFont(const LOGFONTW& font, bool redraw);
    /// Null: nothing is reported any more.
    void SetItem(CprpPropItem* pItem) { m_pItem = pItem; }
    void SetEditType(EditType type) { m_eEditType = type; }
    void SetInvalidChars(const Text& characters) { m_strInvalidChars = characters; }

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnException() noexcept override;
    WindowLifetime* Lifetime() override;

private:
    LRESULT OnCharacter(WPARAM wParam, LPARAM lParam);
    LRESULT OnKeyDown(WPARAM wParam, LPARAM lParam);
    LRESULT OnPaste();
    void Paste(const Text& text);
    void ToggleSignOfText();
    void ConvertUnit(OLECHAR key);
    LRESULT CanAct(UINT message) const;

    FontOwner m_font;
    CprpPropItem* m_pItem = nullptr;
    EditType m_eEditType = EditType::Free;
    bool m_bCommitOnKillFocus = true;
    Text m_strInvalidChars;
    CqorODListBox* m_pListBox = nullptr;
};
