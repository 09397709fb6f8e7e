// The settings component: named values in sections, kept for each user. Each call reads the file anew or replaces it,
// so an object holds no value, and any number of objects in any number of programs agree.
//
// Sections and names match without regard to the case of ASCII letters. A name that a settings file can't hold (empty,
// blanks at its ends, control characters, "[", "]", "=", ";") is an error of usage. Expected outcomes come in Error.
#pragma once

#include "platform/atl/ComObject.h"
#include "platform/com/Ole.h"
#include "suite/settings/SettingsText.h"

#include "LV_setSettings.h"

#include <mutex>

class CqorSettings : public CComObjectRootEx<CComMultiThreadModel>,
                     public CComCoClass<&CLSID_setSettings>,
                     public IqorSettings,
                     public ISupportErrorInfoImpl<IqorSettings> {
public:
    using Interfaces = InterfaceList<IqorSettings, ISupportErrorInfo>;

    STDMETHODIMP SetFileName(BSTR FileName) override;
    STDMETHODIMP GetFileName(BSTR* FileName) override;
    /// False, too, when the file can't be read.
    STDMETHODIMP SectionExists(BSTR Section, VARIANT_BOOL* Exists) override;
    STDMETHODIMP ValueExists(BSTR Name, BSTR Section, VARIANT_BOOL* Exists) override;
    /// @param Value  must come in null; stays null unless Error is E_SETTINGS_ERROR_NONE. The caller frees it.
    STDMETHODIMP GetString(BSTR Name, BSTR Section, BSTR* Value, ESettingsError* Error) override;
    /// @param Value  stays as it is unless Error is E_SETTINGS_ERROR_NONE. Decimal digits with an optional sign.
    STDMETHODIMP GetLong(BSTR Name, BSTR Section, LONG* Value, ESettingsError* Error) override;
    /// @param Value  stays as it is unless Error is E_SETTINGS_ERROR_NONE. A point stands ahead of decimals.
    STDMETHODIMP GetDouble(BSTR Name, BSTR Section, double* Value, ESettingsError* Error) override;
    STDMETHODIMP SetString(BSTR Name, BSTR Section, BSTR Value, ESettingsError* Error) override;
    STDMETHODIMP SetLong(BSTR Name, BSTR Section, LONG Value, ESettingsError* Error) override;
    /// Written with 17 significant digits, so that the same number is read back.
    STDMETHODIMP SetDouble(BSTR Name, BSTR Section, double Value, ESettingsError* Error) override;
    STDMETHODIMP RemoveValue(BSTR Name, BSTR Section, ESettingsError* Error) override;
    /// The name belongs to the process, not to the object or the file: the first component that loads a language
    /// library tells it, and the others ask.
    STDMETHODIMP SetResourceDllName(BSTR ResourceDllName) override;
    STDMETHODIMP GetResourceDllName(BSTR* ResourceDllName) override;

private:
    Text FileName() const;
    ESettingsError Find(const SettingsKey& key, Text& value) const;
    ESettingsError Change(const SettingsKey& key, const Text* value) const;

    mutable std::mutex m_mutex; // an object serves any thread, so that a class object may be asked for on any
    Text m_strFileName;         ///< empty for the user's own file
};
