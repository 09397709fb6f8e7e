// What the sample host makes of its command line.
#include "samples/host/CommandLine.h"

#include <gmock/gmock.h>

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

TEST(HostCommandLine, WithoutArgumentsTheHostStartsEmpty)
{
    HostOptions options;
    EXPECT_FALSE(ParseCommandLine({}, options));
    EXPECT_EQ(options.document, "");
    EXPECT_EQ(options.shots, "");
}

TEST(HostCommandLine, TakesARoutineASavedLineAndAFolder)
{
    HostOptions options;
    EXPECT_FALSE(ParseCommandLine({"plate.json", "--saved", "plate.txt", "--shots", "a folder"}, options));
    EXPECT_EQ(options.document, "plate.json");
    EXPECT_EQ(options.saved, "plate.txt");
    EXPECT_EQ(options.shots, "a folder");
}

TEST(HostCommandLine, HelpIsAnAnswerAndNoFault)
{
    HostOptions options;
    const auto answer = ParseCommandLine({"--help"}, options);
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->status, 0);
    EXPECT_THAT(answer->text, AllOf(HasSubstr("--shots"), HasSubstr("--saved"), HasSubstr("Exit status")));
}

TEST(HostCommandLine, WrongUseIsToldWithStatusTwo)
{
    const std::vector<std::vector<std::string>> wrong = {
        {"--nonsense"}, {"a.json", "b.json"}, {"--shots"}, {"--shots", "folder"}, {"--saved", "plate.txt"}};
    for (const auto& arguments : wrong) {
        HostOptions options;
        const auto answer = ParseCommandLine(arguments, options);
        ASSERT_TRUE(answer) << arguments.front();
        EXPECT_EQ(answer->status, 2) << arguments.front();
        EXPECT_THAT(answer->text, StartsWith("lvhost: ")) << arguments.front();
    }
}
