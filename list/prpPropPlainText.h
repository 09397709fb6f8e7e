// CprpPropPlainText, a row that shows a value as text and lets nobody edit it: for values that have no editor.
#pragma once

#include "list/prpPropItem.h"

class CprpPropPlainText final : public CprpPropItem {
public:
    using CprpPropItem::CprpPropItem;

    void Draw(const SqorLBDrawContext& context) override;
    void Refresh() override;

protected:
    void ReadValue(IqorProperty& property, bool isFirst) override;
};
