#include "list/prpPropPlainText.h"

#include "list/PropertyAccess.h"

void CprpPropPlainText::Draw(const SqorLBDrawContext& context)
{
    CprpPropItem::Draw(context);
    DrawName(context);
    DrawData(context);
}

void CprpPropPlainText::Refresh()
{
    CprpPropItem::Refresh();
    m_bReadOnly = true;
}

void CprpPropPlainText::ReadValue(IqorProperty& property, bool isFirst)
{
    KeepIfAllAgree(m_strData, TextFrom([&](BSTR* text) { return property.GetPropertyString(text); }), isFirst);
}
