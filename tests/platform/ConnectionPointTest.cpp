#include "platform/atl/ConnectionPoint.h"
#include "platform/atl/ComObject.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr IID kEvents = {0xA4000000, 0, 0, {0, 0, 0, 0, 0, 0, 0, 1}};

/// Late bound: answers for IDispatch only, and writes its number down when it is called.
class Sink : public CComObjectRootEx<CComMultiThreadModel>, public IDispatch {
public:
    using Interfaces = InterfaceList<IDispatch>;

    std::vector<int>* calls = nullptr;
    int number = 0;
    HRESULT answer = S_OK;
    std::function<void()> during;

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* params, VARIANT*, EXCEPINFO*,
                        UINT*) override
    {
        EXPECT_EQ(id, 7);
        EXPECT_EQ(iid, IID_NULL);
        EXPECT_EQ(locale, 1024u);
        EXPECT_EQ(flags, DISPATCH_METHOD);
        EXPECT_EQ(params->cArgs, 1u);
        EXPECT_EQ(params->cNamedArgs, 0u);
        EXPECT_EQ(V_I4(&params->rgvarg[0]), 42);
        calls->push_back(number);
        if (during)
            during();
        return answer;
    }
};

class Point final : public ConnectionPoint {
public:
    explicit Point(IConnectionPointContainer& container) : ConnectionPoint(container, kEvents) {}
};

/// A component with one connection point.
class Source : public CComObjectRootEx<CComMultiThreadModel>, public IConnectionPointContainer {
public:
    using Interfaces = InterfaceList<IConnectionPointContainer>;

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** out) override
    {
        return EnumerateConnectionPoints({&point}, out);
    }
    STDMETHODIMP FindConnectionPoint(REFIID, IConnectionPoint**) override { return E_NOTIMPL; }

    Point point{*this};
};

class ConnectionPoints : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_EQ(CComObject<Source>::CreateInstance(&source), S_OK);
        container.Attach(source);
    }

    CComPtr<IDispatch> MakeSink(int number, std::function<void()> during = {})
    {
        CComObject<Sink>* sink = nullptr;
        EXPECT_EQ(CComObject<Sink>::CreateInstance(&sink), S_OK);
        sink->calls = &calls;
        sink->number = number;
        sink->during = std::move(during);
        last = sink;
        CComPtr<IDispatch> owner;
        owner.Attach(sink);
        return owner;
    }
    DWORD Advise(const CComPtr<IDispatch>& sink)
    {
        DWORD cookie = 0;
        EXPECT_EQ(source->point.Advise(sink, &cookie), S_OK);
        return cookie;
    }
    HRESULT Fire()
    {
        VARIANT argument{};
        V_VT(&argument) = VT_I4;
        V_I4(&argument) = 42;
        return source->point.Fire(7, &argument, 1);
    }

    std::vector<int> calls;
    Sink* last = nullptr;
    CComObject<Source>* source = nullptr;
    CComPtr<IConnectionPointContainer> container;
};

TEST_F(ConnectionPoints, CallTheirSinksInOrder)
{
    Advise(MakeSink(1));
    Advise(MakeSink(2));
    EXPECT_EQ(Fire(), S_OK);
    EXPECT_THAT(calls, ElementsAre(1, 2));
}

TEST_F(ConnectionPoints, FillTheFirstFreeSlot)
{
    const DWORD first = Advise(MakeSink(1));
    Advise(MakeSink(2));
    EXPECT_EQ(source->point.Unadvise(first), S_OK);
    EXPECT_EQ(Advise(MakeSink(3)), first);
    Fire();
    EXPECT_THAT(calls, ElementsAre(3, 2));
}

TEST_F(ConnectionPoints, GoOnBehindASinkThatFailsAndReturnTheLastResult)
{
    Advise(MakeSink(1));
    last->answer = E_FAIL;
    Advise(MakeSink(2));
    EXPECT_EQ(Fire(), S_OK);
    last->answer = E_ABORT;
    EXPECT_EQ(Fire(), E_ABORT);
    EXPECT_THAT(calls, ElementsAre(1, 2, 1, 2));
}

