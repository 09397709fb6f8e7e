#include "platform/atl/ComPtr.h"
#include "platform/com/Ole.h"
#include "suite/settings/qorSettings.h"

#include <gmock/gmock.h>

#include <cmath>
#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

/// gmock's own matchers know narrow and wide text only.
MATCHER_P(Says, part, "")
{
    return arg.find(part) != Text::npos;
}

Text LastDescription()
{
    CComPtr<IErrorInfo> info;
    CComBSTR text;
    if (GetErrorInfo(0, &info) == S_OK)
        info->GetDescription(&text);
    return Text(text.View());
}

/// A settings object on a file of its own.
class Settings : public testing::Test {
protected:
    void SetUp() override
    {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        m_folder = fs::temp_directory_path() / "lv_settings_tests" / test->name();
        fs::remove_all(m_folder);
        CComObject<CqorSettings>* object = nullptr;
        ASSERT_EQ(CComObject<CqorSettings>::CreateInstance(&object), S_OK);
        m_settings.Attach(object);
        ASSERT_EQ(m_settings->SetFileName(CComBSTR(FileName())), S_OK);
    }
    void TearDown() override { fs::remove_all(m_folder); }

    fs::path File() const { return m_folder / "Settings.ini"; }
    Text FileName() const
    {
        Text name;
        for (const auto unit : File().u16string())
            name += static_cast<OLECHAR>(unit);
        return name;
    }
    void Write(const std::string& content)
    {
        fs::create_directories(m_folder);
        std::ofstream(File(), std::ios::binary) << content;
    }
    ESettingsError Long(const OLECHAR* name, const OLECHAR* section, LONG& value)
    {
        ESettingsError error = E_SETTINGS_ERROR_NONE;
        EXPECT_EQ(m_settings->GetLong(CComBSTR(name), CComBSTR(section), &value, &error), S_OK);
        return error;
    }
    ESettingsError Double(const OLECHAR* name, double& value)
    {
        ESettingsError error = E_SETTINGS_ERROR_NONE;
        EXPECT_EQ(m_settings->GetDouble(CComBSTR(name), CComBSTR(OLESTR("System")), &value, &error), S_OK);
        return error;
    }

    fs::path m_folder;
    CComPtr<IqorSettings> m_settings;
    ESettingsError m_error = E_SETTINGS_ERROR_NONE;
};

TEST_F(Settings, ReadsTheLanguageFromItsSection)
{
    Write("[System]\nCurrentLanguage=7039\n");
    LONG language = 0;
    EXPECT_EQ(Long(OLESTR("CurrentLanguage"), OLESTR("System"), language), E_SETTINGS_ERROR_NONE);
    EXPECT_EQ(language, 7039);
}

TEST_F(Settings, TellsAMissingFileSectionAndValueApartFromANumberThatIsNone)
{
    LONG value = 5;
    EXPECT_EQ(Long(OLESTR("A"), OLESTR("System"), value), E_SETTINGS_ERROR_SECTION_NOT_FOUND);
    Write("[System]\nA=x\nB=12 mm\nC=4294967296\nD=\nE=1e3\n");
    EXPECT_EQ(Long(OLESTR("Z"), OLESTR("System"), value), E_SETTINGS_ERROR_VALUE_NOT_FOUND);
    for (const OLECHAR* name : {OLESTR("A"), OLESTR("B"), OLESTR("C"), OLESTR("D"), OLESTR("E")})
        EXPECT_EQ(Long(name, OLESTR("System"), value), E_SETTINGS_ERROR_NOT_A_NUMBER);
    EXPECT_EQ(value, 5);
}

TEST_F(Settings, ReadsNumbersAtTheEndsOfThirtyTwoBits)
{
    Write("[System]\nLow=-2147483648\nHigh=+2147483647\n");
    LONG value = 0;
    EXPECT_EQ(Long(OLESTR("Low"), OLESTR("System"), value), E_SETTINGS_ERROR_NONE);
    EXPECT_EQ(value, INT32_MIN);
    EXPECT_EQ(Long(OLESTR("High"), OLESTR("System"), value), E_SETTINGS_ERROR_NONE);
    EXPECT_EQ(value, INT32_MAX);
}

