// Natively the class is found in the process's class table.
#include "idl/SuiteClasses.h"
#include "tests/suite/stream/StreamFixture.h"

namespace {

TEST(StreamRegistration, AProgramThatLinksTheComponentCreatesItByItsClassId)
{
    ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
    {
        CComPtr<IqorStream> stream;
        ASSERT_EQ(stream.CoCreateInstance(CLSID_qorStream), S_OK);
        StreamUser user(stream);
        user.WriteString(OLESTR("made by the class table"));
        EXPECT_EQ(user.ReadString(), Line(OLESTR("made by the class table")));
    }
    CoUninitialize();
}

} // namespace
