#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "Formula.h"
#include "TestSupport.h"
#include "Utf8.h"

using namespace Estimate;

namespace {

Variables SomeVariables() {
    Variables variables;
    variables.Add(u"A", u"4");
    variables.Add(u"b2", u"2.5");
    variables.Add(u"Neg", u"-3");
    variables.Add(u"层高", u"3.6");
    return variables;
}

/// The value, or the first remark that is an error.
std::string Result(const std::u16string& formula, const CString* amount = nullptr) {
    const FormulaResult result = Evaluate(CString(formula), SomeVariables(), amount);
    if (result.valid)
        return ToUtf8(IQsUtils::DoubleToCString(result.value, 6, true));
    for (const FormulaRemark& remark : result.remarks)
        if (remark.severity == Severity::Error)
            return remark.reason.In(Estimate::Language::English);
    return "invalid without a reason";
}

std::string Warning(const std::u16string& formula) {
    const FormulaResult result = Evaluate(CString(formula), SomeVariables());
    EXPECT_TRUE(result.valid);
    if (result.remarks.empty())
        return {};
    EXPECT_EQ(result.remarks[0].severity, Severity::Warning);
    return result.remarks[0].reason.In(Estimate::Language::English);
}

}  // namespace

TEST(Formula, Values) {
    EXPECT_EQ(Result(u"1+2*3"), "7");
    EXPECT_EQ(Result(u"(LW+1)*2"), "\"LW\" is neither a number nor a known variable");
    EXPECT_EQ(Result(u"A*b2"), "10");
    EXPECT_EQ(Result(u"a*B2+A"), "14");
    EXPECT_EQ(Result(u"[A]+{B2}"), "6.5");
    EXPECT_EQ(Result(u"2*Neg"), "-6");
    EXPECT_EQ(Result(u"-Neg"), "3");
    EXPECT_EQ(Result(u"层高*3"), "10.8");
    EXPECT_EQ(Result(u"200*1.5%"), "3");
    EXPECT_EQ(Result(u"1000*2‰"), "2");
    EXPECT_EQ(Result(u"sqrt(A)+SIN(0)"), "2");
    EXPECT_EQ(Result(u"10-(2+3)"), "5");
    EXPECT_EQ(Result(u"A*A+-b2*2+-1*2"), "9");
    EXPECT_EQ(Result(u".5+5."), "5.5");
}

TEST(Formula, FullWidthFormsAndSigns) {
    EXPECT_EQ(Result(u"（Ａ＋１）×２"), "10");
    EXPECT_EQ(Result(u"１２÷４"), "3");
    EXPECT_EQ(Result(u"【A】＊２"), "8");
    EXPECT_EQ(Result(u"200＊５％"), "10");
    EXPECT_EQ(Result(u"1\u3000+\t2\n+3"), "6");
}

TEST(Formula, TheProjectAmount) {
    const CString amount(u"120.5");
    const CString negative(u"-8");
    EXPECT_EQ(Result(u"Q", &amount), "120.5");
    EXPECT_EQ(Result(u"[q]*1.02/100", &amount), "1.2291");
    EXPECT_EQ(Result(u"{Q}*2", &amount), "241");
    EXPECT_EQ(Result(u"2*Q", &negative), "-16");
    EXPECT_EQ(Result(u"-Q/2", &negative), "4");
    EXPECT_EQ(Result(u"sqrt(Q)", &amount), ToUtf8(IQsUtils::DoubleToCString(std::sqrt(120.5), 6, true)));
    EXPECT_EQ(Result(u"Q"), "there is no project amount that Q could stand for");
    // Never glued to the digits in front of it.
    EXPECT_EQ(Result(u"2Q", &amount), "\"2Q\" is neither a number nor a known variable");
}

TEST(Formula, Errors) {
    EXPECT_EQ(Result(u""), "the formula is empty");
    EXPECT_EQ(Result(u"  "), "the formula is empty");
    EXPECT_EQ(Result(u"(1+2"), "the numbers of \"(\" and \")\" differ");
    EXPECT_EQ(Result(u"[1"), "the numbers of \"[\" and \"]\" differ");
    EXPECT_EQ(Result(u"1}"), "the numbers of \"{\" and \"}\" differ");
    EXPECT_EQ(Result(u"1+"), "an operand is missing");
    EXPECT_EQ(Result(u"2*-3"), "an operand is missing");
    EXPECT_EQ(Result(u"()+1"), "brackets stand around nothing");
    EXPECT_EQ(Result(u"sin"), "the function sin has no argument");
    EXPECT_EQ(Result(u"cost"), "\"cost\" is read as the function cos; its argument stands in brackets");
    EXPECT_EQ(Result(u"1.2.3"), "\"1.2.3\" is no number");
    EXPECT_EQ(Result(u".+1"), "\".\" is no number");
    EXPECT_EQ(Result(u"1e5"), "\"1e5\" is neither a number nor a known variable");
    EXPECT_EQ(Result(u"2(3+4)"), "\"2(3+4)\" is neither a number nor a known variable");
    EXPECT_EQ(Result(u"A%"), "\"A%\" is neither a number nor a known variable");
    EXPECT_EQ(Result(u"%"), "\"%\" is neither a number nor a known variable");
    EXPECT_EQ(Result(u"1/0"), "a divisor is zero");
    EXPECT_EQ(Result(u"1/(A-4)"), "a divisor is zero");
    EXPECT_EQ(Result(u"0.0000001+1/0.0000001"), "a divisor is zero");
    EXPECT_EQ(Result(u"sqrt(0-1)"), "the result is no finite number");
    EXPECT_EQ(Result(u"ln(0)"), "the result is no finite number");
    EXPECT_EQ(Result(u"exp(1000)"), "the result is no finite number");
}

