#include "list/qorLBItem.h"

#include "frame/Raise.h"

CqorLBItem::~CqorLBItem() = default;

void CqorLBItem::Refresh_Internal(LONG, LONG, LONG)
{
    ThrowFormatted(CallSite::current(), OLESTR("Refresh_Internal() not implemented for this list box item."));
}

bool CqorLBItem::OnCtlColor(HDC, HWND, UINT, const SqorLBDrawSettings&)
{
    return false;
}

CqorLBItem& CqorLBItem::AddChild(std::unique_ptr<CqorLBItem> child)
{
    child->m_pParent = this;
    child->m_nSiblingPlace = m_listChildren.size();
    return *m_listChildren.emplace_back(std::move(child));
}

int CqorLBItem::Level() const
{
    int level = 1;
    for (const CqorLBItem* parent = m_pParent; parent; parent = parent->m_pParent)
        ++level;
    return level;
}