TEST_F(ConnectionPoints, FireWithoutSinks)
{
    EXPECT_FALSE(source->point.HasSinks());
    EXPECT_EQ(Fire(), S_OK);
}

TEST_F(ConnectionPoints, DoNotCallASinkThatLeftBeforeItsTurn)
{
    DWORD second = 0;
    Advise(MakeSink(1, [&] { source->point.Unadvise(second); }));
    second = Advise(MakeSink(2));
    Fire();
    EXPECT_THAT(calls, ElementsAre(1));
}

TEST_F(ConnectionPoints, KeepASinkAliveThatLeavesDuringItsOwnCall)
{
    DWORD own = 0;
    bool stillHere = false;
    own = Advise(MakeSink(1, [&] {
        source->point.Unadvise(own);
        stillHere = last->number == 1;
    }));
    Fire();
    EXPECT_TRUE(stillHere);
    EXPECT_FALSE(source->point.HasSinks());
}

TEST_F(ConnectionPoints, LeaveASinkThatComesDuringAnEventForTheNextOne)
{
    Advise(MakeSink(1, [&] {
        if (calls.size() == 1)
            Advise(MakeSink(2));
    }));
    Fire();
    EXPECT_THAT(calls, ElementsAre(1));
    Fire();
    EXPECT_THAT(calls, ElementsAre(1, 1, 2));
}

TEST_F(ConnectionPoints, ReleaseTheSinksThatTheyDrop)
{
    const CComPtr<IDispatch> sink = MakeSink(1);
    Advise(sink);
    sink->AddRef();
    EXPECT_EQ(sink->Release(), 2u);
    source->point.DropSinks();
    sink->AddRef();
    EXPECT_EQ(sink->Release(), 1u);
    Fire();
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(ConnectionPoints, RefuseWhatTheyDoNotKnow)
{
    DWORD cookie = 5;
    EXPECT_EQ(source->point.Unadvise(0), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(source->point.Unadvise(1), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(source->point.Advise(container, &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(cookie, 0u);
    EXPECT_EQ(source->point.Advise(nullptr, &cookie), E_POINTER);
    EXPECT_EQ(source->point.Advise(MakeSink(1), nullptr), E_POINTER);
}

TEST_F(ConnectionPoints, TellTheirInterfaceAndTheirComponent)
{
    IID iid{};
    EXPECT_EQ(source->point.GetConnectionInterface(&iid), S_OK);
    EXPECT_EQ(iid, kEvents);
    CComPtr<IConnectionPointContainer> found;
    EXPECT_EQ(source->point.GetConnectionPointContainer(&found), S_OK);
    EXPECT_EQ(found.p, container.p);
}

TEST_F(ConnectionPoints, ListTheirConnections)
{
    Advise(MakeSink(1));
    const DWORD second = Advise(MakeSink(2));
    CComPtr<IEnumConnections> connections;
    ASSERT_EQ(source->point.EnumConnections(&connections), S_OK);
    EXPECT_EQ(connections->Skip(1), S_OK);
    CONNECTDATA data[2]{};
    ULONG fetched = 0;
    EXPECT_EQ(connections->Next(2, data, &fetched), S_FALSE);
    ASSERT_EQ(fetched, 1u);
    EXPECT_EQ(data[0].dwCookie, second);
    data[0].pUnk->Release();
    EXPECT_EQ(connections->Reset(), S_OK);
    EXPECT_EQ(connections->Skip(3), S_FALSE);
}

TEST_F(ConnectionPoints, AreListedByTheirComponent)
{
    CComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(container->EnumConnectionPoints(&points), S_OK);
    CComPtr<IEnumConnectionPoints> copy;
    ASSERT_EQ(points->Clone(&copy), S_OK);
    CComPtr<IConnectionPoint> point;
    EXPECT_EQ(points->Next(1, &point, nullptr), S_OK);
    EXPECT_EQ(point.p, &source->point);
    CComPtr<IConnectionPoint> none;
    EXPECT_EQ(points->Next(1, &none, nullptr), S_FALSE);
    EXPECT_EQ(copy->Next(1, &none, nullptr), S_OK) << "the copy has a place of its own";
}

} // namespace
