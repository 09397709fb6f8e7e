// The end of the line for exceptions in window procedures: written to the support log, then shown.
#pragma once

#include "frame/CallSite.h"
#include "platform/com/Ole.h"

/// To be called in a handler. Shows a message box, which pumps messages, so that anything may have happened when it
/// returns. While one report is being shown, further ones on the thread are only written to the log.
/// @param window  one whose top-level window the box belongs to; may be null
void ReportWindowFailure(HWND window, CallSite here = CallSite::current()) noexcept;
