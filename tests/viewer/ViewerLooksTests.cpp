// Colours, styles, flags, font and divider of the viewer, as given, as stored, as the list has them.
#include "control/OleColour.h"
#include "tests/viewer/ViewerHost.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct ColourMember {
    const char* name;
    HRESULT (STDMETHODCALLTYPE IprpCollectionViewerCtrl::*get)(OLE_COLOR*);
    HRESULT (STDMETHODCALLTYPE IprpCollectionViewerCtrl::*put)(OLE_COLOR);
    OLE_COLOR first;
    COLORREF SqorLBDrawSettings::*setting;
};

using Ctrl = IprpCollectionViewerCtrl;
using Settings = SqorLBDrawSettings;

// The defaults of contrast are those over this platform's white window.
const ColourMember kColours[] = {
    {"NormalText", &Ctrl::get_NormalTextColour, &Ctrl::put_NormalTextColour, 0x80000008, &Settings::m_crNormalText},
    {"InvalidText", &Ctrl::get_InvalidTextColour, &Ctrl::put_InvalidTextColour, 0x0000FF, &Settings::m_crInvalidText},
    {"InvalidDataItem", &Ctrl::get_InvalidDataItemColour, &Ctrl::put_InvalidDataItemColour, 0,
     &Settings::m_crInvalidDataItem},
    {"HighlightedText", &Ctrl::get_HighlightedTextColour, &Ctrl::put_HighlightedTextColour, 0x8000000E,
     &Settings::m_crHighlightedText},
    {"InactiveHighlightedText", &Ctrl::get_InactiveHighlightedTextColour, &Ctrl::put_InactiveHighlightedTextColour, 0,
     &Settings::m_crInactiveHighlightedText},
    {"ItemHighlight", &Ctrl::get_ItemHighlightColour, &Ctrl::put_ItemHighlightColour, 0x8000000D,
     &Settings::m_crItemHighlight},
    {"InactiveItemHighlight", &Ctrl::get_InactiveItemHighlightColour, &Ctrl::put_InactiveItemHighlightColour, 0xD2D2D2,
     &Settings::m_crInactiveItemHighlight},
    {"GridLine", &Ctrl::get_GridLineColour, &Ctrl::put_GridLineColour, 0xDCDCDC, &Settings::m_crGridLine},
    {"Background", &Ctrl::get_BackgroundColour, &Ctrl::put_BackgroundColour, 0x80000005, &Settings::m_crBackground},
    {"ReadOnlyData", &Ctrl::get_ReadOnlyDataColour, &Ctrl::put_ReadOnlyDataColour, 0x787878,
     &Settings::m_crReadOnlyData},
    {"CategoryBackground", &Ctrl::get_CategoryBackgroundColour, &Ctrl::put_CategoryBackgroundColour, 0xFFF5F5, nullptr},
};

class ViewerColour : public testing::TestWithParam<ColourMember> {
protected:
    ViewerHost host;

    OLE_COLOR Stored()
    {
        OLE_COLOR colour = 0x7E7E7E;
        EXPECT_EQ((host.control.p->*GetParam().get)(&colour), S_OK);
        return colour;
    }
    void Put(OLE_COLOR colour) { EXPECT_EQ((host.control.p->*GetParam().put)(colour), S_OK); }
};

class ViewerLooks : public testing::Test {
protected:
    ViewerHost host;

    DWORD Style(int index = GWL_STYLE) { return static_cast<DWORD>(GetWindowLongPtrW(host.ListWindow(), index)); }
    void ExpectListCoversTheControl()
    {
        const Rect client = ClientRectOf(host.viewer->ControlWindow());
        const Rect list = WindowRectOf(host.ListWindow());
        const Rect control = WindowRectOf(host.viewer->ControlWindow());
        EXPECT_EQ(list.Width(), client.Width());
        EXPECT_EQ(list.Height(), client.Height());
        EXPECT_EQ(list.left, control.left);
        EXPECT_EQ(list.top, control.top);
    }
    static bool Flag(HRESULT (STDMETHODCALLTYPE Ctrl::*get)(VARIANT_BOOL*), Ctrl* control)
    {
        VARIANT_BOOL value = 5;
        EXPECT_EQ((control->*get)(&value), S_OK);
        EXPECT_TRUE(value == VARIANT_TRUE || value == VARIANT_FALSE);
        return value == VARIANT_TRUE;
    }
};

} // namespace

