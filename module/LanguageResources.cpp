#include "module/LanguageResources.h"

#include "frame/FormatText.h"

#include <algorithm>

namespace {

constexpr const OLECHAR* kDefaultLibrary = OLESTR("LV_resResources.dll");
constexpr const OLECHAR* kUnknownLanguageText =
    OLESTR("Failed to read selected language. Using default language instead.");
constexpr const OLECHAR* kMissingLibraryText = OLESTR("Unable to find the language DLL: %s. Please re-install");

} // namespace

void LanguageResources::LoadLanguageResources()
{
    if (m_hResDll)
        return;
    m_hOwnInstance = m_services.CurrentResourceHandle();

    bool selected = false;
    const Text name = SelectName(selected);
    const LONG_PTR library = m_services.LoadLibraryNamed(name);
    if (library) {
        m_services.SetResourceHandle(library);
        m_hResDll.exchange(library);
    } else if (selected && !m_bMissingTold.exchange(true)) {
        // A selection that has failed stays silent: the user chose nothing that could be missing.
        m_services.ShowMessage(FormatText(kMissingLibraryText, name));
    }
}

/// Name of the library to load, empty without a settings component.
/// @param selected  true when the settings named a language, known or not.
Text LanguageResources::SelectName(bool& selected)
{
    selected = false;
    try {
        CComPtr<IqorSettings> settings;
        if (FAILED(m_services.CreateSettings(&settings)) || !settings)
            return {};

        const OLECHAR* suffix = OLESTR("_EN");
        LONG number = 0;
        ESettingsError error = E_SETTINGS_ERROR_NONE;
        const HRESULT hr =
            settings->GetLong(CComBSTR(OLESTR("CurrentLanguage")), CComBSTR(OLESTR("System")), &number, &error);
        if (SUCCEEDED(hr) && error == E_SETTINGS_ERROR_NONE) {
            selected = true;
            const auto* language = std::find_if(std::begin(kLanguages), std::end(kLanguages),
                                                [number](const Language& known) { return known.setting == number; });
            if (language != std::end(kLanguages)) {
                suffix = language->suffix;
            } else if (!m_bUnknownTold.exchange(true)) {
                m_services.Beep();
                m_services.ShowMessage(kUnknownLanguageText);
            }
        }
        Text name = NameWithSuffix(suffix);
        settings->SetResourceDllName(CComBSTR(name));
        return name;
    } catch (...) {
        selected = false;
        return {};
    }
}

Text LanguageResources::NameWithSuffix(const OLECHAR* suffix) const
{
    Text name = m_strResDllName.empty() ? Text(kDefaultLibrary) : m_strResDllName;
    const std::size_t extension = name.rfind(OLESTR(".dll"));
    name.insert(std::min(extension, name.size()), suffix);
    return name;
}
