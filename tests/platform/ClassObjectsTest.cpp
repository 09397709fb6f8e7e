#include "platform/atl/ComObject.h"
#include "platform/atl/ComPtr.h"
#include "platform/com/ClassTable.h"
#include "tests/platform/CountedUnknown.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

constexpr CLSID kProbe = {0xA3000000, 0, 0, {0, 0, 0, 0, 0, 0, 0, 1}};
constexpr CLSID kAbsent = {0xA3000000, 0, 0, {0, 0, 0, 0, 0, 0, 0, 2}};

/// The smallest component: it answers for ISupportErrorInfo.
class Probe : public CComObjectRootEx<CComMultiThreadModel>, public ISupportErrorInfoImpl<IPersist> {
public:
    using Interfaces = InterfaceList<ISupportErrorInfo>;
};

const RegisteredClass g_probe(kProbe, OLESTR("Tests.Probe.1"), ClassFactory<Probe>::Get);

class ClassObjects : public testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK); }
    void TearDown() override { CoUninitialize(); }

    static HRESULT Get(REFCLSID clsid, IUnknown** out)
    {
        return CoGetClassObject(clsid, CLSCTX_INPROC_SERVER, nullptr, IID_IUnknown, reinterpret_cast<void**>(out));
    }
};

TEST_F(ClassObjects, MakeInstancesOfTheTablesClasses)
{
    CComPtr<ISupportErrorInfo> probe;
    ASSERT_EQ(probe.CoCreateInstance(kProbe), S_OK);
    EXPECT_EQ(probe->InterfaceSupportsErrorInfo(IID_IPersist), S_OK);
}

TEST_F(ClassObjects, AreUnknownForOtherClasses)
{
    CComPtr<ISupportErrorInfo> probe;
    EXPECT_EQ(probe.CoCreateInstance(kAbsent), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(probe.p, nullptr);
}

TEST_F(ClassObjects, AreOfThisProcessOnly)
{
    CComPtr<ISupportErrorInfo> probe;
    EXPECT_EQ(probe.CoCreateInstance(kProbe, CLSCTX_LOCAL_SERVER), REGDB_E_CLASSNOTREG);
}

TEST_F(ClassObjects, LeaveTheOutPointerNullWhenTheInterfaceIsMissing)
{
    void* object = &object;
    EXPECT_EQ(CoCreateInstance(kProbe, nullptr, CLSCTX_INPROC_SERVER, IID_IPersist, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(CoCreateInstance(kProbe, nullptr, CLSCTX_INPROC_SERVER, IID_IPersist, nullptr), E_POINTER);
}

TEST_F(ClassObjects, RegisteredByTheProcessComeBeforeTheTable)
{
    CountedUnknown own;
    DWORD cookie = 0;
    ASSERT_EQ(CoRegisterClassObject(kProbe, &own, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie), S_OK);
    CComPtr<IUnknown> found;
    EXPECT_EQ(Get(kProbe, &found), S_OK);
    EXPECT_EQ(found.p, &own);
    found.Release();

    EXPECT_EQ(CoRevokeClassObject(cookie), S_OK);
    EXPECT_EQ(Get(kProbe, &found), S_OK);
    EXPECT_NE(found.p, &own);
    EXPECT_EQ(own.Count(), 1u);
}

TEST_F(ClassObjects, AreGoneOnceTheyAreRevoked)
{
    CountedUnknown own;
    DWORD cookie = 0;
    ASSERT_EQ(CoRegisterClassObject(kAbsent, &own, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie), S_OK);
    EXPECT_EQ(CoRevokeClassObject(cookie), S_OK);
    CComPtr<IUnknown> found;
    EXPECT_EQ(Get(kAbsent, &found), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(CoRevokeClassObject(cookie), E_INVALIDARG);
}

TEST_F(ClassObjects, ForSingleUseServeOnce)
{
    CountedUnknown own;
    DWORD cookie = 0;
    ASSERT_EQ(CoRegisterClassObject(kAbsent, &own, CLSCTX_INPROC_SERVER, REGCLS_SINGLEUSE, &cookie), S_OK);
    CComPtr<IUnknown> found;
    EXPECT_EQ(Get(kAbsent, &found), S_OK);
    found.Release();
    EXPECT_EQ(Get(kAbsent, &found), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(CoRevokeClassObject(cookie), S_OK);
    EXPECT_EQ(own.Count(), 1u);
}

TEST_F(ClassObjects, AreRegisteredAndUsedByManyThreadsAtOnce)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
            CountedUnknown own;
            for (int round = 0; round < 200; ++round) {
                DWORD cookie = 0;
                EXPECT_EQ(CoRegisterClassObject(kAbsent, &own, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie),
                          S_OK);
                CComPtr<ISupportErrorInfo> probe;
                EXPECT_EQ(probe.CoCreateInstance(kProbe), S_OK);
                EXPECT_EQ(CoRevokeClassObject(cookie), S_OK);
            }
            CoUninitialize();
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

TEST_F(ClassObjects, TellTheProgIdOfTheirClassBothWays)
{
    LPOLESTR progId = nullptr;
    ASSERT_EQ(ProgIDFromCLSID(kProbe, &progId), S_OK);
    EXPECT_EQ(TextView(progId), OLESTR("Tests.Probe.1"));
    CoTaskMemFree(progId);

    CLSID clsid{};
    EXPECT_EQ(CLSIDFromProgID(OLESTR("Tests.Probe"), &clsid), S_OK);
    EXPECT_EQ(clsid, kProbe);
    EXPECT_EQ(CLSIDFromString(OLESTR("Tests.Probe.1"), &clsid), S_OK);
    EXPECT_EQ(clsid, kProbe);
    EXPECT_EQ(CLSIDFromProgID(OLESTR("Tests.Other"), &clsid), CO_E_CLASSSTRING);
    EXPECT_EQ(ProgIDFromCLSID(kAbsent, &progId), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(progId, nullptr);
}

} // namespace
