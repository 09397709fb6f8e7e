#include "platform/com/Ole.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

TEST(SafeArray, OfBytesIsFilledAndReadThroughItsData)
{
    SAFEARRAY* const array = SafeArrayCreateVector(VT_UI1, 5, 3);
    ASSERT_NE(array, nullptr);
    void* data = nullptr;
    ASSERT_EQ(SafeArrayAccessData(array, &data), S_OK);
    EXPECT_EQ(std::memcmp(data, "\0\0\0", 3), 0) << "elements start as 0";
    std::memcpy(data, "abc", 3);
    EXPECT_EQ(SafeArrayUnaccessData(array), S_OK);

    LONG lower = 0;
    LONG upper = 0;
    VARTYPE type = VT_EMPTY;
    EXPECT_EQ(SafeArrayGetLBound(array, 1, &lower), S_OK);
    EXPECT_EQ(SafeArrayGetUBound(array, 1, &upper), S_OK);
    EXPECT_EQ(SafeArrayGetVartype(array, &type), S_OK);
    EXPECT_EQ(lower, 5);
    EXPECT_EQ(upper, 7);
    EXPECT_EQ(type, VT_UI1);
    EXPECT_EQ(SafeArrayGetDim(array), 1u);
    EXPECT_EQ(SafeArrayGetElemsize(array), 1u);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
}

TEST(SafeArray, IsNotDestroyedWhileItsDataIsInUse)
{
    SAFEARRAY* const array = SafeArrayCreateVector(VT_UI1, 0, 1);
    void* data = nullptr;
    ASSERT_EQ(SafeArrayAccessData(array, &data), S_OK);
    EXPECT_EQ(SafeArrayDestroy(array), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(SafeArrayUnaccessData(array), S_OK);
    EXPECT_EQ(SafeArrayUnaccessData(array), E_UNEXPECTED);
    EXPECT_EQ(SafeArrayDestroy(array), S_OK);
}

TEST(SafeArray, WithoutElementsEndsBelowItsLowerBound)
{
    SAFEARRAY* const array = SafeArrayCreateVector(VT_UI1, 0, 0);
    LONG upper = 0;
    EXPECT_EQ(SafeArrayGetUBound(array, 1, &upper), S_OK);
    EXPECT_EQ(upper, -1);
    EXPECT_EQ(SafeArrayGetUBound(array, 2, &upper), DISP_E_BADINDEX);
    SafeArrayDestroy(array);
}

TEST(SafeArray, IsOneDimensionOfBytesOnly)
{
    SAFEARRAYBOUND bounds[2] = {{1, 0}, {1, 0}};
    EXPECT_EQ(SafeArrayCreate(VT_I4, 1, bounds), nullptr);
    EXPECT_EQ(SafeArrayCreate(VT_UI1, 2, bounds), nullptr);
    EXPECT_EQ(SafeArrayCreate(VT_UI1, 1, nullptr), nullptr);
}

TEST(SafeArray, RefusesNullPointers)
{
    void* data = nullptr;
    LONG bound = 0;
    EXPECT_EQ(SafeArrayAccessData(nullptr, &data), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetLBound(nullptr, 1, &bound), E_INVALIDARG);
    EXPECT_EQ(SafeArrayUnlock(nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetDim(nullptr), 0u);
    EXPECT_EQ(SafeArrayDestroy(nullptr), S_OK);
}

} // namespace
