// The method frame: what each kind of error becomes on its way out of an interface method.
#include "frame/MethodFrame.h"

#include "LV_prpPropCollection.h"
#include "platform/com/SystemText.h"
#include "tests/support/Errors.h"

#include <gmock/gmock.h>

#include <new>
#include <stdexcept>

namespace {

const Origin kOrigin{CLSID_prpHelpInfo, IID_IprpHelpInfo};

class MethodFrame : public testing::Test {
protected:
    void SetUp() override { SetLastError(0); }

    template <class Body>
    HRESULT Run(Body&& body)
    {
        return InFrame(kOrigin, OLESTR("CprpTest::Method"), std::forward<Body>(body));
    }
};

/// Lines of the description.
std::pair<Text, Text> DescriptionLines()
{
    const Text text = LastErrorText();
    const auto cut = text.find(OLESTR("\r\n"));
    return cut == Text::npos ? std::pair(text, Text()) : std::pair(text.substr(0, cut), text.substr(cut + 2));
}

constexpr const OLECHAR* kNoLocationString =
    OLESTR("Failed to load string 7011 from the resource dll - you may have to re-install the program");

} // namespace

TEST_F(MethodFrame, GivesTheBodysValueOrSuccessWithoutAnErrorObject)
{
    EXPECT_EQ(Run([](const Checks&) {}), S_OK);
    EXPECT_EQ(Run([](const Checks&) -> HRESULT { return S_FALSE; }), S_FALSE);
    EXPECT_EQ(Run([](const Checks&) -> HRESULT { return E_NOTIMPL; }), E_NOTIMPL);
    EXPECT_EQ(LastErrorText(), OLESTR(""));
}

TEST_F(MethodFrame, ClearsTheErrorThatAnEarlierCallLeft)
{
    (void)Run([](const Checks& require) { require.NotNegative(-1); });
    EXPECT_EQ(Run([](const Checks&) {}), S_OK);
    EXPECT_EQ(LastErrorText(), OLESTR(""));
}

TEST_F(MethodFrame, ReportsANullPointerInTwoLinesWithTheLineInTheCode)
{
    unsigned line = 0;
    const HRESULT hr = Run([&](const Checks& require) {
        line = __LINE__ + 1;
        require.Pointer(nullptr, OLESTR("pnCount"));
    });
    EXPECT_EQ(hr, static_cast<HRESULT>(0x80040000U | line));
    const auto [message, location] = DescriptionLines();
    EXPECT_EQ(message,
              OLESTR("Invalid pointer passed to the function 'CprpTest::Method'. Parameter 'pnCount' is NULL."));
    EXPECT_EQ(location, kNoLocationString);
}

TEST_F(MethodFrame, NamesParameterFirstForAnOutStringThatIsNotNull)
{
    CComBSTR text{TextView(OLESTR("x"))};
    ExpectBstrNotNull(Run([&](const Checks& require) { require.EmptyString(&text, OLESTR("pbstrText")); }),
                      OLESTR("CprpTest::Method"), OLESTR("pbstrText"));
}

TEST_F(MethodFrame, CutsALongMessageToThreeDotsAndALineEnd)
{
    const Text text(5000, OLECHAR{'x'});
    const HRESULT hr = Run([&](const Checks&) { ThrowFormatted(CallSite::current(), OLESTR("%s"), text); });
    EXPECT_TRUE(FAILED(hr));
    const Text expected = Text(1018, OLECHAR{'x'}) + OLESTR("...\r\n");
    ASSERT_EQ(expected.size(), 1023U);
    EXPECT_EQ(LastErrorText(), expected + OLESTR("\r\n") + kNoLocationString);
}

TEST_F(MethodFrame, KeepsAMessageThatJustFits)
{
    const Text text(1023, OLECHAR{'x'});
    (void)Run([&](const Checks&) { ThrowFormatted(CallSite::current(), OLESTR("%s"), text); });
    EXPECT_EQ(DescriptionLines().first, text);
}

TEST_F(MethodFrame, LeavesTheLocationOutWhereThereIsNoFile)
{
    (void)Run([](const Checks&) { ThrowFormatted(CallSite{nullptr, 12}, OLESTR("Text")); });
    EXPECT_EQ(LastErrorText(), OLESTR("Text"));
}

