#include "platform/atl/ComPtr.h"
#include "platform/com/Ole.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

constexpr GUID kSomeInterface = {0x12345678, 0x1234, 0x5678, {1, 2, 3, 4, 5, 6, 7, 8}};

CComPtr<IErrorInfo> MakeError(const OLECHAR* description)
{
    CComPtr<ICreateErrorInfo> create;
    EXPECT_EQ(CreateErrorInfo(&create), S_OK);
    EXPECT_EQ(create->SetDescription(const_cast<LPOLESTR>(description)), S_OK);
    CComPtr<IErrorInfo> error;
    EXPECT_EQ(create.QueryInterface(&error), S_OK);
    return error;
}

Text DescriptionOnThread()
{
    CComPtr<IErrorInfo> error;
    if (GetErrorInfo(0, &error) != S_OK)
        return OLESTR("(none)");
    CComBSTR description;
    EXPECT_EQ(error->GetDescription(&description), S_OK);
    return Text(description.View());
}

TEST(ErrorInfo, IsAbsentUntilSomethingIsReported)
{
    SetErrorInfo(0, nullptr);
    IErrorInfo* error = nullptr;
    EXPECT_EQ(GetErrorInfo(0, &error), S_FALSE);
    EXPECT_EQ(error, nullptr);
}

TEST(ErrorInfo, LeavesTheThreadWithWhoeverFetchesIt)
{
    SetErrorInfo(0, MakeError(OLESTR("no such datum")));
    EXPECT_EQ(DescriptionOnThread(), OLESTR("no such datum"));
    EXPECT_EQ(DescriptionOnThread(), OLESTR("(none)"));
}

TEST(ErrorInfo, GivesWayToALaterOne)
{
    SetErrorInfo(0, MakeError(OLESTR("first")));
    SetErrorInfo(0, MakeError(OLESTR("second")));
    EXPECT_EQ(DescriptionOnThread(), OLESTR("second"));
}

TEST(ErrorInfo, IsForgottenWhenTheSlotIsCleared)
{
    SetErrorInfo(0, MakeError(OLESTR("stale")));
    EXPECT_EQ(SetErrorInfo(0, nullptr), S_OK);
    EXPECT_EQ(DescriptionOnThread(), OLESTR("(none)"));
}

TEST(ErrorInfo, BelongsToOneThreadAndEndsWithIt)
{
    SetErrorInfo(0, MakeError(OLESTR("here")));
    CComPtr<IErrorInfo> elsewhere = MakeError(OLESTR("there"));
    std::thread([&] {
        EXPECT_EQ(DescriptionOnThread(), OLESTR("(none)"));
        SetErrorInfo(0, elsewhere);
    }).join();
    EXPECT_EQ(DescriptionOnThread(), OLESTR("here"));
    elsewhere->AddRef();
    EXPECT_EQ(elsewhere->Release(), 1u) << "the ended thread still holds its error";
}

TEST(ErrorInfo, CarriesEveryFieldThatWasSet)
{
    CComPtr<ICreateErrorInfo> create;
    ASSERT_EQ(CreateErrorInfo(&create), S_OK);
    OLECHAR source[] = OLESTR("Tolvarin.prpProperty.1");
    OLECHAR helpFile[] = OLESTR("tolerances.chm");
    EXPECT_EQ(create->SetGUID(kSomeInterface), S_OK);
    EXPECT_EQ(create->SetSource(source), S_OK);
    EXPECT_EQ(create->SetHelpFile(helpFile), S_OK);
    EXPECT_EQ(create->SetHelpContext(42), S_OK);

    CComPtr<IErrorInfo> error;
    ASSERT_EQ(create.QueryInterface(&error), S_OK);
    GUID guid{};
    CComBSTR text;
    DWORD context = 0;
    EXPECT_EQ(error->GetGUID(&guid), S_OK);
    EXPECT_EQ(guid, kSomeInterface);
    EXPECT_EQ(error->GetSource(&text), S_OK);
    EXPECT_EQ(text.View(), source);
    CComBSTR file;
    EXPECT_EQ(error->GetHelpFile(&file), S_OK);
    EXPECT_EQ(file.View(), helpFile);
    EXPECT_EQ(error->GetHelpContext(&context), S_OK);
    EXPECT_EQ(context, 42u);
    CComBSTR description;
    EXPECT_EQ(error->GetDescription(&description), S_OK);
    EXPECT_EQ(description.m_str, nullptr) << "a text that was never set is null, not empty";
}

TEST(ErrorInfo, RefusesBadArguments)
{
    IErrorInfo* error = nullptr;
    EXPECT_EQ(SetErrorInfo(1, nullptr), E_INVALIDARG);
    EXPECT_EQ(GetErrorInfo(1, &error), E_INVALIDARG);
    EXPECT_EQ(GetErrorInfo(0, nullptr), E_INVALIDARG);
    EXPECT_EQ(CreateErrorInfo(nullptr), E_INVALIDARG);
}

} // namespace