TEST(Formula, AProductInBracketsIsAnError) {
    for (const char16_t* formula :
         {u"2*(3*4)", u"(1*2)+3", u"(A/2)", u"sin(1×2)", u"[2÷1]", u"{2^2}", u"((1*2))"})
        EXPECT_TRUE(Has(Result(formula), "a product or quotient inside brackets"))
            << ToUtf8(CString(formula));
    EXPECT_TRUE(Has(Result(u"1+(2*3)"), "at 5:"));
}

TEST(Formula, AChainBehindAMinusIsAWarning) {
    for (const char16_t* formula : {u"10-2-3", u"10-2+3", u"(10-2-3)*2", u"2--3+4", u"1-2*3+4", u"1-(2+3)-4"})
        EXPECT_TRUE(Has(Warning(formula), "all that stands behind a minus is subtracted"))
            << ToUtf8(CString(formula));
    for (const char16_t* formula : {u"10-2", u"1+2-3", u"10-(2+3)", u"10-(2-3)", u"-1+2", u"-(1+2)+3",
                                    u"1+-2+-3+4", u"(1-2)+(3-4)", u"1*2+-3*4+5-6"})
        EXPECT_EQ(Warning(formula), "") << ToUtf8(CString(formula));
    EXPECT_TRUE(Has(Warning(u"10-2-3"), "at 5:"));
    EXPECT_EQ(Result(u"10-2-3"), "11");
}

TEST(Formula, APowerIsAWarning) {
    EXPECT_EQ(Warning(u"2^3"), "at 2: \"^\" multiplies");
    EXPECT_EQ(Result(u"2^3"), "6");
}

TEST(Formula, OnlyTheFirstRemarksAreKept) {
    std::u16string formula = u"x1";
    for (int i = 2; i < 1000; ++i)
        formula += u"+x" + std::u16string(static_cast<std::size_t>(i % 7 + 1), u'y');
    EXPECT_EQ(Evaluate(CString(formula), Variables()).remarks.size(), 5u);
}

TEST(Formula, LongAndDeepFormulas) {
    std::u16string sum = u"A";
    for (int i = 0; i < 200'000; ++i)
        sum += u"+A";
    EXPECT_EQ(Result(sum), "800004");
    const std::u16string nested = std::u16string(50'000, u'(') + u"A+1" + std::u16string(50'000, u')');
    EXPECT_EQ(Result(nested), "5");
}

namespace {

/// Writes random formulas without a product in brackets, and calculates them as school teaches.
class School {
public:
    explicit School(unsigned seed) : m_random(seed) {}

    double Sum(int depth, std::u16string& text) {
        double value = Product(depth, text);
        for (auto terms = m_random() % 3; terms > 0; --terms) {
            const bool minus = m_random() % 3 == 0;
            text += minus ? u"-" : u"+";
            const double term = Product(depth, text);
            value = minus ? value - term : value + term;
        }
        return value;
    }

private:
    double Product(int depth, std::u16string& text) {
        double value = Factor(depth, text);
        // Products stand outside of brackets alone.
        for (auto factors = depth == 0 ? m_random() % 3 : 0; factors > 0; --factors) {
            text += u"*";
            value *= Factor(depth, text);
        }
        return value;
    }
    double Factor(int depth, std::u16string& text) {
        if (depth < 3 && m_random() % 3 == 0) {
            text += u"(";
            const double value = Sum(depth + 1, text);
            text += u")";
            return value;
        }
        const auto digit = m_random() % 9 + 1;
        text += static_cast<char16_t>(u'0' + digit);
        return static_cast<double>(digit);
    }

    std::mt19937 m_random;
};

}  // namespace

// What passes without a remark has the value that a reader expects.
TEST(Formula, WithoutRemarksTheValueIsThatOfSchool) {
    School school(42);
    const Variables none;
    int plain = 0;
    int remarked = 0;
    for (int i = 0; i < 500'000; ++i) {
        std::u16string text;
        const double expected = school.Sum(0, text);
        const FormulaResult result = Evaluate(CString(text), none);
        ASSERT_TRUE(result.valid) << ToUtf8(CString(text));
        if (!result.remarks.empty()) {
            ++remarked;
            continue;
        }
        ++plain;
        ASSERT_NEAR(result.value, expected, 1e-9 * std::fabs(expected) + 1e-9) << ToUtf8(CString(text));
    }
    EXPECT_GT(plain, 100'000);
    EXPECT_GT(remarked, 10'000);
}
