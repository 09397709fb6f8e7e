#include "suite/settings/qorSettings.h"

#include "frame/MethodFrame.h"
#include "frame/NumberScan.h"
#include "frame/NumberText.h"
#include "suite/settings/SettingsFile.h"

namespace {

const Origin kOrigin{CLSID_setSettings, IID_IqorSettings};

constexpr int kRoundTripDigits = 17;

/// The language library of the process, as the components tell each other.
struct {
    std::mutex mutex;
    Text name;
} g_resourceDll;

TextView RequireName(BSTR name, const OLECHAR* parameter, CallSite at)
{
    const TextView text = ViewOf(name);
    if (!SettingsText::IsName(text))
        ThrowFormatted(at, OLESTR("'%s' can't be used for the parameter '%s'."), text, parameter);
    return text;
}

TextView RequireSection(BSTR section, CallSite at = CallSite::current())
{
    return RequireName(section, OLESTR("bstrSection"), at);
}

SettingsKey RequireKey(BSTR name, BSTR section, CallSite at = CallSite::current())
{
    const TextView text = RequireName(name, OLESTR("bstrName"), at);
    return {RequireSection(section, at), text};
}

/// Reads a whole text as one number; `read` is a member of the scanner.
template <class Number>
bool ReadWhole(TextView text, bool (TextScanner::*read)(Number&), Number& out)
{
    TextScanner scanner(text);
    Number number{};
    if (!(scanner.*read)(number))
        return false;
    scanner.SkipWhiteSpace();
    if (!scanner.AtEnd())
        return false;
    out = number;
    return true;
}

/// The scanner keeps the low 32 bits of any integer; here one that doesn't fit is no number.
bool ReadWholeLong(TextView text, LONG& out)
{
    LONG number = 0;
    double exact = 0;
    if (!ReadWhole(text, &TextScanner::ReadDecimal<LONG>, number) ||
        !ReadWhole(text, &TextScanner::ReadDouble, exact) || exact != number)
        return false;
    out = number;
    return true;
}

} // namespace

Text CqorSettings::FileName() const
{
    const std::lock_guard guard(m_mutex);
    return m_strFileName.empty() ? UserSettingsPath() : m_strFileName;
}

ESettingsError CqorSettings::Find(const SettingsKey& key, Text& value) const
{
    const auto settings = ReadSettingsFile(FileName());
    if (!settings)
        return E_SETTINGS_ERROR_FILE_UNREADABLE;
    if (!settings->HasSection(key.section))
        return E_SETTINGS_ERROR_SECTION_NOT_FOUND;
    auto found = settings->Find(key);
    if (!found)
        return E_SETTINGS_ERROR_VALUE_NOT_FOUND;
    value = std::move(*found);
    return E_SETTINGS_ERROR_NONE;
}

/// @param value  the new text; null takes the value out.
ESettingsError CqorSettings::Change(const SettingsKey& key, const Text* value) const
{
    const Text file = FileName();
    auto settings = ReadSettingsFile(file);
    if (!settings)
        return E_SETTINGS_ERROR_FILE_UNREADABLE;
    if (value) {
        settings->Set(key, *value);
    } else {
        if (!settings->HasSection(key.section))
            return E_SETTINGS_ERROR_SECTION_NOT_FOUND;
        if (!settings->Remove(key))
            return E_SETTINGS_ERROR_VALUE_NOT_FOUND;
    }
    return WriteSettingsFile(file, *settings) ? E_SETTINGS_ERROR_NONE : E_SETTINGS_ERROR_FILE_UNWRITABLE;
}

STDMETHODIMP CqorSettings::SetFileName(BSTR FileName)
{
    return InFrame(kOrigin, OLESTR("CqorSettings::SetFileName"), [&](const Checks&) {
        const std::lock_guard guard(m_mutex);
        m_strFileName = ViewOf(FileName);
    });
}

STDMETHODIMP CqorSettings::GetFileName(BSTR* FileName)
{
    return InFrame(kOrigin, OLESTR("CqorSettings::GetFileName"), [&](const Checks& require) {
        require.Pointer(FileName, OLESTR("pbstrFileName"));
        require.EmptyString(FileName, OLESTR("pbstrFileName"));
        *FileName = NewBstr(this->FileName());
    });
}

STDMETHODIMP CqorSettings::SectionExists(BSTR Section, VARIANT_BOOL* Exists)
{
    return InFrame(kOrigin, OLESTR("CqorSettings::SectionExists"), [&](const Checks& require) {
        require.Pointer(Exists, OLESTR("pbExists"));
        const TextView section = RequireSection(Section);

        const auto settings = ReadSettingsFile(FileName());
        *Exists = settings && settings->HasSection(section) ? VARIANT_TRUE : VARIANT_FALSE;
    });
}

