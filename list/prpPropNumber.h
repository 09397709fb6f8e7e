// CprpPropNumber, a row with a number. What was typed is held within the input limit of the collections; the
// property's own bounds show by its validity, not here.
#pragma once

#include "list/prpPropTextItem.h"

class CprpPropNumber final : public CprpPropTextItem {
public:
    /// @param nEditMode  one of the number kinds
    CprpPropNumber(GridHost* pViewer, CqorODListBox* pListBox, CqorLBItem* pParent, EditType nEditMode);

protected:
    EditType TypeOfTextBox() const override { return m_nEditMode; }
    bool IsUnchanged(const Text& typed) const override;
    Text TextToCommit(const Text& typed) const override;

private:
    const EditType m_nEditMode;
};
