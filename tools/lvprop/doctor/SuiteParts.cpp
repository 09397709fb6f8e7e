#include "tools/lvprop/doctor/SuiteParts.h"

#include "idl/SuiteClasses.h"
#include "platform/system/Utf8.h"

#include "LV_prpPropCollection.h"
#include "LV_setSettings.h"

namespace {

const SuiteClass kSettingsClasses[] = {{"setSettings", CLSID_setSettings}};
const SuiteClass kStreamClasses[] = {{"strStream", CLSID_qorStream, false, "prpPropertyCollection"}};
const SuiteClass kCollectionClasses[] = {
    {"prpProperty", CLSID_prpProperty},
    {"prpPropertyCollection", CLSID_prpPropertyCollection},
    {"prpHelpInfo", CLSID_prpHelpInfo},
    {"prpVisibilityInfo", CLSID_prpVisibilityInfo},
    {"prpCollectionViewerCtrl", {0x6BFB479E, 0x4266, 0x4870, {0xA9, 0x4A, 0xF7, 0x35, 0xF2, 0xE6, 0x08, 0x02}}, true},
    {"prpInfoViewer", {0x7C3452EC, 0x74B3, 0x489C, {0xB5, 0xBF, 0x0E, 0x5D, 0x2F, 0xFA, 0x9D, 0xAA}}, true},
    {"prpGDTViewer", {0xD8E6A4CB, 0xDEDA, 0x4E28, {0xB9, 0xC4, 0x6C, 0xF3, 0x30, 0x90, 0x28, 0x14}}, true},
    {"prpLinearTolViewer", {0xC9E46A84, 0x2A6A, 0x43B0, {0xB1, 0x9D, 0x4D, 0x1F, 0xD4, 0xFC, 0x41, 0xA4}}, true},
    {"prpPositionViewer", {0xB7803B35, 0xB54D, 0x4A29, {0x87, 0x3F, 0xF2, 0x11, 0xD5, 0x15, 0x9A, 0x9D}}, true},
};

const SuiteModule kModules[] = {
    {"LV_setSettings.dll", kSettingsAssembly, kSettingsClasses},
    {"LV_strStream.dll", "Lumevor.Stream", kStreamClasses},
    {"LV_prpPropCollection.dll", kServerAssembly, kCollectionClasses},
};

} // namespace

std::string SuiteClass::IdText() const
{
    OLECHAR text[40] = {};
    StringFromGUID2(id, text, static_cast<int>(std::size(text)));
    return Utf8From(text);
}

std::span<const SuiteModule> SuiteModules()
{
    return kModules;
}
