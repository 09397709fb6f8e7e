// The sample host as a process: its pictures, its answers, its end.
#include "tests/tools/ToolFiles.h"
#include "tests/tools/ToolRunner.h"

#include <gmock/gmock.h>

#include <windows.h>

#include <cstring>
#include <set>
#include <thread>

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

constexpr const char* kRoutine = LV_SAMPLES "/host/bore.json";
constexpr const char* kPictures[] = {"metric-plan",
                                     "edit-in-progress",
                                     "invalid-and-warning",
                                     "collapsed-with-errors",
                                     "read-only",
                                     "focus-lost",
                                     "zoomed",
                                     "imperial",
                                     "overview",
                                     "empty"};

/// Size and colours of a BMP file of 24 bits; no size when it is none.
struct PictureFacts {
    LONG width = 0;
    LONG height = 0;
    std::set<std::uint32_t> colours;
};

PictureFacts FactsOf(const std::string& bytes)
{
    BITMAPFILEHEADER file{};
    BITMAPINFOHEADER header{};
    PictureFacts facts;
    if (bytes.size() < sizeof file + sizeof header)
        return facts;
    std::memcpy(&file, bytes.data(), sizeof file);
    std::memcpy(&header, bytes.data() + sizeof file, sizeof header);
    if (file.bfType != 0x4D42 || file.bfSize != bytes.size() || header.biBitCount != 24)
        return facts;
    facts.width = header.biWidth;
    facts.height = header.biHeight;
    const std::size_t stride = (static_cast<std::size_t>(facts.width) * 3 + 3) / 4 * 4;
    for (std::size_t y = 0; y < static_cast<std::size_t>(facts.height); ++y) {
        for (std::size_t x = 0; x < static_cast<std::size_t>(facts.width); ++x) {
            std::uint32_t colour = 0;
            std::memcpy(&colour, bytes.data() + file.bfOffBits + y * stride + x * 3, 3);
            facts.colours.insert(colour);
        }
    }
    return facts;
}

class HostProgram : public testing::Test {
protected:
    static ToolResult Run(const std::vector<std::string>& arguments) { return RunBesideTest("lvhost.exe", arguments); }

    ToolFiles files;
};

} // namespace

TEST_F(HostProgram, LeavesAPictureOfEachPreparedState)
{
    const ToolResult result = Run({kRoutine, "--shots", files.Path("pictures")});
    ASSERT_EQ(result.status, 0) << result.err;
    EXPECT_THAT(result.err, IsEmpty());
    std::set<std::string> different;
    for (const char* name : kPictures) {
        const std::string bytes = ToolFiles::Read(files.Path("pictures") + "/" + name + ".bmp");
        const PictureFacts facts = FactsOf(bytes);
        EXPECT_EQ(facts.width, 1000) << name;
        EXPECT_EQ(facts.height, 560 + GetSystemMetrics(SM_CYMENU) - 1) << name; // without the line beneath the bar
        EXPECT_GE(facts.colours.size(), 5u) << name;
        different.insert(bytes);
    }
    EXPECT_EQ(different.size(), std::size(kPictures)) << "each state looks different";
}

TEST_F(HostProgram, EndsWellWhenItsWindowIsClosed)
{
    std::thread user([] {
        const ULONGLONG end = GetTickCount64() + 60000;
        while (GetTickCount64() < end) {
            const HWND window = FindWindowW(L"LumevorSampleHost", nullptr);
            if (window && IsWindowVisible(window)) {
                PostMessageW(window, WM_CLOSE, 0, 0);
                return;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
    });
    const ToolResult result = Run({kRoutine});
    user.join();
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, IsEmpty());
}

TEST_F(HostProgram, HelpTellsTheOptions)
{
    const ToolResult help = Run({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_THAT(help.out, AllOf(HasSubstr("--shots"), HasSubstr("ROUTINE"), HasSubstr("Exit status")));
}

TEST_F(HostProgram, RefusesAMissingFileByItsName)
{
    const ToolResult result = Run({files.Path("missing.json"), "--shots", files.Path("pictures")});
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, AllOf(StartsWith("lvhost: "), HasSubstr("missing.json")));
}

TEST_F(HostProgram, RefusesAnUnreadableRoutineWithLineAndReason)
{
    const std::string broken = files.Write("broken.json", "{\"routineVersion\": 1,\n \"properties\": [{\"id\": 0}]}");
    const ToolResult result = Run({broken, "--shots", files.Path("pictures")});
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, AllOf(StartsWith("lvhost: "), HasSubstr("broken.json:2: ")));
}

TEST_F(HostProgram, RefusesASavedLineThatIsNone)
{
    const ToolResult result = Run({kRoutine, "--saved", files.Write("prose.txt", "Dear reader")});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, AllOf(StartsWith("lvhost: "), HasSubstr("prose.txt")));
}

TEST_F(HostProgram, RefusesUnknownOptions)
{
    const ToolResult result = Run({"--nonsense"});
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, StartsWith("lvhost: "));
}

TEST_F(HostProgram, SaysWhatAPictureLacks)
{
    const std::string bare = files.Write("bare.json", R"({"routineVersion": 1, "properties": []})");
    const ToolResult result = Run({bare, "--shots", files.Path("pictures")});
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, AllOf(StartsWith("lvhost: "), HasSubstr("bare.json"), HasSubstr("category")));
}
