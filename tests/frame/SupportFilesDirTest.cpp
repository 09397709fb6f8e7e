// Where the support files are: which host counts, whose value is taken, what becomes of environment variables.
#include "frame/SupportFilesDir.h"
#include "tests/frame/FakeFacts.h"

#include <gmock/gmock.h>

namespace {

class SupportFilesDir : public testing::Test {
protected:
    FakeFacts facts;
    ScopedSystemFacts scope{facts};
};

TEST_F(SupportFilesDir, IsEmptyWithoutAKnownHost)
{
    facts.Install(OLESTR("Another Host"), OLESTR("C:\\Other"));
    EXPECT_EQ(GetSupportFilesDir(), Text());
}

TEST_F(SupportFilesDir, IsTheValueOfTheHost)
{
    facts.Install(OLESTR("Sable Editor"), OLESTR("C:\\Support"));
    EXPECT_EQ(GetSupportFilesDir(), OLESTR("C:\\Support"));
    EXPECT_EQ(facts.askedBytes, 260u);
}

TEST_F(SupportFilesDir, TheFirstHostOfTheListIsTheOneWhateverElseIsInstalled)
{
    facts.Install(OLESTR("Sable Editor (Varn)"), OLESTR("C:\\Varn"));
    facts.Install(OLESTR("Oxbel Plugin"), OLESTR("C:\\Oxbel"));
    EXPECT_EQ(GetSupportFilesDir(), OLESTR("C:\\Oxbel"));
    facts.Install(OLESTR("Tarnwick Plugin"), OLESTR("C:\\Tarnwick"));
    EXPECT_EQ(GetSupportFilesDir(), OLESTR("C:\\Tarnwick"));
}

TEST_F(SupportFilesDir, EveryKeyThatHoldsTheHostsNameIsAskedInOrder)
{
    facts.Install(OLESTR("Old Sable Editor 2"));
    facts.Install(OLESTR("Sable Editor"));
    facts.Install(OLESTR("Sable Editor (Varn)"), OLESTR("C:\\Varn"));
    facts.Install(OLESTR("Sable Editor 9"), OLESTR("C:\\Nine"));
    EXPECT_EQ(GetSupportFilesDir(), OLESTR("C:\\Varn"));
}

TEST_F(SupportFilesDir, IsEmptyWhenNoKeyOfTheHostHasTheValue)
{
    facts.Install(OLESTR("Sable Editor"));
    facts.Install(OLESTR("Oxbel Plug"), OLESTR("C:\\NotThisHost"));
    EXPECT_EQ(GetSupportFilesDir(), Text());
}

TEST_F(SupportFilesDir, AnEmptyValueEndsTheSearch)
{
    facts.Install(OLESTR("Oxbel Plugin"), OLESTR(""));
    facts.Install(OLESTR("Oxbel Plugin 2"), OLESTR("C:\\Second"));
    EXPECT_EQ(GetSupportFilesDir(), Text());
}

TEST_F(SupportFilesDir, ItsVariablesAreExpanded)
{
    facts.environment = {{OLESTR("DATA"), OLESTR("C:\\Data")}};
    facts.Install(OLESTR("Oxbel Plugin"), OLESTR("%DATA%\\Support"));
    EXPECT_EQ(GetSupportFilesDir(), OLESTR("C:\\Data\\Support"));
}

class EnvironmentExpansion : public SupportFilesDir {};

TEST_F(EnvironmentExpansion, PutsEveryValueInPlaceOfItsName)
{
    facts.environment = {{OLESTR("A"), OLESTR("one")}, {OLESTR("B C"), OLESTR("")}};
    EXPECT_EQ(ExpandEnvironment(OLESTR("%A%-%B C%-%A%")), OLESTR("one--one"));
    EXPECT_EQ(ExpandEnvironment(OLESTR("none")), OLESTR("none"));
    EXPECT_EQ(ExpandEnvironment(OLESTR("")), OLESTR(""));
}

TEST_F(EnvironmentExpansion, GoesOnInsideAValue)
{
    facts.environment = {{OLESTR("OUTER"), OLESTR("%INNER%\\x")}, {OLESTR("INNER"), OLESTR("deep")}};
    EXPECT_EQ(ExpandEnvironment(OLESTR("%OUTER%")), OLESTR("deep\\x"));
}

TEST_F(EnvironmentExpansion, StopsAtANameThatIsNotSet)
{
    facts.environment = {{OLESTR("A"), OLESTR("one")}};
    EXPECT_EQ(ExpandEnvironment(OLESTR("%A%\\%MISSING%\\%A%")), OLESTR("one\\%MISSING%\\%A%"));
    EXPECT_EQ(ExpandEnvironment(OLESTR("%%A%")), OLESTR("%%A%"));
}

TEST_F(EnvironmentExpansion, StopsAtALonePercentSign)
{
    facts.environment = {{OLESTR("A"), OLESTR("50%")}};
    EXPECT_EQ(ExpandEnvironment(OLESTR("100%")), OLESTR("100%"));
    EXPECT_EQ(ExpandEnvironment(OLESTR("%A%")), OLESTR("50%"));
}

TEST_F(EnvironmentExpansion, VariablesThatNameEachOtherComeToAnEnd)
{
    facts.environment = {{OLESTR("A"), OLESTR("%B%")}, {OLESTR("B"), OLESTR("%A%.")}};
    const Text expanded = ExpandEnvironment(OLESTR("%A%"));
    EXPECT_LT(expanded.size(), 100u);
}

} // namespace
