#include "frame/MethodFrame.h"

#include "frame/ExceptionText.h"
#include "platform/com/SystemText.h"

namespace {

/// Puts a description on the calling thread, with the program id of the class as its source.
void AtlSetErrorInfo(const Origin& origin, const Text& description) noexcept
{
    CComPtr<ICreateErrorInfo> create;
    if (FAILED(CreateErrorInfo(&create)))
        return;
    create->SetGUID(origin.iid);
    LPOLESTR source = nullptr;
    if (SUCCEEDED(ProgIDFromCLSID(origin.clsid, &source))) {
        create->SetSource(source);
        CoTaskMemFree(source);
    }
    create->SetDescription(const_cast<LPOLESTR>(description.c_str()));
    CComPtr<IErrorInfo> info;
    if (SUCCEEDED(create.QueryInterface(&info)))
        SetErrorInfo(0, info);
}

Text UnknownErrorText(CallSite here)
{
    if (const DWORD last = GetLastError())
        return SystemText(static_cast<HRESULT>(last));
    return UnknownErrorAt(here);
}

} // namespace

void Checks::FailPointer(const OLECHAR* parameter, CallSite at) const
{
    ThrowFormatted(at, kNullPointerText, method, parameter);
}

HRESULT ReportCurrentException(const Origin& origin, CallSite here) noexcept
{
    const CaughtException caught = DescribeCurrentException();
    AtlSetErrorInfo(origin, caught.isKnown ? caught.message : UnknownErrorText(here));
    return caught.code;
}
