// The frame around the body of every interface method: it clears the thread's error object, runs the body, and
// turns whatever was thrown into a code and a description on the thread.
#pragma once

#include "frame/CallSite.h"
#include "frame/Raise.h"
#include "platform/com/Ole.h"

#include <MethodEntry.h>
#include <type_traits>

/// Class and interface that an error description is reported for.
struct Origin {
    const CLSID& clsid;
    const IID& iid;
};

/// Parameter checks of one method. Each raises with the line of the check itself.
struct Checks {
    const OLECHAR* method; ///< in the form Class::Method

    /// Raises when a pointer is null.
    void Pointer(const void* p, const OLECHAR* parameter, CallSite at = CallSite::current()) const
    {
        if (!p) [[unlikely]]
            FailPointer(parameter, at);
    }
    /// Raises when an out text does not come in null.
    void EmptyString(const BSTR* text, const OLECHAR* parameter, CallSite at = CallSite::current()) const
    {
        if (*text) [[unlikely]]
            ThrowFormatted(at, kBstrNotNullText, parameter, method);
    }
    /// Raises when no transaction runs.
    void Transaction(bool running, CallSite at = CallSite::current()) const
    {
        if (!running) [[unlikely]]
            ThrowFormatted(at, kNoTransactionText);
    }
    /// Raises when a number is negative.
    void NotNegative(LONG_PTR value, CallSite at = CallSite::current()) const
    {
        if (value < 0) [[unlikely]]
            ThrowFormatted(at, kNegativeText);
    }
    /// Raises when a number is no property id.
    void PropertyId(LONG id, CallSite at = CallSite::current()) const
    {
        if (id < 1) [[unlikely]]
            ThrowFormatted(at, kInvalidIdText);
    }

    [[noreturn]] void FailPointer(const OLECHAR* parameter, CallSite at) const;
};

/// Reports the exception that is being handled: puts the description on the thread and gives the code.
/// @param here  the method's own place, named when nothing is known about the exception.
HRESULT ReportCurrentException(const Origin& origin, CallSite here) noexcept;

/// Runs the body of an interface method. A body that returns nothing gives S_OK.
template <class Body>
HRESULT InFrame(const Origin& origin, const OLECHAR* method, Body&& body, CallSite here = CallSite::current()) noexcept
{
    PrepareThreadForThrow();
    SetErrorInfo(0, nullptr);
    try {
        const Checks require{method};
        if constexpr (std::is_void_v<std::invoke_result_t<Body&, const Checks&>>) {
            body(require);
            return S_OK;
        } else {
            return body(require);
        }
    } catch (...) {
        return ReportCurrentException(origin, here);
    }
}
