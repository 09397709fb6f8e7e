#include "platform/com/ClassTable.h"

#include <gtest/gtest.h>

namespace {

constexpr CLSID kGauge = {0xA1000000, 0, 0, {0, 0, 0, 0, 0, 0, 0, 1}};
constexpr CLSID kNameless = {0xA1000000, 0, 0, {0, 0, 0, 0, 0, 0, 0, 2}};
constexpr CLSID kAbsent = {0xA1000000, 0, 0, {0, 0, 0, 0, 0, 0, 0, 3}};

HRESULT NoObject(REFIID, void** out)
{
    *out = nullptr;
    return E_NOINTERFACE;
}

const RegisteredClass g_gauge(kGauge, OLESTR("Tests.Gauge.1"), NoObject);
const RegisteredClass g_nameless(kNameless, nullptr, NoObject);

TEST(ClassTable, KnowsTheClassesOfEveryLinkedModule)
{
    EXPECT_EQ(RegisteredClass::Find(kGauge), &g_gauge);
    EXPECT_EQ(RegisteredClass::Find(kNameless), &g_nameless);
    EXPECT_EQ(RegisteredClass::Find(kAbsent), nullptr);
}

TEST(ClassTable, FindsAProgIdWithAndWithoutItsVersionInAnyCase)
{
    EXPECT_EQ(RegisteredClass::FindProgId(OLESTR("Tests.Gauge.1")), &g_gauge);
    EXPECT_EQ(RegisteredClass::FindProgId(OLESTR("Tests.Gauge")), &g_gauge);
    EXPECT_EQ(RegisteredClass::FindProgId(OLESTR("tests.GAUGE.1")), &g_gauge);
}

TEST(ClassTable, DoesNotTakeAPartOfAProgIdForTheWhole)
{
    EXPECT_EQ(RegisteredClass::FindProgId(OLESTR("Tests")), nullptr);
    EXPECT_EQ(RegisteredClass::FindProgId(OLESTR("Tests.Gauge.2")), nullptr);
    EXPECT_EQ(RegisteredClass::FindProgId(OLESTR("Tests.Gauge.")), nullptr);
    EXPECT_EQ(RegisteredClass::FindProgId(OLESTR("")), nullptr);
}

} // namespace
