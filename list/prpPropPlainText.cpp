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
    const auto read = [](IqorProperty& property) {
        return TextFrom([&](BSTR* text) { return property.GetPropertyString(text); });
    };
    ReadFromFirst([&](IqorProperty& property) { m_strData = read(property); });
    KeepIfAllAgree(m_strData, read);
}
