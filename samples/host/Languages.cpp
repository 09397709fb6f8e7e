#include "samples/host/Languages.h"

#include "LV_setSettings.h"
#include "tools/lvprop/ToolError.h"

#include <lumevor/Lumevor.h>

using lumevor::Check;
using lumevor::String;

namespace {

const String kName{OLESTR("CurrentLanguage")};
const String kSection{OLESTR("System")};

lumevor::Ref<IqorSettings> Settings()
{
    lumevor::Ref<IqorSettings> settings;
    Check(CoCreateInstance(__uuidof(setSettings), nullptr, CLSCTX_INPROC_SERVER, __uuidof(IqorSettings),
                           settings.PutVoid()));
    return settings;
}

} // namespace

LONG ChosenLanguage()
{
    LONG setting = 0;
    ESettingsError error = E_SETTINGS_ERROR_NONE;
    Check(Settings()->GetLong(kName.Get(), kSection.Get(), &setting, &error));
    return error == E_SETTINGS_ERROR_NONE ? setting : kHostLanguages[0].setting;
}

void ChooseLanguage(LONG setting)
{
    ESettingsError error = E_SETTINGS_ERROR_NONE;
    Check(Settings()->SetLong(kName.Get(), kSection.Get(), setting, &error));
    if (error != E_SETTINGS_ERROR_NONE)
        RefuseInput("the settings cannot be written");
}
