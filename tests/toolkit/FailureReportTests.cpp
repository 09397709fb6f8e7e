// What becomes of an exception in a window procedure.
#include "tests/toolkit/ToolkitWindow.h"

#include "frame/Raise.h"
#include "platform/win/SubclassedWindow.h"
#include "toolkit/FailureReport.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

/// Throws whatever it is told to at each WM_APP.
class ThrowingWindow : public SubclassedWindow {
public:
    std::function<void()> body;

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message != WM_APP)
            return SubclassedWindow::OnMessage(message, wParam, lParam);
        body();
        return 5;
    }
    void OnException() noexcept override { ReportWindowFailure(Handle()); }
};

class FailureReport : public testing::Test {
protected:
    ToolkitWindow parent;
    ThrowingWindow window;
    RecordedAlerts alerts;

    void SetUp() override
    {
        ASSERT_TRUE(
            window.Create({WC_STATICW, OLESTR(""), WS_CHILD | WS_VISIBLE, Rect{0, 0, 10, 10}, parent.handle, 1}));
    }
};

} // namespace

TEST_F(FailureReport, ShowsTheMessageOfAProgramErrorAndGoesOnWithZero)
{
    window.body = [] { ThrowFormatted(CallSite::current(), OLESTR("No %s in row %d"), OLESTR("value"), 7); };
    EXPECT_EQ(window.Send(WM_APP), 0);
    ASSERT_EQ(alerts.Boxes().size(), 1u);
    EXPECT_EQ(alerts.Boxes()[0].find(OLESTR("No value in row 7")), 0u);
    EXPECT_EQ(alerts.Flags(), 0x40030u);
    window.body = [] {};
    EXPECT_EQ(window.Send(WM_APP), 5);
}

TEST_F(FailureReport, HasACaptionWithoutALanguageLibrary)
{
    window.body = [] { throw 1; };
    window.Send(WM_APP);
    EXPECT_THAT(alerts.Captions(), ElementsAre(Text(OLESTR("Lumevor Error"))));
}

TEST_F(FailureReport, NamesThePlaceOfAnUnknownException)
{
    window.body = [] { throw 1; };
    window.Send(WM_APP);
    ASSERT_EQ(alerts.Boxes().size(), 1u);
    EXPECT_EQ(alerts.Boxes()[0].find(OLESTR("Unknown error encountered in file:\r\n")), 0u);
}

TEST_F(FailureReport, DoesNotStackUpBoxes)
{
    static HWND s_window = nullptr;
    static int s_boxes = 0;
    s_window = window.Handle();
    s_boxes = 0;
    CurrentAlerts().messageBox = [](HWND, const OLECHAR*, const OLECHAR*, UINT) {
        ++s_boxes;
        SendMessageW(s_window, WM_APP, 0, 0); // fails again while the box is up
        return IDOK;
    };
    window.body = [] { throw 1; };
    window.Send(WM_APP);
    EXPECT_EQ(s_boxes, 1);
    window.Send(WM_APP);
    EXPECT_EQ(s_boxes, 2);
}
