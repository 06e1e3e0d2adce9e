#include <gtest/gtest.h>

#include "Units.h"

using namespace Estimate;

TEST(Units, Spelling) {
    EXPECT_EQ(NormalizeUnit("m²"), "m2");
    EXPECT_EQ(NormalizeUnit("㎡"), "m2");
    EXPECT_EQ(NormalizeUnit("100㎡"), "100m2");
    EXPECT_EQ(NormalizeUnit("10 m³"), "10m3");
    EXPECT_EQ(NormalizeUnit("㎥"), "m3");
    EXPECT_EQ(NormalizeUnit("　樘 "), "樘");
}

TEST(Units, Decimals) {
    for (const char* unit : {"t", "T", "吨", "千块"})
        EXPECT_EQ(UnitDecimals(unit), 3) << unit;
    for (const char* unit : {"m", "m2", "m3", "M2", "M3", "kg", "KG", "公斤", "工日", "台班", "anything", ""})
        EXPECT_EQ(UnitDecimals(unit), 2) << unit;
    for (const char* unit : {"个", "樘", "套", "根", "项", "座", "间", "台次", "组", "件", "块"})
        EXPECT_EQ(UnitDecimals(unit), 0) << unit;
}

TEST(Units, AMultipleAddsItsZeros) {
    EXPECT_EQ(UnitDecimals("10m3"), 3);
    EXPECT_EQ(UnitDecimals("100m2"), 4);
    EXPECT_EQ(UnitDecimals("1000m3"), 5);
    EXPECT_EQ(UnitDecimals("10个"), 1);
    EXPECT_EQ(UnitDecimals("100000000m2"), 6);
    EXPECT_EQ(UnitDecimals("100000000000000000000个"), 6);
    EXPECT_EQ(UnitDecimals("100"), 2);  // no unit stands behind the digits
}

TEST(Units, IndicatorUnits) {
    const auto check = [](const char* unit, const char* canonical, double factor) {
        const IndicatorUnit found = IndicatorUnitOf(unit);
        EXPECT_EQ(found.unit, canonical) << unit;
        EXPECT_DOUBLE_EQ(found.factor, factor) << unit;
    };
    check("t", "吨", 1);
    check("kg", "吨", 0.001);
    check("m3", "m3", 1);
    check("10m3", "m3", 10);
    check("100m2", "m2", 100);
    check("1000m3", "m3", 1000);
    check("块", "千块", 0.001);
    check("百块", "千块", 0.1);
    check("樘", "樘", 1);
    check("10个", "个", 10);
    check("0m2", "0m2", 1);
    check("", "", 1);
}
