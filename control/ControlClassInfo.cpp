// What a control says about itself: its events, its type, the categories of its members.
#include "control/ControlBase.h"

#include "frame/LanguageStrings.h"
#include "platform/atl/Dispatch.h"

#include <algorithm>

STDMETHODIMP ControlBase::EnumConnectionPoints(IEnumConnectionPoints** points)
{
    std::vector<IConnectionPoint*> own;
    if (ConnectionPoint* const events = EventPoint())
        own.push_back(events);
    return EnumerateConnectionPoints(std::move(own), points);
}

STDMETHODIMP ControlBase::FindConnectionPoint(REFIID iid, IConnectionPoint** point)
{
    if (!point)
        return E_POINTER;
    ConnectionPoint* const events = EventPoint();
    *point = events && iid == events->EventInterface() ? events : nullptr;
    if (!*point)
        return CONNECT_E_NOCONNECTION;
    (*point)->AddRef();
    return S_OK;
}

STDMETHODIMP ControlBase::GetClassInfo(ITypeInfo** info)
{
    return info ? TypeInfoOf(m_facts.clsid, info) : E_POINTER;
}

STDMETHODIMP ControlBase::GetGUID(DWORD kind, GUID* guid)
{
    if (!guid)
        return E_POINTER;
    *guid = kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? m_facts.events : IID_NULL;
    return *guid == IID_NULL ? E_INVALIDARG : S_OK;
}

STDMETHODIMP ControlBase::MapPropertyToCategory(DISPID id, INT* category)
{
    if (!category)
        return E_POINTER;
    const auto found = std::ranges::find(m_facts.categories, id, &MemberCategory::id);
    if (found == m_facts.categories.end())
        return E_FAIL;
    *category = found->category;
    return S_OK;
}

STDMETHODIMP ControlBase::GetCategoryName(INT category, LCID, BSTR* name)
{
    if (!name)
        return E_POINTER;
    *name = nullptr;
    const auto found = std::ranges::find(m_facts.ownCategories, category, &OwnCategory::category);
    Text text;
    if (found == m_facts.ownCategories.end() || !LoadLanguageString(found->nameId, text))
        return E_FAIL;
    *name = CComBSTR(text).Detach();
    return *name ? S_OK : E_OUTOFMEMORY;
}
