#include "list/prpPropCategory.h"

#include "frame/LanguageStrings.h"
#include "frame/Raise.h"
#include "list/qorODListBox.h"
#include "platform/win/HandleOwners.h"

#include <algorithm>

namespace {

constexpr const char* kSource = ".\\prpPropCategory";

Text SummaryText(UINT id, unsigned line)
{
    Text text;
    if (!LoadLanguageString(id, text))
        ThrowInternal(CallSite{kSource, line});
    return text;
}

template <class Test>
bool AnyChild(const CqorLBItem& item, const Test& test)
{
    return std::any_of(item.m_listChildren.begin(), item.m_listChildren.end(),
                       [&](const auto& child) { return test(*child); });
}

} // namespace

CprpPropCategory::CprpPropCategory(GridHost* pViewer, CqorODListBox* pListBox, CqorLBItem* pParent)
    : CprpPropItem(pViewer, pListBox, pParent)
{
    m_bCollapsed = false;
}

/// Name and data stand on the category's own ground; the name is bold.
void CprpPropCategory::Draw(const SqorLBDrawContext& context)
{
    SqorLBDrawSettings settings = *context.m_pSettings;
    settings.m_crBackground = m_crBackground;
    SqorLBDrawContext own = context;
    own.m_pSettings = &settings;
    CprpPropItem::Draw(own);
    {
        const SelectionScope bold(context.m_hDC, m_pListBox->BoldFont());
        DrawName(own);
    }
    DrawData(own);
}

int CprpPropCategory::GetNameWidth(HDC hDC, const SqorLBDrawSettings& settings)
{
    const SelectionScope bold(hDC, m_pListBox->BoldFont());
    return CprpPropItem::GetNameWidth(hDC, settings);
}

bool CprpPropCategory::IsInvalid() const
{
    return AnyChild(*this, [](const CqorLBItem& child) { return child.IsInvalid(); });
}

bool CprpPropCategory::IsInWarning() const
{
    return AnyChild(*this, [](const CqorLBItem& child) { return child.IsInWarning(); });
}

bool CprpPropCategory::IsVisible() const
{
    return m_bVisible && AnyChild(*this, [](const CqorLBItem& child) { return child.IsVisible(); });
}

/// A collapsed category sums its children up; an expanded one shows nothing of its own.
void CprpPropCategory::Refresh()
{
    constexpr UINT kErrorsString = 32004;
    constexpr UINT kWarningsString = 32016;
    constexpr unsigned kErrorsLine = 170;
    constexpr unsigned kWarningsLine = 175;
    CprpPropItem::Refresh();
    if (m_pViewer)
        m_crBackground = m_pViewer->CategoryBackground();
    m_strData.clear();
    if (m_bCollapsed && IsInvalid())
        m_strData = SummaryText(kErrorsString, kErrorsLine);
    else if (m_bCollapsed && IsInWarning())
        m_strData = SummaryText(kWarningsString, kWarningsLine);
    m_strError = m_strData;
}
