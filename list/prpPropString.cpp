#include "list/prpPropString.h"

#include "list/PropertyAccess.h"

CprpPropString::CprpPropString(GridHost* pViewer, CqorODListBox* pListBox, CqorLBItem* pParent, bool bUnicode)
    : CprpPropTextItem(pViewer, pListBox, pParent), m_bUnicode(bUnicode)
{
}

/// Collections that refuse different characters leave none refused.
void CprpPropString::ReadValue(IqorProperty& property, bool isFirst)
{
    CprpPropTextItem::ReadValue(property, isFirst);
    KeepIfAllAgree(m_strInvalidChars, TextFrom([&](BSTR* text) { return property.GetInvalidCharacters(text); }),
                   isFirst);
}
