// What an exception in flight says: its code and its text. For the method frame and for window procedures, which
// both turn exceptions into reports.
#pragma once

#include "frame/CallSite.h"
#include "platform/com/Ole.h"

/// Description of the exception that is being handled.
struct CaughtException {
    HRESULT code = S_OK;
    Text message;
    bool isKnown = true; ///< false for an exception of a foreign type; it has no text of its own
};

/// To be called in a handler.
CaughtException DescribeCurrentException();

/// Text for an exception that nobody knows, with the place that reports it.
Text UnknownErrorAt(CallSite here);
