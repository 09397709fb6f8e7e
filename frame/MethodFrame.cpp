#include "frame/MethodFrame.h"

#include "frame/LanguageStrings.h"
#include "platform/com/SystemText.h"

#include <string>

namespace {

constexpr const OLECHAR* kUnknownErrorFallback = OLESTR("Unknown error encountered in file:\r\n%s(%d)");

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

Text DescriptionOf(const ComError& error)
{
    if (!error.info)
        return SystemText(error.hr);
    CComBSTR description;
    error.info->GetDescription(&description);
    return Text(description.View());
}

Text UnknownErrorText(CallSite here)
{
    if (const DWORD last = GetLastError())
        return SystemText(static_cast<HRESULT>(last));
    Text format;
    if (!LoadLanguageString(kUnknownErrorString, format))
        format = kUnknownErrorFallback;
    const std::string file(here.file);
    return FormatText(format, Text(file.begin(), file.end()), here.line);
}

} // namespace

void Checks::FailPointer(const OLECHAR* parameter, CallSite at) const
{
    ThrowFormatted(at, kNullPointerText, method, parameter);
}

HRESULT ReportCurrentException(const Origin& origin, CallSite here) noexcept
{
    HRESULT result = S_OK;
    Text message;
    try {
        throw;
    } catch (const LVErrorInfo& error) {
        message = error.m_szMessage;
        if (error.m_bHasLocation)
            message.append(OLESTR("\r\n")).append(error.m_szLocation);
        result = error.m_hr;
    } catch (const ComError& error) {
        message = DescriptionOf(error);
        result = error.hr;
    } catch (const OLECHAR* text) {
        // On purpose: a thrown text is a description without a failure, so the method succeeds and still reports it.
        message = text;
    } catch (...) {
        message = UnknownErrorText(here);
        result = kInternalError;
    }
    AtlSetErrorInfo(origin, message);
    return result;
}
