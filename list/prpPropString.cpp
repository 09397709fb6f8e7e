#include "list/prpPropString.h"

#include "list/PropertyAccess.h"

CprpPropString::CprpPropString(GridHost* pViewer, CqorODListBox* pListBox, CqorLBItem* pParent, bool bUnicode)
    : CprpPropTextItem(pViewer, pListBox, pParent), m_bUnicode(bUnicode)
{
}

/// Collections that refuse different characters leave none refused.
void CprpPropString::Refresh()
{
    CprpPropTextItem::Refresh();
    const auto read = [](IqorProperty& property) {
        return TextFrom([&](BSTR* text) { return property.GetInvalidCharacters(text); });
    };
    ReadFromFirst([&](IqorProperty& property) { m_strInvalidChars = read(property); });
    KeepIfAllAgree(m_strInvalidChars, read);
}
