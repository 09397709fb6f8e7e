// CqorNoIMEEdit, the edit field for numbers: the input method is switched off whenever it gains the focus.
#pragma once

#include "platform/win/Controls.h"

#include <imm.h>

class CqorNoIMEEdit : public CEdit {
protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    HIMC m_hIMC = nullptr; ///< input context last fetched; null without an input method
};
