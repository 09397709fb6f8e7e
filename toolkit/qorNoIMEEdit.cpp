#include "toolkit/qorNoIMEEdit.h"

LRESULT CqorNoIMEEdit::OnMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_SETFOCUS) {
        m_hIMC = ImmGetContext(Handle());
        if (m_hIMC)
            ImmAssociateContext(Handle(), nullptr);
        ImmReleaseContext(Handle(), m_hIMC);
    }
    return CEdit::OnMessage(message, wParam, lParam);
}
