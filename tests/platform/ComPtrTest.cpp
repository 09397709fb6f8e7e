#include "platform/atl/ComPtr.h"
#include "tests/platform/CountedUnknown.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

using Pointer = CComPtr<IUnknown>;

TEST(ComPtr, HoldsOneReferenceForItsLife)
{
    CountedUnknown object;
    {
        const Pointer pointer(&object);
        EXPECT_EQ(object.Count(), 2u);
        const Pointer copy(pointer);
        EXPECT_EQ(object.Count(), 3u);
    }
    EXPECT_EQ(object.Count(), 1u);
}

TEST(ComPtr, PassesItsReferenceOnWhenItIsMoved)
{
    CountedUnknown object;
    Pointer from(&object);
    const Pointer to(std::move(from));
    EXPECT_EQ(object.Count(), 2u);
    EXPECT_EQ(from.p, nullptr);
    EXPECT_EQ(to.p, &object);
}

TEST(ComPtr, ReleasesTheOldObjectWhenItTakesANewOne)
{
    CountedUnknown first;
    CountedUnknown second;
    Pointer pointer(&first);
    pointer = Pointer(&second);
    EXPECT_EQ(first.Count(), 1u);
    EXPECT_EQ(second.Count(), 2u);
    pointer = nullptr;
    EXPECT_EQ(second.Count(), 1u);
}

TEST(ComPtr, SurvivesAnAssignmentToItself)
{
    CountedUnknown object;
    Pointer pointer(&object);
    const Pointer& same = pointer;
    pointer = same;
    EXPECT_EQ(pointer.p, &object);
    EXPECT_EQ(object.Count(), 2u);
}

TEST(ComPtr, TakesOverAndHandsOutReferencesUncounted)
{
    CountedUnknown object;
    object.AddRef();
    Pointer pointer;
    pointer.Attach(&object);
    EXPECT_EQ(object.Count(), 2u);
    EXPECT_EQ(pointer.Detach(), &object);
    EXPECT_EQ(object.Count(), 2u);
    object.Release();
}

TEST(ComPtr, FillsAnOutParameterByQuery)
{
    CountedUnknown object;
    const Pointer pointer(&object);
    Pointer other;
    EXPECT_EQ(pointer.QueryInterface(&other), S_OK);
    EXPECT_EQ(object.Count(), 3u);
    CComPtr<IDispatch> dispatch;
    EXPECT_EQ(pointer.QueryInterface(&dispatch), E_NOINTERFACE);
    EXPECT_EQ(dispatch.p, nullptr);
}

TEST(ComBstr, ViewsItsWholeContent)
{
    const Text text(OLESTR("a\0b"), 3);
    const CComBSTR bstr{TextView(text)};
    EXPECT_EQ(bstr.View(), text);
    EXPECT_EQ(CComBSTR().View(), TextView());
}

TEST(ComBstr, HandsItsTextToAnOutParameter)
{
    CComBSTR bstr(OLESTR("out"));
    BSTR const out = bstr.Detach();
    EXPECT_EQ(bstr.m_str, nullptr);
    EXPECT_EQ(TextView(out), OLESTR("out"));
    SysFreeString(out);
}

} // namespace
