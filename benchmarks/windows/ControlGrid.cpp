#include "benchmarks/windows/ControlGrid.h"

ControlGrid::ControlGrid(const GridData& data)
    : m_data(data), m_parent([](UINT, WPARAM, LPARAM, LRESULT&) { return false; })
{
    CComObjectNoLock<ControlContainer>* container = nullptr;
    MustSucceed(CComObjectNoLock<ControlContainer>::CreateInstance(&container), "creating a container");
    m_site.Attach(container);
    container->window = m_parent.Handle();
    container->place = {0, 0, kGridWidth, kGridHeight};

    CComObject<CprpCollectionViewerCtrl>* made = nullptr;
    MustSucceed(CComObject<CprpCollectionViewerCtrl>::CreateInstance(&made), "creating the control");
    m_control.Attach(made);
    CComPtr<IOleObject> object;
    MustSucceed(m_control.QueryInterface(&object), "asking for IOleObject");
    MustSucceed(object->SetClientSite(container), "SetClientSite");
    MustSucceed(object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, container, 0, m_parent.Handle(), nullptr), "DoVerb");
    m_list = made->List().Handle();
}

ControlGrid::~ControlGrid()
{
    m_control->Clear();
    CComPtr<IOleObject> object;
    MustSucceed(m_control.QueryInterface(&object), "asking for IOleObject");
    object->Close(OLECLOSE_NOSAVE);
    object->SetClientSite(nullptr);
}

void ControlGrid::Fill()
{
    IqorPropertyCollection* shown[] = {&m_data.Collection()};
    MustSucceed(m_control->ShowProperties(shown, 1), "ShowProperties");
    UpdateWindow(m_list);
    GdiFlush();
}

void ControlGrid::Change(double start)
{
    IqorPropertyCollection& collection = m_data.Collection();
    MustSucceed(collection.StartTransaction(-1), "StartTransaction");
    GiveValues(m_data, start);
    MustSucceed(collection.EndTransaction(VARIANT_TRUE), "EndTransaction");
    UpdateWindow(m_list);
    GdiFlush();
}
