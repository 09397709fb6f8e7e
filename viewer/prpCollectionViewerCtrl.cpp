// Making and end of the viewer, its tables, and what the list and its rows ask of it.
#include "viewer/prpCollectionViewerCtrl.h"

#include "control/Contrast.h"
#include "control/OleColour.h"

#include <olectl.h>

namespace {

constexpr int kColoursCategory = 1;
constexpr int kAppearanceCategory = -5;
constexpr int kBehaviourCategory = -6;
constexpr UINT kColoursString = 32003;

// Two of the ids have no member any more; property browsers of old forms ask for them all the same.
constexpr DISPID kFormerMembers[] = {10, 11};

constexpr MemberCategory kCategories[] = {
    {1, kColoursCategory},
    {2, kColoursCategory},
    {3, kColoursCategory},
    {4, kColoursCategory},
    {5, kColoursCategory},
    {6, kColoursCategory},
    {7, kColoursCategory},
    {8, kColoursCategory},
    {13, kColoursCategory},
    {15, kColoursCategory},
    {kFormerMembers[0], kAppearanceCategory},
    {kFormerMembers[1], kAppearanceCategory},
    {12, kAppearanceCategory},
    {DISPID_FONT, kAppearanceCategory},
    {9, kBehaviourCategory},
};

constexpr OwnCategory kOwnCategories[] = {{kColoursCategory, kColoursString}};

// The order is that of the persistent form.
constexpr PersistedMember kMembers[] = {
    {OLESTR("AllowEditing"), 9, VT_BOOL},
    {OLESTR("GridLineColour"), 7, VT_UI4},
    {OLESTR("ItemHighlightColour"), 5, VT_UI4},
    {OLESTR("InactiveItemHighlightColour"), 6, VT_UI4},
    {OLESTR("NormalTextColour"), 1, VT_UI4},
    {OLESTR("InvalidTextColour"), 2, VT_UI4},
    {OLESTR("InvalidDataItemColour"), 38, VT_UI4},
    {OLESTR("HighlightedTextColour"), 3, VT_UI4},
    {OLESTR("InactiveHighlightedTextColour"), 4, VT_UI4},
    {OLESTR("BackgroundColour"), 8, VT_UI4},
    {OLESTR("ReadOnlyDataColour"), 13, VT_UI4},
    {OLESTR("CategoryBackgroundColour"), 15, VT_UI4},
    {OLESTR("BorderStyle"), DISPID_BORDERSTYLE, VT_I4},
    {OLESTR("Appearance"), DISPID_APPEARANCE, VT_I2},
    {OLESTR("DividerPosition"), 12, VT_I4},
    {OLESTR("Font"), DISPID_FONT, VT_DISPATCH},
    {OLESTR("Enabled"), DISPID_ENABLED, VT_BOOL},
    {OLESTR("ShowExtendedInfo"), 17, VT_BOOL},
    {OLESTR("ShowHelpStringTooltips"), 37, VT_BOOL},
};

const ControlFacts kFacts{CLSID_prpCollectionViewerCtrl,
                          DIID__IprpCollectionViewerCtrlEvents,
                          OLESTR("Tolvarin Collection Viewer"),
                          kMembers,
                          kCategories,
                          kOwnCategories};

COLORREF Adjust(COLORREF colour, OLE_COLOR background, int distance)
{
    return EnsureContrast(colour, Translated(background), distance);
}

} // namespace

const Origin CprpCollectionViewerCtrl::kOrigin{CLSID_prpCollectionViewerCtrl, IID_IprpCollectionViewerCtrl};

const DefaultFont CprpCollectionViewerCtrl::kDefaultFont{OLESTR("MS Shell Dlg"), 8, FW_NORMAL, false};

/// The colours that depend on others are worked out once: a later change of the background leaves them.
CprpCollectionViewerCtrl::CprpCollectionViewerCtrl()
    : ControlBase(kFacts), m_crNormalText(OleSystemColour(COLOR_WINDOWTEXT)),
      m_crHighlightedText(OleSystemColour(COLOR_HIGHLIGHTTEXT)), m_crItemHighlight(OleSystemColour(COLOR_HIGHLIGHT)),
      m_crBackground(OleSystemColour(COLOR_WINDOW))
{
    m_crInvalidText = Adjust(0x0000FF, m_crBackground, 128);
    m_crGridLine = Adjust(0xDCDCDC, m_crBackground, 60);
    m_crReadOnlyData = Adjust(0x787878, m_crBackground, 128);
    m_crCategoryBackground = Adjust(0xFFF5F5, m_crNormalText, 128);
    m_listBox.m_eListType = ListType::PropertyList;
}

void CprpCollectionViewerCtrl::FinalRelease()
{
    LetGo();
    DropContent();
}

void CprpCollectionViewerCtrl::OnSiteSet()
{
    if (!m_spFont)
        m_spFont = CloneAmbientFont(Site());
    if (!m_spFont)
        m_spFont = MakeFont(kDefaultFont);
}

void CprpCollectionViewerCtrl::FireExtendedInfoButtonClicked(CprpPropItem& item)
{
    if (item.m_pPropInfo)
        Fire(&Proxy::Fire_ExtendedInfoButtonClicked, item.m_pPropInfo->m_nPropertyID);
}

void CprpCollectionViewerCtrl::FireMultiEditStart()
{
    Fire(&Proxy::Fire_MultiEditStart);
}

void CprpCollectionViewerCtrl::FireMultiEditEnd()
{
    Fire(&Proxy::Fire_MultiEditEnd);
}

COLORREF CprpCollectionViewerCtrl::CategoryBackground() const
{
    return Translated(m_crCategoryBackground);
}
