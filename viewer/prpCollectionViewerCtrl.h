// CprpCollectionViewerCtrl, the control that shows one or several property collections as one grid of two columns and
// lets them be edited.
//
// The tree of properties and the connections to the collections live from ShowProperties to Clear; the rows live as
// long as both the tree and the control's window do. User-interface thread only.
//
// Where it may be entered again: every event, and everything that closes an editor, because the editor commits and
// the commit calls hosts. A host may then clear the viewer, show other collections, destroy the window or give its
// last reference back. So an operation that has called out looks its row up by property id again (RowFor), and
// compares m_nShowing where it goes on with what it had before.
//
// The bodies are told by subject: ViewerWindow (window, messages, painting), ViewerLooks (colours, style, flags, font),
// ViewerContent (showing, clearing, rows), ViewerRows (what hosts ask and order of single rows), ViewerUpdate (event
// streams), ViewerState (category states, forced visibility).
#pragma once

#include "control/ControlBase.h"
#include "frame/MethodFrame.h"
#include "list/prpPropItem.h"
#include "list/qorODListBox.h"
#include "platform/atl/ComObject.h"
#include "platform/atl/Dispatch.h"
#include "viewer/PropertyTree.h"
#include "viewer/StateStreams.h"
#include "viewer/prpCollectionSink.h"
#include "viewer/prpCollectionViewerEvents.h"

