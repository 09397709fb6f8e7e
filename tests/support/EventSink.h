// A sink of collection events that writes down what it receives.
#pragma once

#include "LV_prpPropCollection.h"
#include "platform/atl/ComObject.h"
#include "platform/atl/ComPtr.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <thread>
#include <vector>

/// One record of an event stream with the text behind it.
struct EventSeen {
    EprpEventType type = E_PROP_EVENT_NONE;
    LONG id = 0;
    LONG collection = 0;
    LONG long1 = 0;
    bool visibilityChanged = false;
    bool dataChanged = false;
    std::optional<Text> oldText;

    bool operator==(const EventSeen&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const EventSeen& seen)
{
    out << "{type " << seen.type << ", id " << seen.id << ", collection " << seen.collection << ", long1 " << seen.long1
        << (seen.visibilityChanged ? ", visibility" : "") << (seen.dataChanged ? ", data" : "");
    if (seen.oldText)
        out << ", was '" << std::string(seen.oldText->begin(), seen.oldText->end()) << "'";
    return out << "}";
}

/// Reads a whole event stream from its start.
inline std::vector<EventSeen> ReadEvents(IqorStream* stream)
{
    std::vector<EventSeen> events;
    EStreamError error = E_STREAM_ERROR_NONE;
    EXPECT_EQ(stream->Seek(0, E_STREAM_ORIGIN_START, &error), S_OK);
    for (;;) {
        SprpEventInfo record{};
        LONG read = 0;
        EXPECT_EQ(stream->Read(&record, sizeof record, &read, &error), S_OK);
        if (error == E_STREAM_ERROR_END_OF_FILE)
            return events;
        EXPECT_EQ(read, LONG{sizeof record});
        EXPECT_EQ(error, E_STREAM_ERROR_NONE);
        if (read != LONG{sizeof record})
            return events;
        EventSeen seen{record.eEventType,
                       record.nPropID,
                       record.nPropCollectionID,
                       record.nLong1,
                       record.bVisiblityChanged == VARIANT_TRUE,
                       record.bDataChanged == VARIANT_TRUE,
                       {}};
        if (seen.type == E_PROP_EVENT_PROP_EDITED && seen.dataChanged) {
            CComBSTR text;
            LONG length = 0;
            EXPECT_EQ(stream->ReadString(&text, &length, &error), S_OK);
            EXPECT_EQ(error, E_STREAM_ERROR_NONE);
            seen.oldText = Text(text.View());
        }
        events.push_back(std::move(seen));
    }
}

/// Late bound, as sinks are: answers for IDispatch only.
class RecordingSink : public CComObjectRootEx<CComMultiThreadModel>, public IDispatch {
public:
    using Interfaces = InterfaceList<IDispatch>;

    std::vector<std::vector<EventSeen>> streams; ///< one entry for each call
    std::vector<std::thread::id> threads;        ///< that the calls came on
    std::function<void(IqorStream*)> onStream;   ///< runs inside the call, behind the recording
    HRESULT answer = S_OK;

    /// All records of all calls, one behind the other.
    std::vector<EventSeen> Records() const
    {
        std::vector<EventSeen> all;
        for (const auto& stream : streams)
            all.insert(all.end(), stream.begin(), stream.end());
        return all;
    }
    void Clear()
    {
        streams.clear();
        threads.clear();
    }

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* params, VARIANT*, EXCEPINFO*,
                        UINT*) override
    {
        EXPECT_EQ(id, 1);
        EXPECT_TRUE(iid == IID_NULL);
        EXPECT_EQ(locale, 1024U);
        EXPECT_EQ(flags, DISPATCH_METHOD);
        EXPECT_EQ(params->cArgs, 1U);
        EXPECT_EQ(V_VT(&params->rgvarg[0]), VT_UNKNOWN);
        CComPtr<IqorStream> stream;
        EXPECT_EQ(
            V_UNKNOWN(&params->rgvarg[0])->QueryInterface(__uuidof(IqorStream), reinterpret_cast<void**>(&stream)),
            S_OK);
        streams.push_back(ReadEvents(stream));
        threads.push_back(std::this_thread::get_id());
        if (onStream)
            onStream(stream);
        return answer;
    }
};

/// A sink connected to a collection for the time of its life.
class ConnectedSink {
public:
    explicit ConnectedSink(IqorPropertyCollection* collection)
    {
        CComObject<RecordingSink>* object = nullptr;
        EXPECT_EQ(CComObject<RecordingSink>::CreateInstance(&object), S_OK);
        m_sink.Attach(object);
        m_object = object;
        CComPtr<IConnectionPointContainer> container;
        EXPECT_EQ(collection->QueryInterface(__uuidof(IConnectionPointContainer), reinterpret_cast<void**>(&container)),
                  S_OK);
        EXPECT_EQ(container->FindConnectionPoint(DIID__IqorPropertyCollectionEvents, &m_point), S_OK);
        EXPECT_EQ(m_point->Advise(m_sink, &m_cookie), S_OK);
    }
    ConnectedSink(const ConnectedSink&) = delete;
    ConnectedSink& operator=(const ConnectedSink&) = delete;
    ~ConnectedSink()
    {
        if (m_cookie)
            Disconnect();
    }

    void Disconnect()
    {
        EXPECT_EQ(m_point->Unadvise(m_cookie), S_OK);
        m_cookie = 0;
        m_point.Release();
    }
    RecordingSink* operator->() const { return m_object; }

private:
    CComPtr<IDispatch> m_sink;
    RecordingSink* m_object = nullptr;
    CComPtr<IConnectionPoint> m_point;
    DWORD m_cookie = 0;
};
