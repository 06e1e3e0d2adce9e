#include <limits>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/frame/IQsUtils1.h"
#include "QsUtils/units/CIndicatorUnitTable.h"

#include "PlainIndicatorUnits.h"

using QsUnits::CIndicatorUnitTable;

namespace {

struct Factor {
    bool found;
    double value;

    friend bool operator==(const Factor&, const Factor&) = default;
    friend std::ostream& operator<<(std::ostream& stream, const Factor& factor) {
        return stream << factor.found << " " << factor.value;
    }
};

Factor FactorOf(const CString& first, const CString& second) {
    Factor factor{false, -7.0};
    factor.found = CIndicatorUnitTable::Instance().GetIndicatorsFactor(first, second, factor.value);
    return factor;
}

CString UnitOf(const CString& form) {
    CString unit = u"untouched";
    const bool found = CIndicatorUnitTable::Instance().GetIndicatorsUnit(form, unit);
    return found ? unit : u"miss: " + unit;
}

const CString Miss = u"miss: untouched";
constexpr Factor None{false, 1.0};

/// Texts that look like units, some of them with the very lengths and controls that the fallback looks at.
class UnitTexts {
public:
    explicit UnitTexts(unsigned seed) : m_random(seed) {}

    CString Next() {
        static const char16_t* const Forms[] = {
            u"吨", u"T",  u"t",    u"公斤", u"KG",     u"kg", u"立方", u"立方米", u"m3",
            u"M3", u"块", u"平方", u"m2",   u"平方米", u"M2", u"百块", u"千块",   u"万块",
            u"Kg", u"樘", u"-",    u"",     u"个",     u"1",  u"0"};
        CString text;
        for (unsigned parts = 1 + Below(3); parts > 0; --parts) {
            const unsigned kind = Below(8);
            if (kind < 4)
                text += Forms[m_random() % std::size(Forms)];
            else if (kind < 6)
                text += Digits();
            else
                text += static_cast<char16_t>(Below(kind == 6 ? 6 : 0x80));
        }
        return text;
    }
    CString Digits() {
        CString digits;
        for (unsigned count = Below(4); count > 0; --count)
            digits += static_cast<char16_t>(u'0' + m_random() % 10);
        return digits;
    }
    unsigned Below(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }

private:
    std::mt19937 m_random;
};

}  // namespace

TEST(IndicatorUnits, EveryFormHasItsCanonicalUnit) {
    const PlainIndicatorUnits plain;
    EXPECT_EQ(plain.Units().size(), 18U);
    for (const auto& [form, unit] : plain.Units())
        EXPECT_EQ(UnitOf(form), unit) << form;
}

TEST(IndicatorUnits, OtherFormsAreUnknownAndLeaveTheOutputAlone) {
    for (const char16_t* form :
         {u"", u"Kg", u"kG", u"个", u"m", u"m4", u"十块", u"吨 ", u"ｍ3", u"平方米米", u"㎡"})
        EXPECT_EQ(UnitOf(form), Miss);
    EXPECT_EQ(UnitOf(CString(std::u16string(u"t\0", 2))), Miss);
}

TEST(IndicatorUnits, EveryPairOfAGroupHasItsFactor) {
    const PlainIndicatorUnits plain;
    EXPECT_EQ(plain.Factors().size(), 84U);
    int pairs = 0;
    for (const auto& a : plain.Units()) {
        for (const auto& b : plain.Units()) {
            const auto expected = plain.Factors().find(a.first + u"-" + b.first);
            if (expected == plain.Factors().end())
                continue;
            ++pairs;
            EXPECT_EQ(FactorOf(a.first, b.first), (Factor{true, expected->second}))
                << a.first << " " << b.first;
        }
    }
    EXPECT_EQ(pairs, 84);
}

TEST(IndicatorUnits, FactorsAreTheDecimalsThatTheyRead) {
    EXPECT_EQ(FactorOf(u"吨", u"公斤"), (Factor{true, 1000}));
    EXPECT_EQ(FactorOf(u"公斤", u"吨"), (Factor{true, 0.001}));
    EXPECT_EQ(FactorOf(u"千块", u"百块"), (Factor{true, 10}));
    EXPECT_EQ(FactorOf(u"百块", u"千块"), (Factor{true, 0.1}));
    EXPECT_EQ(FactorOf(u"块", u"百块"), (Factor{true, 0.01}));
    EXPECT_EQ(FactorOf(u"块", u"千块"), (Factor{true, 0.001}));
    EXPECT_EQ(FactorOf(u"块", u"万块"), (Factor{true, 0.0001}));
    EXPECT_EQ(FactorOf(u"立方", u"M3"), (Factor{true, 1}));
    EXPECT_EQ(FactorOf(u"T", u"t"), (Factor{true, 1}));
}

TEST(IndicatorUnits, GroupsAreNeverCrossed) {
    EXPECT_EQ(FactorOf(u"吨", u"m3"), None);
    EXPECT_EQ(FactorOf(u"m2", u"m3"), None);
    EXPECT_EQ(FactorOf(u"kg", u"块"), None);
}

TEST(IndicatorUnits, AnyUnitAgainstItselfIsOneInAnyCase) {
    EXPECT_EQ(FactorOf(u"Kg", u"kg"), (Factor{true, 1}));
    EXPECT_EQ(FactorOf(u"樘", u"樘"), (Factor{true, 1}));
    EXPECT_EQ(FactorOf(u"Set", u"SET"), (Factor{true, 1}));
    EXPECT_EQ(FactorOf(u"", u""), (Factor{true, 1}));
}

