#include "frame/Raise.h"

#include "frame/LanguageStrings.h"
#include "platform/com/SystemText.h"

#include <algorithm>
#include <new>
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

void Store(OLECHAR (&target)[kMessageUnits], const Text& text)
{
    const auto end = std::copy_n(text.begin(), std::min(text.size(), kMessageUnits - 1), target);
    *end = 0;
}

Text LocationOf(CallSite at)
{
    Text format;
    if (LoadLanguageString(kLocationString, format))
        return BoundLocation(FormatText(format, FileNameOf(at.file), at.line));
    return BoundLocation(FormatText(LanguageStringOr(kMissingStringString, kMissingStringFallback), kLocationString));
}

} // namespace

void ThrowUsage(CallSite at, const Text& message)
{
    LVErrorInfo error;
    Store(error.m_szMessage, BoundMessage(message));
    if (at.file) {
        Store(error.m_szLocation, LocationOf(at));
        error.m_bHasLocation = true;
    }
    error.m_hr = kUsageErrorBase | static_cast<HRESULT>(at.line);
    throw error;
}

Text ResourceErrorFormat(UINT id, bool& found)
{
    Text format;
    found = LoadLanguageString(id, format);
    if (found)
        return format.substr(0, kMessageUnits - 1);
    return FormatText(LanguageStringOr(kMissingStringString, kMissingResourceFallback), id);
}

void ThrowResourceText(UINT id, const Text& message)
{
    LVErrorInfo error;
    Store(error.m_szMessage, BoundMessage(message));
    error.m_hr = kUsageErrorBase | static_cast<HRESULT>(id);
    throw error;
}

void ThrowInternal(CallSite at, const char* source)
{
    const DWORD last = GetLastError(); // first of all: what follows may change it
    const Text lastText = SystemText(static_cast<HRESULT>(last));
    const Text format = LanguageStringOr(kInternalErrorString, kInternalErrorFallback);

    LVErrorInfo error;
    Store(error.m_szMessage, BoundMessage(FormatText(format, FileNameOf(source ? source : at.file), at.line, lastText)));
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
