#include "platform/atl/ComObject.h"
#include "platform/atl/ComPtr.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

int g_living = 0;
int g_finallyReleased = 0;
HRESULT g_finalConstruct = S_OK;

/// Two interfaces, the second of which is reached only by its own base.
class Part : public CComObjectRootEx<CComMultiThreadModel>, public IPersist, public ISupportErrorInfoImpl<IPersist> {
public:
    using Interfaces = InterfaceList<IPersist, ISupportErrorInfo>;

    Part() { ++g_living; }
    ~Part() { --g_living; }

    HRESULT FinalConstruct() { return g_finalConstruct; }
    void FinalRelease()
    {
        ++g_finallyReleased;
        CComPtr<IPersist>(static_cast<IPersist*>(this)).Release(); // as a part that says good-bye to its listeners
    }

    STDMETHODIMP GetClassID(CLSID* clsid) override
    {
        *clsid = CLSID_NULL;
        return S_OK;
    }
};

class ComObjects : public testing::Test {
protected:
    void SetUp() override
    {
        g_finallyReleased = 0;
        g_finalConstruct = S_OK;
    }
    static CComPtr<IPersist> Make()
    {
        CComObject<Part>* object = nullptr;
        EXPECT_EQ(CComObject<Part>::CreateInstance(&object), S_OK);
        CComPtr<IPersist> part;
        part.Attach(object);
        return part;
    }
};

TEST_F(ComObjects, LiveUntilTheLastReferenceIsGone)
{
    CComPtr<IPersist> part = Make();
    EXPECT_EQ(g_living, 1);
    CComPtr<IPersist> second = part;
    part.Release();
    EXPECT_EQ(g_living, 1);
    second.Release();
    EXPECT_EQ(g_living, 0);
}

TEST_F(ComObjects, AreFinallyReleasedOnceWhateverHappensMeanwhile)
{
    Make();
    EXPECT_EQ(g_finallyReleased, 1);
    EXPECT_EQ(g_living, 0);
}

TEST_F(ComObjects, HaveOneIdentityWhicheverInterfaceIsAsked)
{
    const CComPtr<IPersist> part = Make();
    CComPtr<ISupportErrorInfo> other;
    ASSERT_EQ(part.QueryInterface(&other), S_OK);
    CComPtr<IUnknown> one;
    CComPtr<IUnknown> same;
    EXPECT_EQ(part.QueryInterface(&one), S_OK);
    EXPECT_EQ(other.QueryInterface(&same), S_OK);
    EXPECT_EQ(one.p, same.p);
    EXPECT_EQ(other->InterfaceSupportsErrorInfo(IID_IPersist), S_OK);
    EXPECT_EQ(other->InterfaceSupportsErrorInfo(IID_IDispatch), S_FALSE);
}

TEST_F(ComObjects, RefuseInterfacesThatTheyDoNotList)
{
    const CComPtr<IPersist> part = Make();
    void* out = &out;
    EXPECT_EQ(part->QueryInterface(IID_IDispatch, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(part->QueryInterface(IID_IPersist, nullptr), E_POINTER);
}

TEST_F(ComObjects, AreDestroyedWhenTheirConstructionFails)
{
    g_finalConstruct = E_FAIL;
    CComObject<Part>* object = nullptr;
    EXPECT_EQ(CComObject<Part>::CreateInstance(&object), E_FAIL);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(g_living, 0);
}

TEST_F(ComObjects, KeepTheirModuleLoaded)
{
    const LONG before = Module::LockCount();
    {
        const CComPtr<IPersist> part = Make();
        EXPECT_EQ(Module::LockCount(), before + 1);
    }
    EXPECT_EQ(Module::LockCount(), before);
}

TEST_F(ComObjects, CountReferencesOfManyThreads)
{
    const CComPtr<IPersist> part = Make();
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < 5000; ++round)
                CComPtr<IPersist> shared(part);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    part->AddRef();
    EXPECT_EQ(part->Release(), 1u);
}

class Factories : public ComObjects {
protected:
    void SetUp() override
    {
        ComObjects::SetUp();
        ASSERT_EQ(ClassFactory<Part>::Get(IID_IClassFactory, reinterpret_cast<void**>(&factory)), S_OK);
    }
    CComPtr<IClassFactory> factory;
};

TEST_F(Factories, MakeObjectsByInterface)
{
    CComPtr<ISupportErrorInfo> part;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_ISupportErrorInfo, reinterpret_cast<void**>(&part)), S_OK);
    EXPECT_EQ(g_living, 1);
}

TEST_F(Factories, LeaveNothingBehindWhenTheInterfaceIsMissing)
{
    void* out = &out;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(g_living, 0);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IDispatch, nullptr), E_POINTER);
}

TEST_F(Factories, MakeNoPartOfAnotherObject)
{
    void* out = nullptr;
    EXPECT_EQ(factory->CreateInstance(factory, IID_IUnknown, &out), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(out, nullptr);
}

TEST_F(Factories, LockTheirModuleOnRequest)
{
    const LONG before = Module::LockCount();
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    EXPECT_EQ(Module::LockCount(), before + 1);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
    EXPECT_EQ(Module::LockCount(), before);
}

} // namespace
