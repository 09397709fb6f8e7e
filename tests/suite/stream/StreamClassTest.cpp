// The component class: what it answers for and how it starts.
#include "tests/suite/stream/StreamFixture.h"

namespace {

TEST(StreamClass, AnswersForItsInterfacesAndNoOthers)
{
    const CComPtr<IqorStream> stream = NewStream();
    CComPtr<IqorStreamDirect> direct;
    CComPtr<ISupportErrorInfo> errors;
    CComPtr<IUnknown> identity;
    CComPtr<IPersist> other;
    EXPECT_EQ(stream.QueryInterface(&direct), S_OK);
    EXPECT_EQ(stream.QueryInterface(&errors), S_OK);
    EXPECT_EQ(stream.QueryInterface(&identity), S_OK);
    EXPECT_EQ(stream.QueryInterface(&other), E_NOINTERFACE);

    CComPtr<IUnknown> again;
    EXPECT_EQ(direct.QueryInterface(&again), S_OK);
    EXPECT_EQ(again.p, identity.p);
    EXPECT_EQ(errors->InterfaceSupportsErrorInfo(IID_IqorStream), S_OK);
    EXPECT_EQ(errors->InterfaceSupportsErrorInfo(IID_IUnknown), S_FALSE);
}

TEST(StreamClass, HasItsGivenIdentifiers)
{
    constexpr IID kStream = {0x69A69191, 0x94B3, 0x4A54, {0x89, 0xBD, 0x7D, 0xD4, 0x7C, 0x3B, 0xF9, 0x34}};
    constexpr CLSID kClass = {0xAE827C8C, 0xC1EB, 0x49B9, {0xB8, 0x9C, 0x35, 0xA0, 0x7B, 0xB6, 0xAB, 0xF4}};
    EXPECT_TRUE(IsEqualGUID(IID_IqorStream, kStream));
    EXPECT_TRUE(IsEqualGUID(CqorStream::GetObjectCLSID(), kClass));
}

TEST(StreamClass, StartsEmptyInMemoryInNoMode)
{
    NewStreamUser user;
    CComBSTR delimiter;
    EXPECT_EQ(user.stream->GetDelimiter(&delimiter), S_OK);
    EXPECT_EQ(delimiter.View(), OLESTR("\r\n"));
    EXPECT_EQ(user.Mode(), E_STREAM_MODE_NOT_SET);
    EXPECT_EQ(user.Type(), E_STREAM_TYPE_MEMORY);
    EXPECT_EQ(user.CodePage(), 1200);
    EXPECT_EQ(user.ReadOnly(), VARIANT_FALSE);
    EXPECT_EQ(user.LastError(), E_STREAM_ERROR_NONE);
    EXPECT_EQ(user.Items(), 0);
    EXPECT_EQ(user.Size(), 0);
    EXPECT_EQ(user.Position(), 0);
}

TEST(StreamClass, LetsGoOfTheModuleWithItsLastReference)
{
    const LONG before = Module::LockCount();
    {
        const CComPtr<IqorStream> stream = NewStream();
        EXPECT_EQ(Module::LockCount(), before + 1);
    }
    EXPECT_EQ(Module::LockCount(), before);
}

} // namespace
