// CprpPropItem, a row bound to one property id that may exist in several collections at once.
//
// A row never holds the value as the truth: it keeps the display text, takes everything else from the properties, and
// after a commit waits for the collection's event to come back and refresh it. Its editor windows exist only while
// the selected row needs them; they come and go in Draw.
#pragma once

#include "LV_prpPropCollection.h"
#include "list/EditorOwner.h"
#include "list/GridHost.h"
#include "list/prpInPlaceEdit.h"
#include "list/prpMultiplePropInfo.h"
#include "list/qorLBItem.h"
#include "toolkit/prpExtendedButton.h"

#include <functional>
#include <limits>

class CprpPropItem : public CqorLBItem, public EditorOwner, public ExtendedButtonTarget {
public:
    /// The node is set by the control afterwards.
    CprpPropItem(GridHost* pViewer, CqorODListBox* pListBox, CqorLBItem* pParent);
    ~CprpPropItem() override;

    void Draw(const SqorLBDrawContext& context) override;
    int MeasureItem(const SqorLBDrawSettings& settings, HDC hDC) override;
    void Edit(const Rect&, const Rect&, const Rect&) override {}
    void EndEdit(bool commit) override;
    int GetNameWidth(HDC hDC, const SqorLBDrawSettings& settings) override;
    int GetDataWidth(HDC hDC, const SqorLBDrawSettings& settings) override;
    void Refresh() override;

    // The order of the virtual operations is fixed, behind those of the base.
    virtual void OnEditChange() {}
    /// Called by an editor that loses the focus or is confirmed. Calls hosts.
    virtual void OnEditCommit() {}
    virtual void OnEditStart() {}
    virtual void OnEditCancel() {}
    void OnExtendedButton() override;
    virtual void DoDefaultExtendedAction() {}
    /// Null when there is no text box.
    virtual HWND GetEditWindow() const { return m_edit.Handle(); }
    virtual void SetColumnWidths(int, int, int) {}
    virtual void GetColumnWidths(int&, int&, int&) const {}
    virtual void DrawPreface(const SqorLBDrawContext& context);
    virtual void DrawName(const SqorLBDrawContext& context);
    virtual void DrawData(const SqorLBDrawContext& context);

    void AbandonEditors() noexcept override;

    Text m_strData; ///< text of the data column; empty when the collections disagree
    GridHost* m_pViewer;
    CprpInPlaceEdit m_edit;
    CprpExtendedButton m_btnExtended;
    bool m_bShowExtendedButton = true;
    bool m_bEditable = true;
    bool m_bVisibilityForced = false; ///< by the control: the property's own visibility does not count
    bool m_bShowHelpTooltip;
    double m_dbMaxInputValue = std::numeric_limits<double>::max();
    CprpMultiplePropInfo* m_pPropInfo = nullptr;
    Text m_strInvalidChars; ///< that the text box refuses

protected:
    CprpMultiplePropInfo& PropInfo() const;
    IqorPropertyCollection& FirstCollection() const { return *PropInfo().m_listCollections.front(); }
    /// Unit mode of the first collection.
    bool IsImperial() const;
    /// Part of Refresh: reads what the class shows of the value. Called within the transaction of each collection,
    /// the first one first, behind the states.
    virtual void ReadValue(IqorProperty&, bool /*isFirst*/) {}
    /// Takes the text of the first collection and empties it when another one has a different text.
    static void KeepIfAllAgree(Text& text, Text read, bool isFirst);

    RowState StateFor(const SqorLBDrawContext& context) const;
    /// True when this row shows its editors in this painting.
    bool ShowsEditors(const SqorLBDrawContext& context) const;
    /// Makes, moves or closes the button. Closing may end in calls to hosts.
    void PlaceButton(const Rect& data, bool wanted);
    /// Makes or moves the text box and brings its text up to date.
    void PlaceTextBox(const Rect& cell, EditType type, DWORD extraStyle = 0);
    /// Button and text box as the row's flags say, or none. The last thing that a Draw does.
    void PlaceEditors(const SqorLBDrawContext& context, EditType type, DWORD extraStyle = 0);
    /// Gives the focus back to the list, which commits, and destroys the window.
    void CloseEditor(SubclassedWindow& window);
    /// Focus and selection to the text box, else the button's action.
    void EditTextBox();
    void FocusList() const;

    /// Writes one value to all collections of the row, each in a transaction of its own that fires. The row may be
    /// gone afterwards; the values are written all the same.
    void WriteToAll(const std::function<void(IqorProperty&)>& write);

private:
    void ReadIdentity(IqorPropertyCollection& first, IqorProperty& property);
    void KeepSmallerLimit(IqorPropertyCollection& collection, double tolerance);
    bool ReadState(IqorPropertyCollection& collection, IqorProperty& property);
    void ReadMessages(IqorPropertyCollection& collection, IqorProperty& property, bool valid, bool visible);
    void AddErrorText(const Text& error);
    void AddHelpText(const Text& help);
    void ReadEditFlags(IqorProperty& property);

    Rect m_rcTextBox; ///< where the windows were placed last
    Rect m_rcButton;
    int m_nTextBoxFont = 0; ///< font generation of the windows
    int m_nButtonFont = 0;
};