class CprpCollectionViewerCtrl : public CComObjectRootEx<CComSingleThreadModel>,
                                 public CComCoClass<&CLSID_prpCollectionViewerCtrl>,
                                 public IDispatchImpl<IprpCollectionViewerCtrl>,
                                 public ISupportErrorInfoImpl<IprpCollectionViewerCtrl>,
                                 public ControlBase,
                                 public GridHost,
                                 public CollectionListener {
public:
    using Interfaces = ControlInterfaces<IprpCollectionViewerCtrl>;

    CprpCollectionViewerCtrl();
    void FinalRelease();

    // IprpCollectionViewerCtrl
    STDMETHODIMP putref_Font(IFontDisp* Font) override;
    STDMETHODIMP get_Font(IFontDisp** Font) override;
    STDMETHODIMP get_HWND(LONG_PTR* Window) override;
    STDMETHODIMP put_Enabled(VARIANT_BOOL Enabled) override;
    STDMETHODIMP get_Enabled(VARIANT_BOOL* Enabled) override;
    STDMETHODIMP put_BorderStyle(LONG Style) override;
    STDMETHODIMP get_BorderStyle(LONG* Style) override;
    STDMETHODIMP put_Appearance(SHORT Appearance) override;
    STDMETHODIMP get_Appearance(SHORT* Appearance) override;
    STDMETHODIMP get_NormalTextColour(OLE_COLOR* Colour) override;
    STDMETHODIMP put_NormalTextColour(OLE_COLOR Colour) override;
    STDMETHODIMP get_InvalidTextColour(OLE_COLOR* Colour) override;
    STDMETHODIMP put_InvalidTextColour(OLE_COLOR Colour) override;
    STDMETHODIMP get_HighlightedTextColour(OLE_COLOR* Colour) override;
    STDMETHODIMP put_HighlightedTextColour(OLE_COLOR Colour) override;
    STDMETHODIMP get_InactiveHighlightedTextColour(OLE_COLOR* Colour) override;
    STDMETHODIMP put_InactiveHighlightedTextColour(OLE_COLOR Colour) override;
    STDMETHODIMP get_ItemHighlightColour(OLE_COLOR* Colour) override;
    STDMETHODIMP put_ItemHighlightColour(OLE_COLOR Colour) override;
    STDMETHODIMP get_InactiveItemHighlightColour(OLE_COLOR* Colour) override;
    STDMETHODIMP put_InactiveItemHighlightColour(OLE_COLOR Colour) override;
    STDMETHODIMP get_GridLineColour(OLE_COLOR* Colour) override;
    STDMETHODIMP put_GridLineColour(OLE_COLOR Colour) override;
    STDMETHODIMP get_BackgroundColour(OLE_COLOR* Colour) override;
    STDMETHODIMP put_BackgroundColour(OLE_COLOR Colour) override;
    STDMETHODIMP get_AllowEditing(VARIANT_BOOL* Value) override;
    STDMETHODIMP put_AllowEditing(VARIANT_BOOL Value) override;
    STDMETHODIMP get_DividerPosition(LONG* Value) override;
    STDMETHODIMP put_DividerPosition(LONG Value) override;
    STDMETHODIMP get_ReadOnlyDataColour(OLE_COLOR* Colour) override;
    STDMETHODIMP put_ReadOnlyDataColour(OLE_COLOR Colour) override;
    STDMETHODIMP get_CategoryBackgroundColour(OLE_COLOR* Colour) override;
    STDMETHODIMP put_CategoryBackgroundColour(OLE_COLOR Colour) override;
    STDMETHODIMP get_UseSingleLevelIndentation(VARIANT_BOOL* Value) override;
    STDMETHODIMP put_UseSingleLevelIndentation(VARIANT_BOOL Value) override;
    STDMETHODIMP get_ShowExtendedInfo(VARIANT_BOOL* Value) override;
    STDMETHODIMP put_ShowExtendedInfo(VARIANT_BOOL Value) override;
    STDMETHODIMP ShowProperties(IqorPropertyCollection** CollectionInterfaces, LONG ListLength) override;
    STDMETHODIMP DoDefaultExtendedInfoAction(LONG PropertyID) override;
    STDMETHODIMP GetSelectedProperty(LONG* PropertyID) override;
    STDMETHODIMP SetSelectedProperty(LONG PropertyID) override;
    STDMETHODIMP AutoFitDivider() override;
    STDMETHODIMP Clear() override;
    STDMETHODIMP Refresh() override;
    STDMETHODIMP ExpandCollapseProperty(LONG PropertyID, VARIANT_BOOL ExpandProperty) override;
    STDMETHODIMP DoInPlaceEdit() override;
    STDMETHODIMP EndInPlaceEdit() override;
    STDMETHODIMP InitCategoryStateMap(IqorStream* StateStream) override;
    STDMETHODIMP SaveCategoryStateMap(IqorStream* StateStream) override;
    STDMETHODIMP GetPropertyDataRect(LONG PropertyID, LONG* Left, LONG* Top, LONG* Right, LONG* Bottom) override;
    STDMETHODIMP GetInPlaceEditHWND(LONG_PTR* HWND) override;
    STDMETHODIMP put_Precision(LONG Value) override;
    STDMETHODIMP SetPropVisOverrides(IqorStream* VisOverrideStream) override;
    STDMETHODIMP GetNumRefPropCollections(LONG PropertyID, LONG* NumReferences) override;
    STDMETHODIMP GetRefPropCollections(LONG PropertyID, IqorPropertyCollection** RefCollections, LONG ListLength,
                                       LONG* NumRefCollections, VARIANT_BOOL* Success) override;
    STDMETHODIMP GetFirstRefPropCollection(LONG PropertyID, IqorPropertyCollection** PropertyCollection) override;
    STDMETHODIMP get_ShowHelpStringTooltips(VARIANT_BOOL* Value) override;
    STDMETHODIMP put_ShowHelpStringTooltips(VARIANT_BOOL Value) override;
    STDMETHODIMP get_InvalidDataItemColour(OLE_COLOR* Colour) override;
    STDMETHODIMP put_InvalidDataItemColour(OLE_COLOR Colour) override;
    STDMETHODIMP get_Use32BPPimages(VARIANT_BOOL* Value) override;
    STDMETHODIMP put_Use32BPPimages(VARIANT_BOOL Value) override;
    STDMETHODIMP GetNetSelectedPropertyString(BSTR* NetPropertyString) override;
    STDMETHODIMP CancelInPlaceEdit() override;

    // GridHost
    void AddGridReference() noexcept override { static_cast<IOleObject*>(this)->AddRef(); }
    void ReleaseGridReference() noexcept override { static_cast<IOleObject*>(this)->Release(); }
    void FireExtendedInfoButtonClicked(CprpPropItem& item) override;
    void FireMultiEditStart() override;
    void FireMultiEditEnd() override;
    COLORREF CategoryBackground() const override;

    // CollectionListener
    HRESULT OnCollectionEvents(IqorStream* stream, IqorPropertyCollection& collection) override;

    /// The list with its rows, readable without painting.
    const CqorODListBox& List() const { return m_listBox; }

protected:
    // ControlBase
    IDispatch& Automation() override { return *this; }
    ConnectionPoint* EventPoint() override { return &m_events; }
    void OnSiteSet() override;
    void OnWindowCreated() override;
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnDraw(HDC dc, const Rect& place) override;
    bool TakesKey(const MSG& message) override;

private:
    static const Origin kOrigin;
    static const DefaultFont kDefaultFont;
    static constexpr LONG kFirstColumnWidth = 50; ///< pixels of a position's column before any is measured

    using Proxy = CProxy_IprpCollectionViewerCtrlEvents;
    using Collections = std::vector<CComPtr<IqorPropertyCollection>>;

    // Window
    LRESULT OnCommand(WPARAM wParam, LPARAM lParam);
    void OnSelectionChanged();
    void OnItemToggled(CqorLBItem* item, bool collapsed);
    LRESULT OnDestroy(WPARAM wParam, LPARAM lParam);
    DWORD ListStyle() const;
    void CreateImages();
    void PlaceList(UINT flags);
    void UpdateListVisibility();
    void RedrawAll();
    HBRUSH BackgroundBrush();

    // Looks
    HRESULT GetColour(const OLECHAR* method, const OLE_COLOR& stored, OLE_COLOR* out) const;
    HRESULT PutColour(const OLECHAR* method, OLE_COLOR colour, OLE_COLOR& stored, COLORREF SqorLBDrawSettings::*setting,
                      bool erase = false);
    HRESULT GetFlag(const OLECHAR* method, bool stored, VARIANT_BOOL* out) const;
    void ApplyColours();
    void ApplyFlags();
    void ApplyFont();
    void InvalidateList(bool erase);
    void SetListStyleBit(int index, DWORD bit, bool on);

    // Content
    void Show(const Collections& collections);
    void DropContent();
    void DropRows();
    void CreateRows();
    void CreateRoot(CprpMultiplePropInfo& node);
    std::unique_ptr<CprpPropItem> CreateItem(CprpMultiplePropInfo& node, CqorLBItem* parent);
    bool IsVisibleEverywhere(const CprpMultiplePropInfo& node) const;
    void SetPrecisionOf(CqorLBItem& item) const;

    // Rows
    /// The row of a property, null without one.
    CprpPropItem* RowFor(LONG id) const;
    CprpPropItem* SelectedRow() const;
    void EditSelectedRow();

    // Update
    class RedrawSwitch;
    void ApplyEvents(IqorStream& stream);
    void ApplyEdited(const SprpEventInfo& record);
    void ApplyVisibility(LONG id);
    void ApplyDeleted(LONG id);

    /// Fires an event with the viewer kept in memory. The host may do anything inside.
    template <class... Parameters, class... Arguments>
    void Fire(void (Proxy::*event)(Parameters...), const Arguments&... arguments)
    {
        const CComPtr<IOleObject> kept(this);
        if (!EventsAreFrozen())
            (m_events.*event)(arguments...);
    }

    // Colours as hosts give them, in their OLE forms
    OLE_COLOR m_crNormalText;
    OLE_COLOR m_crInvalidText;
    OLE_COLOR m_crInvalidDataItem = 0;
    OLE_COLOR m_crHighlightedText;
    OLE_COLOR m_crItemHighlight;
    OLE_COLOR m_crGridLine;
    OLE_COLOR m_crBackground;
    OLE_COLOR m_crInactiveHighlightedText = 0;
    OLE_COLOR m_crInactiveItemHighlight = 0xD2D2D2;
    OLE_COLOR m_crReadOnlyData;
    OLE_COLOR m_crCategoryBackground;

    bool m_bAllowEditing = true;
    bool m_bUseSingleLevelIndentation = true;
    bool m_bShowExtendedInfo = true;
    bool m_bShowHelpStringTooltips = true;
    CategoryStates m_mapCategoryState;
    CqorODListBox m_listBox;
    LONG m_nDividerPosition = kListMetrics.dividerStart;
    LONG m_nPrecision = 4;
    FontOwner m_fontList;
    Connections m_arrSinks;
    Collections m_listCollections;
    VisibilityOverrides m_mapVisOverrides;
    PropertyTree m_treeProperties;
    LONG m_nPosColumnX = kFirstColumnWidth;
    LONG m_nPosColumnY = kFirstColumnWidth;
    LONG m_nPosColumnZ = kFirstColumnWidth;
    ImageListOwner m_imageList;
    bool m_bUse32BPPimages = false;
    BrushOwner m_brBackground;
    Proxy m_events{*this};
    unsigned m_nShowing = 0; ///< changes with every content
};
