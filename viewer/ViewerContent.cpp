// What is shown: the collections, the merged tree, the connections, the rows, and their end.
#include "viewer/prpCollectionViewerCtrl.h"

#include "core/VariantBool.h"
#include "list/FirstFailure.h"
#include "list/PropertyAccess.h"
#include "list/RowFactory.h"
#include "viewer/ViewerSource.h"

#include <algorithm>
#include <utility>

/// Shows the properties that all given collections have in common, in the order of the first one. What was shown
/// before goes, an open editor commits first. Without a window the rows wait for it.
/// @param CollectionInterfaces  ListLength pointers; the viewer takes references. May be null for a length of 0.
/// @param ListLength            0 clears
/// Raises, in this order: negative length, null pointers, what a collection answers. When a collection cannot be
/// taken over, nothing is shown; when only a row cannot be read, the others are, and the first failure is raised.
STDMETHODIMP CprpCollectionViewerCtrl::ShowProperties(IqorPropertyCollection** CollectionInterfaces, LONG ListLength)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::ShowProperties"), [&](const Checks& require) {
        require.NotNegative(ListLength, InViewer());
        if (ListLength > 0)
            require.Pointer(CollectionInterfaces, OLESTR("ppICollections"), InViewer());
        Collections collections;
        for (LONG i = 0; i < ListLength; ++i) {
            require.Pointer(CollectionInterfaces[i], OLESTR("ppICollections"), InViewer());
            collections.emplace_back(CollectionInterfaces[i]);
        }
        const CComPtr<IOleObject> kept(this);
        const CursorScope wait(m_listBox.m_hCursorWait, [before = GetCursor()] { return before; });
        Show(collections);
    });
}

/// Takes everything out: rows, connections, collections. An open editor commits first. Colours, category states and
/// forced visibility stay. No event tells of the selection that went.
STDMETHODIMP CprpCollectionViewerCtrl::Clear()
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::Clear"), [&](const Checks&) {
        const CComPtr<IOleObject> kept(this);
        DropContent();
        UpdateListVisibility();
    });
}

/// The content is taken over only when it is complete and no host has shown another one meanwhile.
void CprpCollectionViewerCtrl::Show(const Collections& collections)
{
    DropContent();
    const unsigned showing = m_nShowing;
    LONG precision = m_nPrecision;
    PropertyTree tree;
    Connections connections;
    for (const auto& collection : collections) {
        Must(collection->get_Precision(&precision)); // the last one wins
        connections.Add(*this, *collection);
    }
    for (std::size_t i = 0; i < collections.size(); ++i)
        i == 0 ? tree.Build(*collections[i]) : tree.Merge(*collections[i]);
    if (showing != m_nShowing)
        return;
    m_nPrecision = precision;
    std::swap(m_treeProperties, tree);
    m_arrSinks = std::move(connections);
    m_listCollections = collections;
    CreateRows();
    UpdateListVisibility();
}

/// May be entered again while an editor commits; whoever comes first ends last and wins.
void CprpCollectionViewerCtrl::DropContent()
{
    if (m_listBox.Exists())
        m_listBox.EndEdit();
    ++m_nShowing;
    DropRows();
    // In locals: the last reference to a collection may call a host.
    const Connections connections = std::move(m_arrSinks);
    const PropertyTree tree = std::exchange(m_treeProperties, {});
    const Collections collections = std::exchange(m_listCollections, {});
    m_nPosColumnX = m_nPosColumnY = m_nPosColumnZ = kFirstColumnWidth;
}

void CprpCollectionViewerCtrl::DropRows()
{
    m_listBox.Clear();
    m_treeProperties.VisitAll([](CprpMultiplePropInfo& node) { node.m_pItem = nullptr; });
}

