#include "platform/com/Ole.h"
#include "tests/platform/CountedUnknown.h"

#include <gtest/gtest.h>

namespace {

VARIANT TextVariant(const OLECHAR* text)
{
    VARIANT variant;
    V_VT(&variant) = VT_BSTR;
    V_BSTR(&variant) = SysAllocString(text);
    return variant;
}

TEST(Variant, StartsEmpty)
{
    VARIANT variant;
    VariantInit(&variant);
    EXPECT_EQ(V_VT(&variant), VT_EMPTY);
    EXPECT_EQ(VariantClear(&variant), S_OK);
}

TEST(Variant, OwnsItsText)
{
    VARIANT original = TextVariant(OLESTR("datum A"));
    VARIANT copy;
    VariantInit(&copy);
    EXPECT_EQ(VariantCopy(&copy, &original), S_OK);
    EXPECT_NE(V_BSTR(&copy), V_BSTR(&original));
    EXPECT_EQ(VariantClear(&original), S_OK);
    EXPECT_EQ(TextView(V_BSTR(&copy)), OLESTR("datum A"));
    EXPECT_EQ(VariantClear(&copy), S_OK);
    EXPECT_EQ(V_VT(&copy), VT_EMPTY);
}

TEST(Variant, CopiesANullTextAsNull)
{
    VARIANT original;
    V_VT(&original) = VT_BSTR;
    V_BSTR(&original) = nullptr;
    VARIANT copy = TextVariant(OLESTR("old"));
    EXPECT_EQ(VariantCopy(&copy, &original), S_OK);
    EXPECT_EQ(V_VT(&copy), VT_BSTR);
    EXPECT_EQ(V_BSTR(&copy), nullptr);
}

TEST(Variant, CountsItsInterface)
{
    CountedUnknown object;
    VARIANT original;
    V_VT(&original) = VT_UNKNOWN;
    V_UNKNOWN(&original) = &object;
    VARIANT copy;
    VariantInit(&copy);
    EXPECT_EQ(VariantCopy(&copy, &original), S_OK);
    EXPECT_EQ(object.Count(), 2u);
    EXPECT_EQ(VariantCopy(&copy, &copy), S_OK);
    EXPECT_EQ(object.Count(), 2u);
    EXPECT_EQ(VariantClear(&copy), S_OK);
    EXPECT_EQ(object.Count(), 1u);
}

TEST(Variant, DoesNotOwnWhatItRefersTo)
{
    BSTR text = SysAllocString(OLESTR("elsewhere"));
    VARIANT reference;
    V_VT(&reference) = VT_BSTR | VT_BYREF;
    V_BSTRREF(&reference) = &text;
    VARIANT copy;
    VariantInit(&copy);
    EXPECT_EQ(VariantCopy(&copy, &reference), S_OK);
    EXPECT_EQ(V_BSTRREF(&copy), &text);
    EXPECT_EQ(VariantClear(&copy), S_OK);
    EXPECT_EQ(VariantClear(&reference), S_OK);
    EXPECT_EQ(TextView(text), OLESTR("elsewhere"));
    SysFreeString(text);
}

TEST(Variant, CarriesNumbersByValue)
{
    VARIANT original;
    V_VT(&original) = VT_R8;
    V_R8(&original) = 25.4;
    VARIANT copy;
    VariantInit(&copy);
    EXPECT_EQ(VariantCopy(&copy, &original), S_OK);
    EXPECT_EQ(V_VT(&copy), VT_R8);
    EXPECT_EQ(V_R8(&copy), 25.4);
}

TEST(Variant, RefusesWhatItCannotOwn)
{
    for (const VARTYPE type : {VARTYPE{VT_RECORD}, VARTYPE{VT_UI1 | VT_ARRAY}, VARTYPE{VT_EMPTY | VT_BYREF},
                               VARTYPE{VT_VARIANT}, VARTYPE{99}}) {
        VARIANT odd;
        V_VT(&odd) = type;
        VARIANT copy;
        VariantInit(&copy);
        EXPECT_EQ(VariantCopy(&copy, &odd), DISP_E_BADVARTYPE);
        EXPECT_EQ(VariantClear(&odd), DISP_E_BADVARTYPE);
    }
}

} // namespace
