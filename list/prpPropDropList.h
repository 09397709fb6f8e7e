// CprpPropDropList, a row with an enumerated value, chosen from a combo box.
#pragma once

#include "list/prpInPlaceDropList.h"
#include "list/prpPropItem.h"

class CprpPropDropList final : public CprpPropItem {
public:
    using CprpPropItem::CprpPropItem;
    ~CprpPropDropList() override;

    void Draw(const SqorLBDrawContext& context) override;
    int MeasureItem(const SqorLBDrawSettings& settings, HDC hDC) override;
    void Edit(const Rect& data, const Rect& row, const Rect& indent) override;
    /// Closing the combo box commits its entry, whatever the flag.
    void EndEdit(bool commit) override;
    void Refresh() override;
    bool OnCtlColor(HDC hDC, HWND hWnd, UINT nControlType, const SqorLBDrawSettings& settings) override;
    void OnEditCommit() override;
    void DrawData(const SqorLBDrawContext& context) override;
    void AbandonEditors() noexcept override;

protected:
    void ReadValue(IqorProperty& property, bool isFirst) override;

private:
    static Text TextOf(IqorProperty& property, LONG value);
    void PlaceDropList(const Rect& data, bool button);
    void Fill();

    CprpInPlaceDropList m_comboList;
    LONG m_nFirstValue = 0; ///< in the first collection
    Rect m_rcDropList;      ///< where the combo box was placed last
    int m_nDropListFont = 0;
};
