#include "toolkit/prpExtendedButton.h"

#include "platform/win/Reflection.h"
#include "toolkit/FailureReport.h"

void CprpExtendedButton::SetFont(const LOGFONTW& font, bool redraw)
{
    FontOwner made(CreateFontIndirectW(&font));
    Send(WM_SETFONT, reinterpret_cast<WPARAM>(made.Get()), redraw);
    m_fontButton = std::move(made); // the one before goes now that the window has let go of it
}

LRESULT CprpExtendedButton::OnMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_COMMAND + kReflected:
        if (m_pTarget && HIWORD(wParam) == BN_CLICKED)
            m_pTarget->OnExtendedButton();
        return 0;
    case WM_DESTROY: {
        const LRESULT result = CButton::OnMessage(message, wParam, lParam);
        m_fontButton.Reset();
        return result;
    }
    default: return CButton::OnMessage(message, wParam, lParam);
    }
}

void CprpExtendedButton::OnException() noexcept
{
    ReportWindowFailure(Handle());
}