STDMETHODIMP CqorSettings::ValueExists(BSTR Name, BSTR Section, VARIANT_BOOL* Exists)
{
    return InFrame(kOrigin, OLESTR("CqorSettings::ValueExists"), [&](const Checks& require) {
        require.Pointer(Exists, OLESTR("pbExists"));
        const SettingsKey key = RequireKey(Name, Section);

        Text value;
        *Exists = Find(key, value) == E_SETTINGS_ERROR_NONE ? VARIANT_TRUE : VARIANT_FALSE;
    });
}

STDMETHODIMP CqorSettings::GetString(BSTR Name, BSTR Section, BSTR* Value, ESettingsError* Error)
{
    return InFrame(kOrigin, OLESTR("CqorSettings::GetString"), [&](const Checks& require) {
        require.Pointer(Value, OLESTR("pbstrValue"));
        require.Pointer(Error, OLESTR("peError"));
        require.EmptyString(Value, OLESTR("pbstrValue"));
        const SettingsKey key = RequireKey(Name, Section);

        Text value;
        *Error = Find(key, value);
        if (*Error == E_SETTINGS_ERROR_NONE)
            *Value = NewBstr(value);
    });
}

STDMETHODIMP CqorSettings::GetLong(BSTR Name, BSTR Section, LONG* Value, ESettingsError* Error)
{
    return InFrame(kOrigin, OLESTR("CqorSettings::GetLong"), [&](const Checks& require) {
        require.Pointer(Value, OLESTR("pnValue"));
        require.Pointer(Error, OLESTR("peError"));
        const SettingsKey key = RequireKey(Name, Section);

        Text value;
        *Error = Find(key, value);
        if (*Error == E_SETTINGS_ERROR_NONE && !ReadWholeLong(value, *Value))
            *Error = E_SETTINGS_ERROR_NOT_A_NUMBER;
    });
}

STDMETHODIMP CqorSettings::GetDouble(BSTR Name, BSTR Section, double* Value, ESettingsError* Error)
{
    return InFrame(kOrigin, OLESTR("CqorSettings::GetDouble"), [&](const Checks& require) {
        require.Pointer(Value, OLESTR("pdbValue"));
        require.Pointer(Error, OLESTR("peError"));
        const SettingsKey key = RequireKey(Name, Section);

        Text value;
        *Error = Find(key, value);
        if (*Error == E_SETTINGS_ERROR_NONE && !ReadWhole(value, &TextScanner::ReadDouble, *Value))
            *Error = E_SETTINGS_ERROR_NOT_A_NUMBER;
    });
}

STDMETHODIMP CqorSettings::SetString(BSTR Name, BSTR Section, BSTR Value, ESettingsError* Error)
{
    return InFrame(kOrigin, OLESTR("CqorSettings::SetString"), [&](const Checks& require) {
        require.Pointer(Error, OLESTR("peError"));
        const SettingsKey key = RequireKey(Name, Section);

        const Text value(ViewOf(Value));
        *Error = Change(key, &value);
    });
}

STDMETHODIMP CqorSettings::SetLong(BSTR Name, BSTR Section, LONG Value, ESettingsError* Error)
{
    return InFrame(kOrigin, OLESTR("CqorSettings::SetLong"), [&](const Checks& require) {
        require.Pointer(Error, OLESTR("peError"));
        const SettingsKey key = RequireKey(Name, Section);

        Text value;
        AppendSigned(value, Value);
        *Error = Change(key, &value);
    });
}

STDMETHODIMP CqorSettings::SetDouble(BSTR Name, BSTR Section, double Value, ESettingsError* Error)
{
    return InFrame(kOrigin, OLESTR("CqorSettings::SetDouble"), [&](const Checks& require) {
        require.Pointer(Error, OLESTR("peError"));
        const SettingsKey key = RequireKey(Name, Section);

        const Text value = FormatGeneral(Value, kRoundTripDigits);
        *Error = Change(key, &value);
    });
}

STDMETHODIMP CqorSettings::RemoveValue(BSTR Name, BSTR Section, ESettingsError* Error)
{
    return InFrame(kOrigin, OLESTR("CqorSettings::RemoveValue"), [&](const Checks& require) {
        require.Pointer(Error, OLESTR("peError"));
        const SettingsKey key = RequireKey(Name, Section);

        *Error = Change(key, nullptr);
    });
}

STDMETHODIMP CqorSettings::SetResourceDllName(BSTR ResourceDllName)
{
    return InFrame(kOrigin, OLESTR("CqorSettings::SetResourceDllName"), [&](const Checks&) {
        const std::lock_guard guard(g_resourceDll.mutex);
        g_resourceDll.name = ViewOf(ResourceDllName);
    });
}

STDMETHODIMP CqorSettings::GetResourceDllName(BSTR* ResourceDllName)
{
    return InFrame(kOrigin, OLESTR("CqorSettings::GetResourceDllName"), [&](const Checks& require) {
        require.Pointer(ResourceDllName, OLESTR("pbstrResourceDllName"));
        require.EmptyString(ResourceDllName, OLESTR("pbstrResourceDllName"));
        const std::lock_guard guard(g_resourceDll.mutex);
        *ResourceDllName = NewBstr(g_resourceDll.name);
    });
}
