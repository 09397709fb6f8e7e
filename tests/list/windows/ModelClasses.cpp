// Makes the model's classes available by COM within the test program itself.
#include "core/prpHelpInfo.h"
#include "core/prpPropertyCollection.h"
#include "core/prpVisibilityInfo.h"
#include "suite/stream/qorStream.h"

#include <gtest/gtest.h>

namespace {

class ModelClasses : public testing::Environment {
public:
    void SetUp() override
    {
        Register<CprpPropertyCollection>(CLSID_prpPropertyCollection);
        Register<CprpHelpInfo>(CLSID_prpHelpInfo);
        Register<CprpVisibilityInfo>(CLSID_prpVisibilityInfo);
        Register<CqorStream>(CLSID_qorStream);
    }
    void TearDown() override
    {
        for (const DWORD cookie : m_cookies)
            CoRevokeClassObject(cookie);
    }

private:
    template <class Class>
    void Register(REFCLSID clsid)
    {
        CComPtr<IClassFactory> factory;
        ASSERT_EQ(ClassFactory<Class>::Get(IID_IClassFactory, reinterpret_cast<void**>(&factory)), S_OK);
        DWORD cookie = 0;
        ASSERT_EQ(CoRegisterClassObject(clsid, factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie), S_OK);
        m_cookies.push_back(cookie);
    }
    std::vector<DWORD> m_cookies;
};

const auto* const g_modelClasses = testing::AddGlobalTestEnvironment(new ModelClasses);

} // namespace
