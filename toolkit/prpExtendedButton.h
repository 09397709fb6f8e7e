// CprpExtendedButton, a button with a font of its own that tells a target when it is clicked.
#pragma once

#include "platform/win/Controls.h"
#include "platform/win/HandleOwners.h"

/// Told about clicks. May take the button away while it is told.
class ExtendedButtonTarget {
public:
    virtual void OnExtendedButton() = 0;

protected:
    ~ExtendedButtonTarget() = default;
};

class CprpExtendedButton : public CButton {
public:
    void SetFont(const LOGFONTW& font, bool redraw);
    /// Null is ignored.
    void SetTarget(ExtendedButtonTarget* target)
    {
        if (target)
            m_pTarget = target;
    }
    /// Keeps what the target belongs to in memory while the button is being called.
    void SetLifetime(WindowLifetime* lifetime) { m_pLifetime = lifetime; }

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnException() noexcept override;
    WindowLifetime* Lifetime() override { return m_pLifetime; }

private:
    FontOwner m_fontButton;
    ExtendedButtonTarget* m_pTarget = nullptr;
    WindowLifetime* m_pLifetime = nullptr;
};
