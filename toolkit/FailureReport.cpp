#include "toolkit/FailureReport.h"

#include "frame/ExceptionText.h"
#include "frame/LanguageStrings.h"
#include "frame/SupportLog.h"
#include "platform/win/Alerts.h"

namespace {

constexpr UINT kErrorCaption = 32002;
constexpr UINT kBoxFlags = MB_ICONEXCLAMATION | MB_TOPMOST;

/// True on a thread while it shows a report; a window that fails on every paint would else stack up boxes.
thread_local bool t_isReporting = false;

} // namespace

void ReportWindowFailure(HWND window, CallSite here) noexcept
try {
    const CaughtException caught = DescribeCurrentException();
    const Text message = caught.isKnown ? caught.message : UnknownErrorAt(here);
    WriteSupportLog(message, true);
    if (t_isReporting)
        return;
    Text caption;
    if (!LoadLanguageString(kErrorCaption, caption))
        caption = OLESTR("Lumevor Error");
    t_isReporting = true;
    CurrentAlerts().messageBox(window ? GetAncestor(window, GA_ROOT) : nullptr, message.c_str(), caption.c_str(),
                               kBoxFlags);
    t_isReporting = false;
} catch (...) {
    t_isReporting = false; // no memory for a report: the message goes unreported, the window goes on
}