TEST_F(MethodFrame, ReportsAnInternalErrorInOnePartWithFileLineAndLastError)
{
    unsigned line = 0;
    const HRESULT hr = Run([&](const Checks&) {
        line = __LINE__ + 1;
        ThrowInternal();
    });
    EXPECT_EQ(hr, kInternalErrorCode);
    const std::string number = std::to_string(line);
    EXPECT_EQ(LastErrorText(), OLESTR("Internal error in MethodFrameTests.cpp, line ") +
                                   Text(number.begin(), number.end()) + OLESTR(".\r\nLast Error: "));
}

TEST_F(MethodFrame, TakesTheLastErrorBeforeAnythingElse)
{
    SetLastError(5);
    (void)Run([](const Checks&) { ThrowInternal(); });
    EXPECT_TRUE(LastErrorText().ends_with(OLESTR("Last Error: ") + SystemText(static_cast<HRESULT>(5))));
}

TEST_F(MethodFrame, NamesTheSourceThatAnInternalErrorIsReportedFor)
{
    (void)Run([](const Checks&) { ThrowInternal(CallSite::current(), "prpTolerance"); });
    EXPECT_TRUE(LastErrorText().starts_with(OLESTR("Internal error in prpTolerance, line ")));
}

TEST_F(MethodFrame, SaysThatAResourceTextIsMissingWithoutALocation)
{
    EXPECT_EQ(Run([](const Checks&) { ThrowResource(999, 5); }), static_cast<HRESULT>(0x800403E7));
    EXPECT_EQ(LastErrorText(), OLESTR("Failed to load LV_nLastError string 999 from the resource dll - you may have "
                                      "to re-install the program"));
}

TEST_F(MethodFrame, PassesANestedFailureOnWithItsOwnDescription)
{
    const HRESULT hr = Run([&](const Checks&) {
        Must(Run([&](const Checks&) { ThrowFormatted(CallSite{nullptr, 77}, OLESTR("Inner")); }));
    });
    EXPECT_EQ(hr, static_cast<HRESULT>(0x8004004D));
    EXPECT_EQ(LastErrorText(), OLESTR("Inner"));
}

TEST_F(MethodFrame, TakesTheSystemsTextForANestedFailureThatLeftNone)
{
    EXPECT_EQ(Run([](const Checks&) { Must(E_INVALIDARG); }), E_INVALIDARG);
    EXPECT_EQ(LastErrorText(), SystemText(E_INVALIDARG));
}

TEST_F(MethodFrame, ReportsAThrownTextAndSucceeds)
{
    EXPECT_EQ(Run([](const Checks&) { throw static_cast<const OLECHAR*>(OLESTR("A word")); }), S_OK);
    EXPECT_EQ(LastErrorText(), OLESTR("A word"));
}

TEST_F(MethodFrame, ReportsAnythingElseByTheLastErrorOrByThePlaceOfTheHandler)
{
    EXPECT_EQ(Run([](const Checks&) {
                  SetLastError(0);
                  throw std::runtime_error("unknown");
              }),
              kInternalErrorCode);
    const Text text = LastErrorText();
    EXPECT_TRUE(text.starts_with(OLESTR("Unknown error encountered in file:\r\n")));
    EXPECT_NE(text.find(OLESTR("MethodFrameTests.cpp(")), Text::npos);

    EXPECT_EQ(Run([](const Checks&) {
                  SetLastError(5);
                  throw std::bad_alloc();
              }),
              kInternalErrorCode);
    EXPECT_EQ(LastErrorText(), SystemText(static_cast<HRESULT>(5)));
}

TEST_F(MethodFrame, NamesClassAndInterfaceInTheErrorObject)
{
    (void)Run([](const Checks& require) { require.NotNegative(-1); });
    CComPtr<IErrorInfo> info;
    ASSERT_EQ(GetErrorInfo(0, &info), S_OK);
    GUID guid{};
    EXPECT_EQ(info->GetGUID(&guid), S_OK);
    EXPECT_TRUE(guid == IID_IprpHelpInfo);
}

TEST_F(MethodFrame, RaisesOutOfMemoryAsItsOwnCode)
{
    EXPECT_EQ(Run([](const Checks&) { throw ComError{E_OUTOFMEMORY, {}}; }), E_OUTOFMEMORY);
    EXPECT_EQ(LastErrorText(), SystemText(E_OUTOFMEMORY));
}
