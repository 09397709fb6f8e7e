#include "tools/lvprop/doctor/Trial.h"

#include "platform/com/SystemText.h"
#include "platform/system/Utf8.h"
#include "tools/lvprop/doctor/Diagnosis.h"

#include <lumevor/Lumevor.h>

#include "LV_setSettings.h"

#include <algorithm>

namespace {

std::string WordsFor(HRESULT hr)
{
    std::string words = Utf8From(SystemText(hr));
    words.erase(std::min(words.find_last_not_of("\r\n. ") + 1, words.size()));
    return words;
}

MadeClass Make(const SuiteClass& suiteClass)
{
    lumevor::Ref<IUnknown> object;
    const HRESULT hr = CoCreateInstance(suiteClass.id, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, object.PutVoid());
    return {&suiteClass, hr, SUCCEEDED(hr) ? std::string() : WordsFor(hr)};
}

std::optional<LONG> LanguageOfSettings()
{
    lumevor::Ref<IqorSettings> settings;
    if (FAILED(
            CoCreateInstance(CLSID_setSettings, nullptr, CLSCTX_INPROC_SERVER, IID_IqorSettings, settings.PutVoid())))
        return std::nullopt;
    LONG number = 0;
    ESettingsError error = E_SETTINGS_ERROR_NONE;
    const lumevor::String name(OLESTR("CurrentLanguage"));
    const lumevor::String section(OLESTR("System"));
    if (FAILED(settings->GetLong(name.Get(), section.Get(), &number, &error)) || error != E_SETTINGS_ERROR_NONE)
        return std::nullopt;
    return number;
}

} // namespace

void MakeClasses(const SuiteModule& module, const std::vector<std::string>& languages, TrialFacts& trial)
{
    if (module.assembly == kServerAssembly && trial.language &&
        std::ranges::find(languages, LanguageCode(*trial.language)) == languages.end())
        return;
    for (const SuiteClass& suiteClass : module.classes)
        trial.classes.push_back(Make(suiteClass));
    if (module.assembly == kSettingsAssembly)
        trial.language = LanguageOfSettings();
}