TEST_P(ViewerColour, StartsAsItShould)
{
    ASSERT_EQ(GetSysColor(COLOR_WINDOW), 0xFFFFFFU) << "the expected numbers are worked out for a white window";
    EXPECT_EQ(Stored(), GetParam().first);
    if (GetParam().setting) {
        EXPECT_EQ(host.List().m_settings.*GetParam().setting, Translated(GetParam().first));
    }
}

TEST_P(ViewerColour, IsStoredAsGivenAndShownTranslated)
{
    Put(0x123456);
    EXPECT_EQ(Stored(), 0x123456U);
    if (GetParam().setting) {
        EXPECT_EQ(host.List().m_settings.*GetParam().setting, 0x123456U);
    }
    Put(OleSystemColour(COLOR_HIGHLIGHT));
    EXPECT_EQ(Stored(), OleSystemColour(COLOR_HIGHLIGHT));
    if (GetParam().setting) {
        EXPECT_EQ(host.List().m_settings.*GetParam().setting, GetSysColor(COLOR_HIGHLIGHT));
    }
}

TEST_P(ViewerColour, WaitsForTheWindow)
{
    ViewerHost later(false);
    EXPECT_EQ((later.control.p->*GetParam().put)(0x314159), S_OK);
    later.Activate();
    if (GetParam().setting) {
        EXPECT_EQ(later.List().m_settings.*GetParam().setting, 0x314159U);
    }
    OLE_COLOR colour = 0;
    EXPECT_EQ((later.control.p->*GetParam().get)(&colour), S_OK);
    EXPECT_EQ(colour, 0x314159U);
}

TEST_P(ViewerColour, NeedsAPlaceForTheAnswer)
{
    const HRESULT hr = (host.control.p->*GetParam().get)(nullptr);
    const std::string method = std::string("CprpCollectionViewerCtrl::get_") + GetParam().name + "Colour";
    ExpectNullPointer(hr, Text(method.begin(), method.end()), OLESTR("pColour"));
}

INSTANTIATE_TEST_SUITE_P(Each, ViewerColour, testing::ValuesIn(kColours),
                         [](const auto& each) { return std::string(each.param.name); });

