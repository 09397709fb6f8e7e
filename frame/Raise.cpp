#include "frame/Raise.h"

#include "frame/LanguageStrings.h"
#include "platform/com/SystemText.h"

#include <string_view>

namespace {

constexpr const OLECHAR* kInternalErrorFallback = OLESTR("Internal error in %s, line %d.\r\nLast Error: %s");
constexpr const OLECHAR* kMissingStringFallback =
    OLESTR("Failed to load string %d from the resource dll - you may have to re-install the program");
constexpr const OLECHAR* kMissingResourceFallback =
    OLESTR("Failed to load LV_nLastError string %d from the resource dll - you may have to re-install the program");

/// File name and extension of a source path, which may have either kind of separator.
Text FileNameOf(const char* path)
{
    std::string_view name(path);
    if (const auto cut = name.find_last_of("/\\"); cut != name.npos)
        name.remove_prefix(cut + 1);
    return Text(name.begin(), name.end());
}

Text LanguageStringOr(UINT id, const OLECHAR* fallback)
{
    Text text;
    return LoadLanguageString(id, text) ? text : Text(fallback);
}

void StoreLocation(LVErrorInfo& error, CallSite at)
{
    Text format;
    if (LoadLanguageString(kLocationString, format))
        FormatLocationText(error.m_szLocation, format, FileNameOf(at.file), at.line);
    else
        FormatLocationText(error.m_szLocation, LanguageStringOr(kMissingStringString, kMissingStringFallback),
                           kLocationString);
}

} // namespace

void ThrowUsage(CallSite at, LVErrorInfo& error)
{
    if (at.file) {
        StoreLocation(error, at);
        error.m_bHasLocation = true;
    }
    error.m_hr = kUsageErrorBase | static_cast<HRESULT>(at.line);
    throw error;
}

bool LoadErrorFormat(UINT id, Text& format)
{
    if (LoadLanguageString(id, format))
        return true;
    format = LanguageStringOr(kMissingStringString, kMissingResourceFallback);
    return false;
}

void ThrowInternal(CallSite at, const char* source)
{
    const DWORD last = GetLastError(); // first of all: what follows may change it
    const Text lastText = SystemText(static_cast<HRESULT>(last));
    const Text format = LanguageStringOr(kInternalErrorString, kInternalErrorFallback);

    LVErrorInfo error;
    FormatMessageText(error.m_szMessage, format, FileNameOf(source ? source : at.file), at.line, lastText);
    error.m_hr = kInternalError;
    throw error;
}

void ThrowHResult(HRESULT hr)
{
    ComError error;
    error.hr = hr;
    GetErrorInfo(0, &error.info);
    throw error;
}

BSTR NewBstr(TextView text)
{
    BSTR copy = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (!copy)
        throw ComError{E_OUTOFMEMORY, {}};
    return copy;
}
