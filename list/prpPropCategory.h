// CprpPropCategory, a heading row. Its states are those of its children; it is never edited.
#pragma once

#include "list/prpPropItem.h"

class CprpPropCategory final : public CprpPropItem {
public:
    CprpPropCategory(GridHost* pViewer, CqorODListBox* pListBox, CqorLBItem* pParent);

    void Draw(const SqorLBDrawContext& context) override;
    int GetNameWidth(HDC hDC, const SqorLBDrawSettings& settings) override;
    void Refresh() override;
    bool IsInvalid() const override;
    /// A category without a visible child is not shown.
    bool IsVisible() const override;
    bool IsInWarning() const override;

private:
    COLORREF m_crBackground = 0; ///< own ground, as the control had it at the last refresh
};