TEST_F(Settings, MakesTheFolderAndTheFileWithTheFirstValue)
{
    EXPECT_EQ(m_settings->SetLong(CComBSTR(OLESTR("CurrentLanguage")), CComBSTR(OLESTR("System")), 7016, &m_error),
              S_OK);
    EXPECT_EQ(m_error, E_SETTINGS_ERROR_NONE);
    std::ifstream file(File(), std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(content, "[System]\r\nCurrentLanguage=7016\r\n");
    EXPECT_FALSE(fs::exists(File().string() + ".new"));
}

TEST_F(Settings, ReadsBackTheVeryNumberThatWasWritten)
{
    for (const double number : {0.1, 1.0 / 3, -25.4, 1e300, 5e-324, 123456789.123456789}) {
        m_settings->SetDouble(CComBSTR(OLESTR("Number")), CComBSTR(OLESTR("System")), number, &m_error);
        ASSERT_EQ(m_error, E_SETTINGS_ERROR_NONE);
        double back = 0;
        EXPECT_EQ(Double(OLESTR("Number"), back), E_SETTINGS_ERROR_NONE);
        EXPECT_EQ(back, number);
    }
}

TEST_F(Settings, KeepsATextOfSeveralLinesInAnyScript)
{
    const Text text = OLESTR(" \x65E5\x672C\x8A9E\r\nsecond line ");
    m_settings->SetString(CComBSTR(OLESTR("T")), CComBSTR(OLESTR("S")), CComBSTR(text), &m_error);
    ASSERT_EQ(m_error, E_SETTINGS_ERROR_NONE);
    CComBSTR back;
    EXPECT_EQ(m_settings->GetString(CComBSTR(OLESTR("t")), CComBSTR(OLESTR("s")), &back, &m_error), S_OK);
    EXPECT_EQ(m_error, E_SETTINGS_ERROR_NONE);
    EXPECT_EQ(back.View(), text);
}

TEST_F(Settings, ReadsAFileThatAnEditorSavedAsUtf16)
{
    Write(std::string("\xFF\xFE[\0S\0]\0\n\0A\0=\0\x37\0\n\0", 18));
    LONG value = 0;
    EXPECT_EQ(Long(OLESTR("A"), OLESTR("S"), value), E_SETTINGS_ERROR_NONE);
    EXPECT_EQ(value, 7);
}

TEST_F(Settings, TakesAValueOutOnce)
{
    Write("[System]\nA=1\n");
    m_settings->RemoveValue(CComBSTR(OLESTR("A")), CComBSTR(OLESTR("System")), &m_error);
    EXPECT_EQ(m_error, E_SETTINGS_ERROR_NONE);
    m_settings->RemoveValue(CComBSTR(OLESTR("A")), CComBSTR(OLESTR("System")), &m_error);
    EXPECT_EQ(m_error, E_SETTINGS_ERROR_VALUE_NOT_FOUND);
    VARIANT_BOOL exists = VARIANT_TRUE;
    EXPECT_EQ(m_settings->ValueExists(CComBSTR(OLESTR("A")), CComBSTR(OLESTR("System")), &exists), S_OK);
    EXPECT_EQ(exists, VARIANT_FALSE);
    EXPECT_EQ(m_settings->SectionExists(CComBSTR(OLESTR("System")), &exists), S_OK);
    EXPECT_EQ(exists, VARIANT_TRUE);
}

TEST_F(Settings, ReportsAFolderInThePlaceOfTheFile)
{
    fs::create_directories(File());
    LONG value = 0;
    EXPECT_EQ(Long(OLESTR("A"), OLESTR("S"), value), E_SETTINGS_ERROR_FILE_UNREADABLE);
    m_settings->SetLong(CComBSTR(OLESTR("A")), CComBSTR(OLESTR("S")), 1, &m_error);
    EXPECT_EQ(m_error, E_SETTINGS_ERROR_FILE_UNREADABLE);
}

TEST_F(Settings, ReportsAFolderThatCannotBeMade)
{
    std::ofstream(m_folder) << "a file where the folder should be";
    m_settings->SetLong(CComBSTR(OLESTR("A")), CComBSTR(OLESTR("S")), 1, &m_error);
    EXPECT_EQ(m_error, E_SETTINGS_ERROR_FILE_UNWRITABLE);
}

TEST_F(Settings, RaisesForNamesThatAFileCannotHoldAndForNullPointers)
{
    LONG value = 0;
    const HRESULT badName = m_settings->GetLong(CComBSTR(OLESTR("a=b")), CComBSTR(OLESTR("S")), &value, &m_error);
    EXPECT_EQ(static_cast<uint32_t>(badName) & 0xFFFF0000u, 0x80040000u);
    EXPECT_THAT(LastDescription(), Says(OLESTR("'a=b' can't be used for the parameter 'bstrName'.")));

    const HRESULT noSection = m_settings->GetLong(CComBSTR(OLESTR("a")), nullptr, &value, &m_error);
    EXPECT_EQ(static_cast<uint32_t>(noSection) & 0xFFFF0000u, 0x80040000u);
    EXPECT_THAT(LastDescription(), Says(OLESTR("bstrSection")));

    EXPECT_LT(m_settings->GetLong(CComBSTR(OLESTR("a")), CComBSTR(OLESTR("S")), nullptr, &m_error), 0);
    EXPECT_THAT(LastDescription(), Says(OLESTR("Parameter 'pnValue' is NULL.")));
    EXPECT_LT(m_settings->SetLong(CComBSTR(OLESTR("a")), CComBSTR(OLESTR("S")), 1, nullptr), 0);
    EXPECT_THAT(LastDescription(), Says(OLESTR("Parameter 'peError' is NULL.")));
}

TEST_F(Settings, TellsTheLanguageLibraryToEveryObjectOfTheProcess)
{
    EXPECT_EQ(m_settings->SetResourceDllName(CComBSTR(OLESTR("LV_resResources_DE.dll"))), S_OK);
    CComObject<CqorSettings>* other = nullptr;
    ASSERT_EQ(CComObject<CqorSettings>::CreateInstance(&other), S_OK);
    CComBSTR name;
    EXPECT_EQ(other->GetResourceDllName(&name), S_OK);
    EXPECT_EQ(name.View(), OLESTR("LV_resResources_DE.dll"));
    other->Release();
}

TEST_F(Settings, NamesAFileOfTheUserUntilItIsGivenAnother)
{
    ASSERT_EQ(m_settings->SetFileName(nullptr), S_OK);
    CComBSTR name;
    EXPECT_EQ(m_settings->GetFileName(&name), S_OK);
    EXPECT_THAT(Text(name.View()), Says(OLESTR("Settings.ini")));
}

// The slots that the other components call are a binary contract: the sixth and the twelfth behind IUnknown.
TEST_F(Settings, HasTheReadingAndTheTellingMethodInTheirSlots)
{
    Write("[System]\nCurrentLanguage=7058\n");
    void** slots = *reinterpret_cast<void***>(static_cast<IqorSettings*>(m_settings));
    const auto read = reinterpret_cast<HRESULT(STDMETHODCALLTYPE*)(void*, BSTR, BSTR, LONG*, LONG*)>(slots[3 + 5]);
    const auto tell = reinterpret_cast<HRESULT(STDMETHODCALLTYPE*)(void*, BSTR)>(slots[3 + 11]);
    LONG language = 0;
    LONG error = 1;
    EXPECT_EQ(read(m_settings, CComBSTR(OLESTR("CurrentLanguage")), CComBSTR(OLESTR("System")), &language, &error),
              S_OK);
    EXPECT_EQ(language, 7058);
    EXPECT_EQ(error, 0);
    EXPECT_EQ(tell(m_settings, CComBSTR(OLESTR("LV_resResources_KO.dll"))), S_OK);
    CComBSTR name;
    EXPECT_EQ(m_settings->GetResourceDllName(&name), S_OK);
    EXPECT_EQ(name.View(), OLESTR("LV_resResources_KO.dll"));
}

} // namespace
