#include "list/prpPropNumber.h"

#include "frame/TextTools.h"
#include "list/NumberCommit.h"

CprpPropNumber::CprpPropNumber(GridHost* pViewer, CqorODListBox* pListBox, CqorLBItem* pParent, EditType nEditMode)
    : CprpPropTextItem(pViewer, pListBox, pParent), m_nEditMode(nEditMode)
{
}

/// "1E3" is "1e3".
bool CprpPropNumber::IsUnchanged(const Text& typed) const
{
    return EqualsIgnoringCase(typed, m_strData);
}

Text CprpPropNumber::TextToCommit(const Text& typed) const
{
    return NumberToCommit(typed, m_dbMaxInputValue, IsImperial());
}
