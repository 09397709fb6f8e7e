#include "viewer/prpCollectionSink.h"

#include "frame/Raise.h"

#include <utility>

namespace {

constexpr DISPID kPropertyEventStream = 1;

HRESULT FindEvents(IqorPropertyCollection& collection, CComPtr<IConnectionPoint>& point)
{
    CComPtr<IConnectionPointContainer> container;
    const HRESULT hr = collection.QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(&container));
    return FAILED(hr) ? hr : container->FindConnectionPoint(DIID__IqorPropertyCollectionEvents, &point);
}

} // namespace

CComPtr<CprpCollectionSink> CprpCollectionSink::Connect(CollectionListener& viewer, IqorPropertyCollection& collection)
{
    CComObject<CprpCollectionSink>* made = nullptr;
    Must(CComObject<CprpCollectionSink>::CreateInstance(&made));
    CComPtr<CprpCollectionSink> sink;
    sink.Attach(made);
    CComPtr<IConnectionPoint> point;
    Must(FindEvents(collection, point));
    Must(point->Advise(sink, &made->m_dwCookie));
    made->m_pViewer = &viewer;
    made->m_spCollection = &collection;
    return sink;
}

void CprpCollectionSink::Disconnect() noexcept
{
    const CComPtr<IDispatch> kept(this);
    m_pViewer = nullptr;
    const CComPtr<IqorPropertyCollection> collection = std::move(m_spCollection);
    CComPtr<IConnectionPoint> point;
    if (collection && SUCCEEDED(FindEvents(*collection, point)))
        point->Unadvise(std::exchange(m_dwCookie, kNotConnected));
}

STDMETHODIMP CprpCollectionSink::GetTypeInfoCount(UINT* count)
{
    if (!count)
        return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP CprpCollectionSink::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                                        UINT*)
{
    if (id != kPropertyEventStream)
        return DISP_E_MEMBERNOTFOUND;
    if (!parameters || parameters->cArgs != 1 || V_VT(parameters->rgvarg) != VT_UNKNOWN ||
        !V_UNKNOWN(parameters->rgvarg))
        return DISP_E_BADPARAMCOUNT;
    CComPtr<IqorStream> stream;
    const HRESULT hr = V_UNKNOWN(parameters->rgvarg)->QueryInterface(IID_IqorStream, reinterpret_cast<void**>(&stream));
    if (FAILED(hr))
        return hr;
    const CComPtr<IqorPropertyCollection> collection = m_spCollection;
    return m_pViewer && collection ? m_pViewer->OnCollectionEvents(stream, *collection) : S_OK;
}