TEST(IndicatorUnits, AMultipleInTheSecondUnit) {
    EXPECT_EQ(FactorOf(u"m2", u"100m2"), (Factor{true, 0.01}));
    EXPECT_EQ(FactorOf(u"樘", u"10樘"), (Factor{true, 0.1}));
    EXPECT_EQ(FactorOf(u"m2", u"007m2"), (Factor{true, 1.0 / 7}));
    EXPECT_EQ(FactorOf(u"m2", u"m2100"), None);
    EXPECT_EQ(FactorOf(u"m2", u"10m210"), None);
    EXPECT_EQ(FactorOf(u"m2", u"-10m2"), None);
    EXPECT_EQ(FactorOf(u"m2", u"1.5m2"), None);
    EXPECT_EQ(FactorOf(u"m2", u"10 m2"), None);
    EXPECT_EQ(FactorOf(u"m2", u"0m2"), None);
    EXPECT_EQ(FactorOf(u"m2", u"000m2"), None);
    EXPECT_EQ(FactorOf(u"m2", u"１0m2"), None);
    EXPECT_EQ(FactorOf(u"樘", u"十樘"), None);
    EXPECT_EQ(FactorOf(u"m2", u"100M2"), None);
    EXPECT_EQ(FactorOf(u"m2", u"m2m2"), None);
    EXPECT_EQ(FactorOf(u"m2", u"10m2m2"), None);
    EXPECT_EQ(FactorOf(u"", u"m2"), None);
    EXPECT_EQ(FactorOf(u"", u"100"), None);
}

TEST(IndicatorUnits, AMultipleInTheFirstUnitIsRefused) {
    EXPECT_EQ(FactorOf(u"100m2", u"m2"), None);
    EXPECT_EQ(FactorOf(u"10樘", u"樘"), None);
    EXPECT_EQ(FactorOf(u"m2", u""), None);
}

TEST(IndicatorUnits, TheLongerFirstUnitIsSearchedForTheLengthAsACharacter) {
    // The control is found, but then the piece before the unit has more than digits in it.
    EXPECT_EQ(FactorOf(u"1\x02m2", u"m2"), None);
    // A unit of 49 characters has the length that is the code of "1".
    const CString name(std::u16string(49, u'x'));
    EXPECT_EQ(FactorOf(u"1" + name, name), (Factor{true, 1}));
    EXPECT_EQ(FactorOf(u"210" + name, name), (Factor{true, 210}));
    EXPECT_EQ(FactorOf(u"20" + name, name), None);
    // Without the unit in it, a first unit that is all digits is the multiple.
    const CString digits(std::u16string(50, u'1'));
    EXPECT_EQ(FactorOf(digits, name).found, true);
    EXPECT_DOUBLE_EQ(FactorOf(digits, name).value, 1.1111111111111111e49);
}

TEST(IndicatorUnits, MultiplesWithoutEndAreInfinite) {
    const CString digits(std::u16string(400, u'9'));
    EXPECT_EQ(FactorOf(u"m2", digits + u"m2"), (Factor{true, 0.0}));
}

TEST(IndicatorUnits, ALengthThatIsNoCharacterIsNotFound) {
    const CString unit(std::u16string(0x10000 + 1, u'x'));
    EXPECT_EQ(FactorOf(u"\x01" + unit, unit), None);
}

TEST(IndicatorUnits, AnArgumentMayBeTheOutput) {
    CString text = u"kg";
    EXPECT_TRUE(CIndicatorUnitTable::Instance().GetIndicatorsUnit(text, text));
    EXPECT_EQ(text, u"吨");
}

TEST(IndicatorUnits, FacadeForwards) {
    CString unit;
    EXPECT_TRUE(IQsUtils1::GetIndicatorsUnit(u"百块", unit));
    EXPECT_EQ(unit, u"千块");
    double factor = 0;
    EXPECT_TRUE(IQsUtils1::GetIndicatorsFactor(u"百块", unit, factor));
    EXPECT_EQ(factor, 0.1);
    EXPECT_FALSE(IQsUtils1::GetIndicatorsFactor(u"吨", u"m3", factor));
    EXPECT_EQ(factor, 1.0);
}

TEST(IndicatorUnits, RandomUnitsAgreeWithThePlainTables) {
    const PlainIndicatorUnits plain;
    UnitTexts texts(52);
    int hits = 0;
    for (int round = 0; round < 1'500'000; ++round) {
        const CString a = texts.Next();
        // Half of the pairs are a unit and a multiple of it, in either direction.
        const CString b = round % 2 == 0 ? texts.Next() : texts.Digits() + a;
        const bool swapped = texts.Below(2) == 0;
        const CString& first = swapped ? b : a;
        const CString& second = swapped ? a : b;
        Factor expected{false, -7.0};
        expected.found = plain.GetFactor(first, second, expected.value);
        ASSERT_EQ(FactorOf(first, second), expected) << first << " | " << second;
        CString unit = u"untouched";
        const CString known = plain.GetUnit(first, unit) ? unit : u"miss: " + unit;
        ASSERT_EQ(UnitOf(first), known) << first;
        hits += expected.found;
    }
    EXPECT_GT(hits, 100'000);
}

TEST(IndicatorUnits, RandomLongUnitsAgreeWithThePlainTables) {
    const PlainIndicatorUnits plain;
    UnitTexts texts(53);
    int hits = 0;
    for (int round = 0; round < 200'000; ++round) {
        // Lengths around the codes of the digits, where a longer first unit has a chance.
        const CString unit(std::u16string(46 + texts.Below(14), u'x'));
        const CString first = texts.Digits() + texts.Digits() + unit;
        Factor expected{false, -7.0};
        expected.found = plain.GetFactor(first, unit, expected.value);
        ASSERT_EQ(FactorOf(first, unit), expected) << first << " | " << unit;
        hits += expected.found && expected.value != 1.0;
    }
    EXPECT_GT(hits, 1'000);
}
