#include "StringsFile.h"
#include "frame/FormatText.h"
#include "platform/system/ModuleStrings.h"

#include <gmock/gmock.h>

namespace {

/// The library of one language, loaded from beside the test program.
class LanguageLibrary : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override
    {
        const std::string name = "LV_resResources_" + GetParam() + ".dll";
        m_library = LoadLibraryA(name.c_str());
        ASSERT_NE(m_library, nullptr) << name;
    }
    void TearDown() override { FreeLibrary(m_library); }

    LONG_PTR Handle() const { return reinterpret_cast<LONG_PTR>(m_library); }

private:
    HMODULE m_library = nullptr;
};

/// Fills up to three placeholders by kind: texts by A, B, C and numbers by 71, 72, 73.
Text Filled(TextView format)
{
    const Text kinds = PlaceholdersOf(format);
    std::vector<FormatArgument> arguments;
    static constexpr const OLECHAR* kTexts[] = {OLESTR("<A>"), OLESTR("<B>"), OLESTR("<C>")};
    for (std::size_t i = 0; i < kinds.size() / 2; ++i) {
        if (kinds[2 * i + 1] == OLESTR('s'))
            arguments.emplace_back(kTexts[i]);
        else
            arguments.emplace_back(static_cast<int>(71 + i));
    }
    Text out;
    AppendFormatted(out, format, arguments);
    return out;
}

TEST_P(LanguageLibrary, HoldsEveryTextOfTheTable)
{
    for (const StringBlock& block : ReadStringsFile()) {
        Text text;
        ASSERT_TRUE(LoadModuleString(Handle(), block.id, text)) << block.id;
        EXPECT_EQ(text, block.texts.at(GetParam())) << block.id;
    }
}

TEST_P(LanguageLibrary, ShowsEveryArgumentInEveryMessage)
{
    for (const StringBlock& block : ReadStringsFile()) {
        Text format;
        ASSERT_TRUE(LoadModuleString(Handle(), block.id, format)) << block.id;
        const Text filled = Filled(format);
        EXPECT_EQ(filled.find(OLESTR('%')), Text::npos) << block.id;

        const Text kinds = PlaceholdersOf(format);
        std::size_t at = 0;
        static constexpr const OLECHAR* kShown[][2] = {
            {OLESTR("<A>"), OLESTR("71")}, {OLESTR("<B>"), OLESTR("72")}, {OLESTR("<C>"), OLESTR("73")}};
        for (std::size_t i = 0; i < kinds.size() / 2; ++i) {
            at = filled.find(kShown[i][kinds[2 * i + 1] != OLESTR('s')], at);
            EXPECT_NE(at, Text::npos) << block.id << ", argument " << i;
        }
    }
}

TEST_P(LanguageLibrary, HoldsResourcesAndNoCode)
{
    EXPECT_EQ(GetProcAddress(reinterpret_cast<HMODULE>(Handle()), "DllMain"), nullptr);
    Text text;
    EXPECT_FALSE(LoadModuleString(Handle(), 1, text));
}

INSTANTIATE_TEST_SUITE_P(All, LanguageLibrary, testing::ValuesIn(kLanguageCodes),
                         [](const testing::TestParamInfo<std::string>& language) { return language.param; });

} // namespace