TEST_F(ViewerLooks, GiveCategoriesTheirGroundAtTheNextRefresh)
{
    host.Add(1, E_PROP_DT_CATEGORY);
    host.Add(2, E_PROP_DT_DOUBLE, 1);
    host.Show();
    EXPECT_EQ(host.control->put_CategoryBackgroundColour(0x60C0F0), S_OK);
    const auto ground = [&] {
        RedrawWindow(host.ListWindow(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        const Rect name = host.List().RectsOf(0).name;
        return Picture(host.ListWindow()).At(name.right - 3, name.top + 2);
    };
    EXPECT_NE(ground(), 0x60C0F0U);
    EXPECT_EQ(host.control->Refresh(), S_OK);
    EXPECT_EQ(ground(), 0x60C0F0U);
}

TEST_F(ViewerLooks, ErasedBelowTheRowsInTheNewBackground)
{
    host.Add(1, E_PROP_DT_DOUBLE);
    host.Show();
    EXPECT_EQ(host.control->put_BackgroundColour(0x20E0A0), S_OK);
    Pump();
    const Picture look(host.ListWindow());
    const Rect client = ClientRectOf(host.ListWindow());
    EXPECT_TRUE(look.IsFilled({0, host.List().RowRect(0).bottom, client.right, client.bottom}, 0x20E0A0));
}

TEST_F(ViewerLooks, BorderedOnRequest)
{
    EXPECT_EQ(Style() & WS_BORDER, 0U);
    LONG style = 7;
    EXPECT_EQ(host.control->get_BorderStyle(&style), S_OK);
    EXPECT_EQ(style, 0);
    EXPECT_EQ(host.control->put_BorderStyle(1), S_OK);
    EXPECT_NE(Style() & WS_BORDER, 0U);
    ExpectListCoversTheControl();
    EXPECT_EQ(host.control->put_BorderStyle(5), S_OK);
    EXPECT_EQ(host.control->get_BorderStyle(&style), S_OK);
    EXPECT_EQ(style, 1) << "other numbers are not stored";
    EXPECT_EQ(host.control->put_BorderStyle(0), S_OK);
    EXPECT_EQ(Style() & WS_BORDER, 0U);
    ExpectNullPointer(host.control->get_BorderStyle(nullptr), OLESTR("CprpCollectionViewerCtrl::get_BorderStyle"),
                      OLESTR("pnValue"));
}

TEST_F(ViewerLooks, SunkenAtFirst)
{
    EXPECT_NE(Style(GWL_EXSTYLE) & WS_EX_CLIENTEDGE, 0U);
    SHORT appearance = 7;
    EXPECT_EQ(host.control->get_Appearance(&appearance), S_OK);
    EXPECT_EQ(appearance, 1);
    EXPECT_EQ(host.control->put_Appearance(0), S_OK);
    EXPECT_EQ(Style(GWL_EXSTYLE) & WS_EX_CLIENTEDGE, 0U);
    ExpectListCoversTheControl();
    EXPECT_EQ(ClientRectOf(host.ListWindow()), ClientRectOf(host.viewer->ControlWindow())) << "the edge is gone";
    EXPECT_EQ(host.control->put_Appearance(-1), S_OK);
    EXPECT_EQ(host.control->get_Appearance(&appearance), S_OK);
    EXPECT_EQ(appearance, 0);
}

TEST_F(ViewerLooks, StyledBeforeThereIsAWindow)
{
    ViewerHost later(false);
    EXPECT_EQ(later.control->put_BorderStyle(1), S_OK);
    EXPECT_EQ(later.control->put_Appearance(0), S_OK);
    EXPECT_EQ(later.control->put_Enabled(VARIANT_FALSE), S_OK);
    later.Activate();
    EXPECT_NE(GetWindowLongPtrW(later.ListWindow(), GWL_STYLE) & WS_BORDER, 0);
    EXPECT_EQ(GetWindowLongPtrW(later.ListWindow(), GWL_EXSTYLE) & WS_EX_CLIENTEDGE, 0);
    EXPECT_FALSE(IsWindowEnabled(later.ListWindow()));
}

TEST_F(ViewerLooks, DisabledWithItsList)
{
    EXPECT_TRUE(Flag(&Ctrl::get_Enabled, host.control));
    EXPECT_EQ(host.control->put_Enabled(VARIANT_FALSE), S_OK);
    EXPECT_FALSE(Flag(&Ctrl::get_Enabled, host.control));
    EXPECT_FALSE(IsWindowEnabled(host.ListWindow()));
    EXPECT_FALSE(IsWindowEnabled(host.viewer->ControlWindow()));
    EXPECT_EQ(host.control->put_Enabled(1), S_OK);
    EXPECT_TRUE(Flag(&Ctrl::get_Enabled, host.control));
    EXPECT_TRUE(IsWindowEnabled(host.ListWindow()));
}

TEST_F(ViewerLooks, FlaggedAsTheListIs)
{
    struct FlagMember {
        HRESULT (STDMETHODCALLTYPE Ctrl::*get)(VARIANT_BOOL*);
        HRESULT (STDMETHODCALLTYPE Ctrl::*put)(VARIANT_BOOL);
        bool CqorODListBox::*flag;
    };
    for (const FlagMember& member :
         {FlagMember{&Ctrl::get_AllowEditing, &Ctrl::put_AllowEditing, &CqorODListBox::m_bAllowEditing},
          FlagMember{&Ctrl::get_UseSingleLevelIndentation, &Ctrl::put_UseSingleLevelIndentation,
                     &CqorODListBox::m_bSingleLevelIndent},
          FlagMember{&Ctrl::get_ShowExtendedInfo, &Ctrl::put_ShowExtendedInfo, &CqorODListBox::m_bShowExtendedInfo},
          FlagMember{&Ctrl::get_ShowHelpStringTooltips, &Ctrl::put_ShowHelpStringTooltips,
                     &CqorODListBox::m_bShowHelpTooltips}}) {
        EXPECT_TRUE(Flag(member.get, host.control));
        EXPECT_TRUE(host.List().*member.flag);
        EXPECT_EQ((host.control.p->*member.put)(VARIANT_FALSE), S_OK);
        EXPECT_FALSE(Flag(member.get, host.control));
        EXPECT_FALSE(host.List().*member.flag);
        EXPECT_EQ((host.control.p->*member.put)(2), S_OK);
        EXPECT_TRUE(Flag(member.get, host.control));
        EXPECT_TRUE(host.List().*member.flag);
        EXPECT_TRUE(FAILED((host.control.p->*member.get)(nullptr)));
        EXPECT_FALSE(LastErrorText().empty());

        ViewerHost later(false);
        EXPECT_EQ((later.control.p->*member.put)(VARIANT_FALSE), S_OK);
        later.Activate();
        EXPECT_FALSE(later.List().*member.flag) << "put before the window";
    }
}

TEST_F(ViewerLooks, WithButtonsAfterTheNextRefresh)
{
    host.Add(1, E_PROP_DT_DOUBLE, E_PROP_ID_TOP_LEVEL, E_PROP_EDIT_VALUE | E_PROP_EDIT_SHOW_EXTENDED_INFO);
    host.Show();
    EXPECT_TRUE(host.ItemOf(1)->m_bShowExtendedButton);
    EXPECT_EQ(host.control->put_ShowExtendedInfo(VARIANT_FALSE), S_OK);
    EXPECT_TRUE(host.ItemOf(1)->m_bShowExtendedButton);
    EXPECT_EQ(host.control->Refresh(), S_OK);
    EXPECT_FALSE(host.ItemOf(1)->m_bShowExtendedButton);
}

TEST_F(ViewerLooks, DividedWhereTheHostOrTheUserPutsIt)
{
    LONG position = 0;
    EXPECT_EQ(host.control->get_DividerPosition(&position), S_OK);
    EXPECT_EQ(position, 100);
    EXPECT_EQ(host.control->put_DividerPosition(140), S_OK);
    EXPECT_EQ(host.List().m_nDividerPos, 140);
    host.List().m_nDividerPos = 77; // as a drag does
    EXPECT_EQ(host.control->get_DividerPosition(&position), S_OK);
    EXPECT_EQ(position, 77);
    CComPtr<IOleInPlaceObject> inPlace;
    ASSERT_EQ(host.control.QueryInterface(&inPlace), S_OK);
    inPlace->InPlaceDeactivate();
    host.Activate();
    EXPECT_EQ(host.List().m_nDividerPos, 77) << "kept for the next window";
    ExpectNullPointer(host.control->get_DividerPosition(nullptr),
                      OLESTR("CprpCollectionViewerCtrl::get_DividerPosition"), OLESTR("pnValue"));
}

TEST_F(ViewerLooks, DividedBehindTheWidestName)
{
    host.Add(1, E_PROP_DT_DOUBLE);
    host.Add(2, E_PROP_DT_DOUBLE);
    host.Change(2, [](IqorProperty* property) { property->SetPropertyName(Bstr(OLESTR("A much longer name"))); });
    host.Show();
    EXPECT_EQ(host.control->AutoFitDivider(), S_OK);
    CqorODListBox& list = host.List();
    EXPECT_EQ(list.m_nDividerPos, list.m_nRowUnit + host.ItemOf(2)->GetNameWidth(list.MeasuringDc(), list.m_settings));
}

TEST_F(ViewerLooks, InTheContainersFontOrItsOwn)
{
    CComPtr<IFontDisp> own;
    EXPECT_EQ(host.control->get_Font(&own), S_OK);
    ASSERT_TRUE(own);
    LOGFONTW font{};
    ASSERT_TRUE(ReadLogFont(own, font));
    EXPECT_EQ(font.lfHeight, -11);
    EXPECT_EQ(font.lfWeight, FW_NORMAL);
    EXPECT_EQ(font.lfItalic, 0);

    ViewerHost other(false);
    other.site->ambientFont = MakeFont({OLESTR("MS Shell Dlg"), 14, FW_BOLD, true});
    other.Activate();
    CComPtr<IFontDisp> ambient;
    EXPECT_EQ(other.control->get_Font(&ambient), S_OK);
    ASSERT_TRUE(ReadLogFont(ambient, font));
    EXPECT_EQ(font.lfWeight, FW_BOLD);
    EXPECT_NE(font.lfItalic, 0);
    EXPECT_NE(ambient.p, other.site->ambientFont.p) << "a copy";
    EXPECT_EQ(other.List().m_settings.m_lfFont.lfHeight, font.lfHeight);
}

TEST_F(ViewerLooks, MeasuredAnewInANewFont)
{
    host.Add(1, E_PROP_DT_DOUBLE);
    host.Show();
    const int before = host.List().RowRect(0).Height();
    EXPECT_EQ(host.control->putref_Font(MakeFont({OLESTR("MS Shell Dlg"), 20, FW_NORMAL, false})), S_OK);
    EXPECT_GT(host.List().RowRect(0).Height(), before + 8);
    EXPECT_EQ(host.control->putref_Font(nullptr), S_OK);
    EXPECT_EQ(host.List().RowRect(0).Height(), before) << "the viewer's own font stands in";
    ExpectNullPointer(host.control->get_Font(nullptr), OLESTR("CprpCollectionViewerCtrl::get_Font"), OLESTR("ppFont"));
}

TEST_F(ViewerLooks, SizedWithTheControl)
{
    CComPtr<IOleInPlaceObject> inPlace;
    ASSERT_EQ(host.control.QueryInterface(&inPlace), S_OK);
    const RECT place{10, 20, 210, 140};
    EXPECT_EQ(inPlace->SetObjectRects(&place, &place), S_OK);
    ExpectListCoversTheControl();
    EXPECT_EQ(WindowRectOf(host.ListWindow()).Width(), 200);
}

TEST_F(ViewerLooks, WithPicturesOfEitherDepth)
{
    EXPECT_FALSE(Flag(&Ctrl::get_Use32BPPimages, host.control));
    for (const bool blended : {false, true}) {
        const RecordedAlerts alerts;
        ViewerHost other(false);
        EXPECT_EQ(other.control->put_Use32BPPimages(blended ? VARIANT_TRUE : VARIANT_FALSE), S_OK);
        EXPECT_EQ(Flag(&Ctrl::get_Use32BPPimages, other.control), blended);
        other.Activate();
        EXPECT_THAT(alerts.Boxes(), IsEmpty());
        other.Add(1, E_PROP_DT_DOUBLE);
        other.Change(1, [](IqorProperty* property) { property->SetValid(VARIANT_FALSE); });
        other.control->put_InvalidDataItemColour(0x00FF00);
        other.Show();
        const Picture look(other.ListWindow());
        const Rect indent = other.List().RectsOf(0).indent;
        EXPECT_FALSE(look.Shows(indent, 0x00FF00)) << "the cross that stands in for a missing picture";
        EXPECT_TRUE(look.Shows(indent, RGB(0xC0, 0x10, 0x10))) << blended;
        EXPECT_FALSE(look.Shows(indent, RGB(0xFF, 0, 0xFF))) << "the mask";
    }
}

TEST_F(ViewerLooks, DeafToTheRightButton)
{
    EXPECT_EQ(SendMessageW(host.viewer->ControlWindow(), WM_RBUTTONDOWN, 0, 0), 0);
    EXPECT_THAT(host.Sounds(), IsEmpty());
}

TEST_F(ViewerLooks, GiveTheFocusToTheList)
{
    SetFocus(host.viewer->ControlWindow());
    EXPECT_EQ(GetFocus(), host.ListWindow());
}
