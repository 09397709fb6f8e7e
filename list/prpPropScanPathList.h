// CprpPropScanPathList, a row that tells how many points a scan path has. Hosts edit the points themselves.
#pragma once

#include "list/prpPropTextItem.h"

class CprpPropScanPathList final : public CprpPropTextItem {
public:
    using CprpPropTextItem::CprpPropTextItem;

protected:
    EditType TypeOfTextBox() const override { return EditType::Free; }
    DWORD StyleOfTextBox() const override { return ES_READONLY; }
    Text ReadData(IqorProperty& property) const override;
    /// The text box is read-only: there is never anything to write.
    bool IsUnchanged(const Text&) const override { return true; }
};
