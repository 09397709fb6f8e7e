#include "module/LanguageResources.h"
#include "platform/atl/ComObject.h"

#include <gmock/gmock.h>

#include <map>
#include <vector>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr LONG_PTR kOwnHandle = 0x1000;
constexpr LONG_PTR kLibraryHandle = 0x2000;

/// A settings component that answers for the language and writes down what it is told.
class FakeSettings : public CComObjectRootEx<CComMultiThreadModel>, public IqorSettings {
public:
    using Interfaces = InterfaceList<IqorSettings>;

    STDMETHODIMP GetLong(BSTR Name, BSTR Section, LONG* Value, ESettingsError* Error) override
    {
        asked.push_back(Text(Section, SysStringLen(Section)) + OLESTR("/") + Text(Name, SysStringLen(Name)));
        if (throws)
            throw 1;
        *Value = language;
        *Error = error;
        return result;
    }
    STDMETHODIMP SetResourceDllName(BSTR Name) override
    {
        told.emplace_back(Name, SysStringLen(Name));
        return S_OK;
    }

    STDMETHODIMP SetFileName(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP GetFileName(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP SectionExists(BSTR, VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP ValueExists(BSTR, BSTR, VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP GetString(BSTR, BSTR, BSTR*, ESettingsError*) override { return E_NOTIMPL; }
    STDMETHODIMP GetDouble(BSTR, BSTR, double*, ESettingsError*) override { return E_NOTIMPL; }
    STDMETHODIMP SetString(BSTR, BSTR, BSTR, ESettingsError*) override { return E_NOTIMPL; }
    STDMETHODIMP SetLong(BSTR, BSTR, LONG, ESettingsError*) override { return E_NOTIMPL; }
    STDMETHODIMP SetDouble(BSTR, BSTR, double, ESettingsError*) override { return E_NOTIMPL; }
    STDMETHODIMP RemoveValue(BSTR, BSTR, ESettingsError*) override { return E_NOTIMPL; }
    STDMETHODIMP GetResourceDllName(BSTR*) override { return E_NOTIMPL; }

    LONG language = 7014;
    ESettingsError error = E_SETTINGS_ERROR_NONE;
    HRESULT result = S_OK;
    bool throws = false;
    std::vector<Text> asked;
    std::vector<Text> told;
};

/// A system that writes down what the selection asks of it.
class FakeServices final : public LanguageServices {
public:
    FakeServices() { CComObject<FakeSettings>::CreateInstance(&settings); }
    ~FakeServices() { settings->Release(); }
    FakeServices(const FakeServices&) = delete;
    FakeServices& operator=(const FakeServices&) = delete;

    HRESULT CreateSettings(IqorSettings** out) override
    {
        ++settingsMade;
        *out = nullptr;
        return hasSettings ? settings->QueryInterface(IID_IqorSettings, reinterpret_cast<void**>(out))
                           : REGDB_E_CLASSNOTREG;
    }
    void Beep() override { log.emplace_back(OLESTR("beep")); }
    void ShowMessage(const Text& message) override { log.push_back(message); }
    LONG_PTR LoadLibraryNamed(const Text& name) override
    {
        tried.push_back(name);
        return !name.empty() && isInstalled ? kLibraryHandle : 0;
    }
    LONG_PTR CurrentResourceHandle() override { return kOwnHandle; }
    void SetResourceHandle(LONG_PTR module) override { handle = module; }

    CComObject<FakeSettings>* settings = nullptr;
    bool hasSettings = true;
    bool isInstalled = true;
    int settingsMade = 0;
    LONG_PTR handle = kOwnHandle;
    std::vector<Text> log;
    std::vector<Text> tried;
};

class LanguageSelection : public testing::Test {
protected:
    FakeServices system;
    LanguageResources language{system};
};

TEST_F(LanguageSelection, LoadsTheLibraryOfEachKnownNumber)
{
    const std::map<LONG, Text> names = {
        {7014, OLESTR("LV_resResources_EN.dll")}, {7015, OLESTR("LV_resResources_DE.dll")},
        {7016, OLESTR("LV_resResources_FR.dll")}, {7017, OLESTR("LV_resResources_IT.dll")},
        {7031, OLESTR("LV_resResources_ES.dll")}, {7039, OLESTR("LV_resResources_JP.dll")},
        {7058, OLESTR("LV_resResources_KO.dll")}, {7059, OLESTR("LV_resResources_TC.dll")},
        {7060, OLESTR("LV_resResources_SC.dll")}, {7061, OLESTR("LV_resResources_CZ.dll")}};
    EXPECT_EQ(std::size(kLanguages), names.size());
    for (const auto& [number, name] : names) {
        FakeServices services;
        services.settings->language = number;
        LanguageResources selection(services);
        selection.LoadLanguageResources();
        EXPECT_THAT(services.tried, ElementsAre(name));
        EXPECT_THAT(services.settings->told, ElementsAre(name));
        EXPECT_THAT(services.log, IsEmpty());
    }
}

TEST_F(LanguageSelection, AsksForTheLanguageByItsTwoNames)
{
    language.LoadLanguageResources();
    EXPECT_THAT(system.settings->asked, ElementsAre(OLESTR("System/CurrentLanguage")));
}

TEST_F(LanguageSelection, PutsTheLoadedLibraryInFrontAndKeepsTheHandleFromBefore)
{
    language.LoadLanguageResources();
    EXPECT_EQ(system.handle, kLibraryHandle);
    EXPECT_EQ(language.Library(), kLibraryHandle);
    EXPECT_EQ(language.OwnInstance(), kOwnHandle);
}

TEST_F(LanguageSelection, LeavesTheSettingsAloneOnceALibraryIsLoaded)
{
    language.LoadLanguageResources();
    language.LoadLanguageResources();
    EXPECT_EQ(system.settingsMade, 1);
    EXPECT_EQ(system.tried.size(), 1u);
}

TEST_F(LanguageSelection, WarnsOfAnUnknownNumberAndLoadsEnglish)
{
    system.settings->language = 7018;
    language.LoadLanguageResources();
    language.LoadLanguageResources();
    EXPECT_THAT(system.log, ElementsAre(OLESTR("beep"),
                                        OLESTR("Failed to read selected language. Using default language instead.")));
    EXPECT_THAT(system.tried, ElementsAre(OLESTR("LV_resResources_EN.dll")));
    EXPECT_EQ(language.Library(), kLibraryHandle);
}

TEST_F(LanguageSelection, TellsOfAMissingLibraryOnceAndTriesItAgain)
{
    system.isInstalled = false;
    system.settings->language = 7015;
    language.LoadLanguageResources();
    language.LoadLanguageResources();
    EXPECT_THAT(system.log,
                ElementsAre(OLESTR("Unable to find the language DLL: LV_resResources_DE.dll. Please re-install")));
    EXPECT_EQ(language.Library(), 0);
    EXPECT_EQ(system.handle, kOwnHandle);

    system.isInstalled = true;
    language.LoadLanguageResources();
    EXPECT_EQ(language.Library(), kLibraryHandle);
    EXPECT_EQ(system.log.size(), 1u);
}

TEST_F(LanguageSelection, StaysSilentWithoutASettingsComponentAndLoadsNothing)
{
    system.hasSettings = false;
    language.LoadLanguageResources();
    EXPECT_THAT(system.tried, ElementsAre(OLESTR("")));
    EXPECT_THAT(system.log, IsEmpty());
    EXPECT_EQ(language.Library(), 0);
}

TEST_F(LanguageSelection, StaysSilentWhenTheSettingsThrow)
{
    system.settings->throws = true;
    language.LoadLanguageResources();
    EXPECT_THAT(system.tried, ElementsAre(OLESTR("")));
    EXPECT_THAT(system.log, IsEmpty());
}

TEST_F(LanguageSelection, LoadsEnglishWhenTheSettingsHoldNoLanguage)
{
    system.settings->error = E_SETTINGS_ERROR_VALUE_NOT_FOUND;
    system.settings->language = 7015;
    language.LoadLanguageResources();
    EXPECT_THAT(system.tried, ElementsAre(OLESTR("LV_resResources_EN.dll")));
    EXPECT_THAT(system.settings->told, ElementsAre(OLESTR("LV_resResources_EN.dll")));
    EXPECT_THAT(system.log, IsEmpty());
}

TEST_F(LanguageSelection, SaysNothingOfAMissingEnglishLibraryThatNobodyChose)
{
    system.settings->result = E_FAIL;
    system.isInstalled = false;
    language.LoadLanguageResources();
    EXPECT_THAT(system.tried, ElementsAre(OLESTR("LV_resResources_EN.dll")));
    EXPECT_THAT(system.log, IsEmpty());
}

TEST_F(LanguageSelection, PutsTheSuffixInFrontOfTheExtensionOfTheRequestedName)
{
    language.m_strResDllName = OLESTR("Host.dllTexts.dll");
    language.LoadLanguageResources();
    EXPECT_THAT(system.tried, ElementsAre(OLESTR("Host.dllTexts_EN.dll")));
}

} // namespace
