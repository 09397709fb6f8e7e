#include "benchmarks/EventReader.h"

#include "LV_suiteStream.h"
#include "benchmarks/Host.h"

STDMETHODIMP EventReader::QueryInterface(REFIID iid, void** out)
{
    *out = nullptr;
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == DIID__IqorPropertyCollectionEvents)
        *out = static_cast<IDispatch*>(this);
    if (!*out)
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) EventReader::Release()
{
    const ULONG left = --m_count;
    if (left == 0)
        delete this;
    return left;
}

STDMETHODIMP EventReader::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* params, VARIANT*, EXCEPINFO*, UINT*)
{
    if (id != 1 || params->cArgs != 1)
        return DISP_E_MEMBERNOTFOUND;
    CComPtr<IqorStream> stream;
    MustSucceed(V_UNKNOWN(&params->rgvarg[0])->QueryInterface(IID_IqorStream, reinterpret_cast<void**>(&stream)),
                "asking the argument for its stream");
    Read(*stream);
    return S_OK;
}

void EventReader::Read(IqorStream& stream)
{
    EStreamError error = E_STREAM_ERROR_NONE;
    MustSucceed(stream.Seek(0, E_STREAM_ORIGIN_START, &error), "Seek");
    CComPtr<IqorStreamDirect> direct;
    if (m_how != OldTexts::Copied)
        MustSucceed(stream.QueryInterface(IID_IqorStreamDirect, reinterpret_cast<void**>(&direct)), "direct reading");
    for (;;) {
        SprpEventInfo record{};
        LONG bytes = 0;
        MustSucceed(stream.Read(&record, sizeof record, &bytes, &error), "Read");
        if (error == E_STREAM_ERROR_END_OF_FILE)
            return;
        ++m_records;
        m_checksum += static_cast<uint64_t>(record.nPropID);
        if (record.eEventType != E_PROP_EVENT_PROP_EDITED || !record.bDataChanged)
            continue;
        LONG length = 0;
        if (m_how == OldTexts::Copied) {
            BSTR text = nullptr;
            MustSucceed(stream.ReadString(&text, &length, &error), "ReadString");
            SysFreeString(text);
        } else if (m_how == OldTexts::InPlace) {
            const OLECHAR* text = nullptr;
            MustSucceed(direct->PeekString(&text, &length), "PeekString");
        } else {
            MustSucceed(direct->SkipString(), "SkipString");
        }
        m_checksum += static_cast<uint64_t>(length);
    }
}

Subscription::Subscription(IqorPropertyCollection& collection, IDispatch& sink)
{
    CComPtr<IConnectionPointContainer> container;
    MustSucceed(collection.QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(&container)),
                "asking for connection points");
    MustSucceed(container->FindConnectionPoint(DIID__IqorPropertyCollectionEvents, &m_point), "FindConnectionPoint");
    MustSucceed(m_point->Advise(&sink, &m_cookie), "Advise");
}

Subscription::~Subscription()
{
    m_point->Unadvise(m_cookie);
}
