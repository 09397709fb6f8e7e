// CprpPropTextItem, what the rows with a text box have in common: number, string, scan path.
#pragma once

#include "list/prpPropItem.h"

class CprpPropTextItem : public CprpPropItem {
public:
    using CprpPropItem::CprpPropItem;

    void Draw(const SqorLBDrawContext& context) override;
    int MeasureItem(const SqorLBDrawSettings& settings, HDC hDC) override;
    void Edit(const Rect& data, const Rect& row, const Rect& indent) override;
    void Refresh() override;
    void OnEditCommit() override;
    void OnEditStart() override;
    void OnEditCancel() override;

protected:
    virtual EditType TypeOfTextBox() const = 0;
    virtual DWORD StyleOfTextBox() const { return 0; }
    void ReadValue(IqorProperty& property, bool isFirst) override;
    /// Text of the data cell in one collection.
    virtual Text ReadData(IqorProperty& property) const;
    /// True when a text counts as that of the data cell.
    virtual bool IsUnchanged(const Text& typed) const = 0;
    /// What is written for a text that was typed.
    virtual Text TextToCommit(const Text& typed) const { return typed; }
};
