// A host of the viewer: window, site, collections, and a sink that writes down every event and may act inside of it.
#pragma once

#include "tests/core/ModelFixture.h"
#include "tests/support/windows/ControlContainer.h"
#include "tests/support/windows/WindowTools.h"
#include "viewer/prpCollectionViewerCtrl.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

using Heard = std::vector<std::string>;

/// Late bound, as a script's sink is.
class ViewerSink : public CComObjectRootEx<CComSingleThreadModel>, public IDispatch {
public:
    using Interfaces = InterfaceList<IDispatch>;

    Heard heard;
    /// Called inside each event of the name.
    std::map<std::string, std::function<void()>> reactions;
    HRESULT answer = S_OK;

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                        UINT*) override;
};

class ViewerHost {
public:
    /// @param activate  false leaves the control without a window
    explicit ViewerHost(bool activate = true);
    ~ViewerHost();
    ViewerHost(const ViewerHost&) = delete;
    ViewerHost& operator=(const ViewerHost&) = delete;

    void Activate(LONG verb = OLEIVERB_INPLACEACTIVATE);
    /// Gives the last references of the host back.
    void Release();

    IqorPropertyCollection& AddCollection();
    /// Adds a property to all collections, editable by default, with the name "Item <id>".
    void Add(LONG id, EprpPropDataType type, LONG parent = E_PROP_ID_TOP_LEVEL, LONG editFlags = E_PROP_EDIT_VALUE);
    void AddTo(std::size_t collection, LONG id, EprpPropDataType type, LONG parent = E_PROP_ID_TOP_LEVEL,
               LONG editFlags = E_PROP_EDIT_VALUE);
    /// Changes a property in a transaction that fires.
    void Change(LONG id, const std::function<void(IqorProperty*)>& change, std::size_t collection = 0);
    void SetVisible(LONG id, bool visible, std::size_t collection = 0);
    void Remove(LONG id, std::size_t collection = 0);
    Text ValueOf(LONG id, std::size_t collection = 0);

    /// Shows all collections.
    void Show();
    /// Ids of the displayed rows from the top.
    std::vector<LONG> Rows() const;
    int RowOf(LONG id) const;
    CprpPropItem* ItemOf(LONG id) const;
    Text DataOf(LONG id) const { return ItemOf(id)->m_strData; }
    LONG Selected() const;
    /// Selects a row as a click on its name does.
    void Click(LONG id);
    void ClickBox(LONG id);
    /// Opens the text box of a row. False when none opened.
    bool Edit(LONG id);
    HWND EditWindow() const;
    void TypeOver(const std::wstring& text);
    /// Events since it was last asked, the queue emptied first.
    Heard Sounds();
    void On(const std::string& event, std::function<void()> reaction) { sink->reactions[event] = std::move(reaction); }

    HWND ListWindow() const { return viewer->List().Handle(); }
    CqorODListBox& List() const { return const_cast<CqorODListBox&>(viewer->List()); }

    ContainerWindow window;
    ControlContainer* site = nullptr;
    CComPtr<IprpCollectionViewerCtrl> control;
    CprpCollectionViewerCtrl* viewer = nullptr; ///< the object behind; valid while a reference is held
    ViewerSink* sink = nullptr;
    std::vector<CComPtr<IqorPropertyCollection>> collections;

private:
    CComPtr<IOleClientSite> m_siteReference;
    CComPtr<IDispatch> m_sinkReference;
    DWORD m_cookie = 0;
};

/// Connects another sink; the caller lets it go.
ViewerSink* MakeViewerSink(CComPtr<IDispatch>& reference);
DWORD ConnectTo(IUnknown* control, IDispatch* sink);
void DisconnectFrom(IUnknown* control, DWORD cookie);