/// A root that cannot be made leaves the others to be made; the first failure is raised at the end.
void CprpCollectionViewerCtrl::CreateRows()
{
    if (!m_listBox.Exists() || m_treeProperties.Roots().empty())
        return;
    const RowDisplay::BusyScope busy(m_listBox);
    FirstFailure failure;
    {
        const CqorODListBox::FillScope fill(m_listBox); // its end paints
        for (const auto& node : m_treeProperties.Roots())
            failure.Try([&] { CreateRoot(*node); });
        failure.Try([&] { m_listBox.RefreshAll(); });
    }
    UpdateListVisibility();
    failure.Raise();
}

void CprpCollectionViewerCtrl::CreateRoot(CprpMultiplePropInfo& node)
{
    std::unique_ptr<CprpPropItem> item;
    try {
        item = CreateItem(node, nullptr);
    } catch (...) {
        PropertyTree::VisitSubtree(node, [](CprpMultiplePropInfo& each) { each.m_pItem = nullptr; });
        throw;
    }
    if (!item)
        return;
    SetPrecisionOf(*item);
    m_listBox.ShowItem(m_listBox.AddRoot(std::move(item)));
}

/// The row of a node and those of its children; null for a type that has none, whose children have none either.
std::unique_ptr<CprpPropItem> CprpCollectionViewerCtrl::CreateItem(CprpMultiplePropInfo& node, CqorLBItem* parent)
{
    auto item = MakePropItem(node.m_eDataType, this, &m_listBox, parent);
    if (!item)
        return nullptr;
    const auto state = m_mapCategoryState.find(node.m_nPropertyID);
    if (node.m_eDataType == E_PROP_DT_CATEGORY && state != m_mapCategoryState.end())
        item->m_bCollapsed = state->second != 0;
    const auto forced = m_mapVisOverrides.find(node.m_nPropertyID);
    item->m_bVisibilityForced = forced != m_mapVisOverrides.end();
    item->m_bVisible = item->m_bVisibilityForced ? forced->second != 0 : IsVisibleEverywhere(node);
    item->m_pPropInfo = &node;
    node.m_pItem = item.get();
    for (const auto& child : node.m_listChildren) {
        if (auto row = CreateItem(*child, item.get()))
            item->AddChild(std::move(row));
    }
    return item;
}

bool CprpCollectionViewerCtrl::IsVisibleEverywhere(const CprpMultiplePropInfo& node) const
{
    return std::ranges::all_of(node.m_listCollections, [&](const auto& collection) {
        VARIANT_BOOL visible = VARIANT_FALSE;
        WithProperty(*collection, node.m_nPropertyID, AtEnd::DropEvents,
                     [&](IqorProperty& property) { Must(property.IsVisible(&visible)); });
        return In(visible);
    });
}

void CprpCollectionViewerCtrl::SetPrecisionOf(CqorLBItem& item) const
{
    item.m_nPrecision = m_nPrecision;
    for (const auto& child : item.m_listChildren)
        SetPrecisionOf(*child);
}

/// Reads all rows anew and hands the decimals out to them.
STDMETHODIMP CprpCollectionViewerCtrl::Refresh()
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::Refresh"), [&](const Checks&) {
        const CComPtr<IOleObject> kept(this);
        m_nPosColumnX = m_nPosColumnY = m_nPosColumnZ = kFirstColumnWidth;
        for (const auto& root : m_listBox.Roots())
            SetPrecisionOf(*root);
        m_listBox.RefreshAll();
        RedrawAll();
    });
}

/// Sets the decimals of all shown collections. Rows that keep their own decimals follow at the next Refresh.
/// Raises what a collection answers; those in front of it have the new number then.
STDMETHODIMP CprpCollectionViewerCtrl::put_Precision(LONG Value)
{
    return InFrame(kOrigin, OLESTR("CprpCollectionViewerCtrl::put_Precision"), [&](const Checks&) {
        const CComPtr<IOleObject> kept(this);
        const Collections collections = m_listCollections; // the events of each may show others
        for (const auto& collection : collections)
            InTransaction(*collection, AtEnd::FireEvents, [&] { Must(collection->put_Precision(Value)); });
        m_nPrecision = Value;
        m_listBox.RefreshAll();
        InvalidateList(false);
    });
}
