// CprpPropString, a row with a text, every change of which counts.
#pragma once

#include "list/prpPropTextItem.h"

class CprpPropString final : public CprpPropTextItem {
public:
    CprpPropString(GridHost* pViewer, CqorODListBox* pListBox, CqorLBItem* pParent, bool bUnicode);

protected:
    void ReadValue(IqorProperty& property, bool isFirst) override;
    EditType TypeOfTextBox() const override { return m_bUnicode ? EditType::UnicodeString : EditType::AnsiString; }
    bool IsUnchanged(const Text& typed) const override { return typed == m_strData; }

private:
    const bool m_bUnicode;
};
