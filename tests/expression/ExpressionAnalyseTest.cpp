// Formulas and their values: results that hosts rely on, errors, and formulas of any size on a small stack.
#include <cmath>
#include <limits>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/expression/ExpressionAnalyse.h"

#include "tests/support/SmallStack.h"

namespace {

using ExpressionAnalyse::GetExpressionAnalyser;
using ExpressionAnalyse::IExpressionNode;

struct Outcome {
    std::unique_ptr<IExpressionNode> root;
    std::int32_t error = -1;
};

Outcome Analyse(const CString& formula) {
    Outcome outcome;
    outcome.root.reset(GetExpressionAnalyser()->AnalyseExpression(formula, &outcome.error));
    return outcome;
}

double ValueOf(const CString& formula) {
    const Outcome outcome = Analyse(formula);
    EXPECT_EQ(outcome.error, 0) << formula;
    return outcome.root == nullptr ? std::nan("") : outcome.root->CalcValue();
}

TEST(ExpressionAnalyse, OneAnalyser) {
    EXPECT_EQ(GetExpressionAnalyser(), GetExpressionAnalyser());
}

TEST(ExpressionAnalyse, Values) {
    const std::pair<const char16_t*, double> cases[] = {
        {u"1+2*3", 7},
        {u"10-2-3", 11},
        {u"1-2+3", -4},
        {u"2*3*4", 24},
        {u"8/2/2", 2},
        {u"2^3", 6},
        {u"3×4÷2", 6},
        {u"2*(3+4)", 14},
        {u"(2+3)*(4+5)", 45},
        {u"[2+3]*{4+5}", 45},
        {u"-(1+2)", -3},
        {u"-2*3", -6},
        {u"2+-3", -1},
        {u"2--3", 5},
        {u"50%*2", 1},
        {u"100*50%", 50},
        {u"12.5‰", 0.0125},
        {u"2*(3*4)", 8},
        {u"(1*2)", 0},
        {u"(1*2)+3", 3},
        {u"sin(1*2)", 0},
        {u"2(3+4)", 2},
        {u"(3+4)2", 0},
        {u"1e5", 100000},
        {u"1e+5", 6},
        {u"1+2)(", 3},
        {u")(", 0},
        {u"()", 0},
        {u"( )", 0},
        {u"(+1)", 1},
        {u"+7", 7},
        {u"sin", 0},
        {u"cos", 1},
        {u"cost", 1},
        {u"ln1", 0},
        {u"FABS(-3)", 3},
        {u"sqrt(9)", 3},
        {u"-sqrt16", -4},
        {u"abc", 0},
        {u"abc+1", 1},
        {u"5%3", 0.05},
        {u"12‰5%", 0.12},
        {u"200%‰", 2},
        {u"1/0", 0},
        {u"1/0.0000001", 0},
        {u"-1/0.0000002", -5000000},
        {u"1/0.0000002", 5000000},
        {u" 1 + 2 ", 3},
        {u"1\t+2", 3},
        {u"1..2", 1},
        {u".5+5.", 5.5},
        {u"1d2", 1},
        {u"0x10", 0},
        {u"inf", 0},
        {u"１+2", 2},
    };
    for (const auto& [formula, expected] : cases)
        EXPECT_DOUBLE_EQ(ValueOf(formula), expected) << CString(formula);
}

TEST(ExpressionAnalyse, FunctionsAreTheCLibrarys) {
    EXPECT_EQ(ValueOf(u"sin(0.5)"), std::sin(0.5));
    EXPECT_EQ(ValueOf(u"SIN(0)"), ValueOf(u"sin(0)"));
    EXPECT_EQ(ValueOf(u"tan(0.5)"), std::tan(0.5));
    EXPECT_EQ(ValueOf(u"exp(2)"), std::exp(2.0));
    EXPECT_EQ(ValueOf(u"ln"), std::log(0.0));
    EXPECT_EQ(ValueOf(u"ln(10)"), std::log(10.0));
    EXPECT_TRUE(std::isnan(ValueOf(u"sqrt(-1)")));
    EXPECT_EQ(ValueOf(u"1e400"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(ValueOf(u"sincos(0)"), std::sin(1.0));
}

TEST(ExpressionAnalyse, SignsOfZero) {
    EXPECT_TRUE(std::signbit(ValueOf(u"-0")));
    EXPECT_TRUE(std::signbit(ValueOf(u"-()")));
    EXPECT_FALSE(std::signbit(ValueOf(u"+0")));
    EXPECT_TRUE(std::signbit(ValueOf(u"-x")));
}

TEST(ExpressionAnalyse, EmptyTextsAreNoError) {
    for (const char16_t* formula : {u"", u" ", u"    "}) {
        const Outcome outcome = Analyse(formula);
        EXPECT_EQ(outcome.error, 0);
        EXPECT_EQ(outcome.root, nullptr);
    }
}

TEST(ExpressionAnalyse, Errors) {
    const std::pair<const char16_t*, int> cases[] = {
        {u"(1", 2},      {u"1)", 2},     {u"[1", 3},     {u"1]]", 3}, {u"{1", 4},  {u"(1+2]", 2},
        {u"[1+2}", 3},   {u"1+", 5},     {u"3*", 5},     {u"*3", 5},  {u"/", 5},   {u"^2", 5},
        {u"2*-3", 5},    {u"--3", 5},    {u"-", 5},      {u"+", 5},   {u"(-)", 5}, {u"1-", 5},
        {u"sin(1+)", 5}, {u"1+(2+)", 5}, {u"(1+)*2", 5}, {u"×2", 5},
    };
    for (const auto& [formula, expected] : cases) {
        const Outcome outcome = Analyse(formula);
        EXPECT_EQ(outcome.error, expected) << CString(formula);
        EXPECT_EQ(outcome.root, nullptr) << CString(formula);
    }
}

TEST(ExpressionAnalyse, TheErrorIsWrittenOnEveryCall) {
    std::int32_t error = 77;
    delete GetExpressionAnalyser()->AnalyseExpression(u"1", &error);
    EXPECT_EQ(error, 0);
    EXPECT_EQ(GetExpressionAnalyser()->AnalyseExpression(u"(", &error), nullptr);
    EXPECT_EQ(error, 2);
    EXPECT_EQ(GetExpressionAnalyser()->AnalyseExpression(u"", &error), nullptr);
    EXPECT_EQ(error, 0);
}

std::u16string Repeated(std::size_t times, std::u16string_view text) {
    std::u16string repeated;
    repeated.reserve(times * text.size());
    for (; times > 0; --times)
        repeated += text;
    return repeated;
}

/// Parses, calculates, binds, prints, takes apart and deletes, and returns the value.
double WholeLife(const std::u16string& formula) {
    const Outcome outcome = Analyse(CString(formula));
    EXPECT_EQ(outcome.error, 0);
    const double folded = outcome.root->CalcValue();
    IExpressionNode* node = outcome.root.get();
    while (node->GetLeftNode() != nullptr || node->GetRightNode() != nullptr)
        node = node->GetRightNode() != nullptr ? node->GetRightNode() : node->GetLeftNode();
    node->SetLeafText(node->GetNodeText());
    EXPECT_EQ(outcome.root->CalcValue(), folded);  // from the leaf upwards
    outcome.root->ToString();
    outcome.root->SetLeftNode(outcome.root->GetLeftNode());
    EXPECT_EQ(outcome.root->CalcValue(), folded);  // walked
    return folded;
}

TEST(ExpressionAnalyse, LongAndDeepFormulasOnASmallStack) {
    RunOnSmallStack(256 * 1024, [] {
        constexpr std::size_t Million = 1000000;
        EXPECT_EQ(WholeLife(u"1" + Repeated(Million - 1, u"+1")), 1e6);
        EXPECT_EQ(WholeLife(u"1" + Repeated(Million - 1, u"*1")), 1.0);
        EXPECT_EQ(WholeLife(u"2" + Repeated(Million - 1, u"-1")), 1.0);
        EXPECT_EQ(WholeLife(u"(1+1)" + Repeated(Million / 2 - 1, u"+(1+1)")), 1e6);
        constexpr std::size_t Deep = 100000;
        EXPECT_EQ(WholeLife(Repeated(Deep, u"(") + u"5" + Repeated(Deep, u")")), 5.0);
        EXPECT_EQ(WholeLife(Repeated(Deep, u"([{") + u"5" + Repeated(Deep, u"}])")), 5.0);
        EXPECT_EQ(WholeLife(Repeated(Deep, u"(") + u"5" + Repeated(Deep, u"+1)")), 5.0 + Deep);
        EXPECT_EQ(WholeLife(Repeated(Deep, u"(1+") + u"5" + Repeated(Deep, u")")), 5.0 + Deep);
        EXPECT_EQ(WholeLife(Repeated(Deep, u"-(") + u"5" + Repeated(Deep, u")")), 5.0);
        EXPECT_EQ(WholeLife(Repeated(Deep, u"fabs") + u"5"), 5.0);
        WholeLife(Repeated(Deep, u"cos") + u"5");
        WholeLife(Repeated(Deep, u"2*(") + u"5" + Repeated(Deep, u")"));
        WholeLife(Repeated(Deep, u"([)(])") + u"1+2*3" + Repeated(Deep, u"*1"));
        WholeLife(Repeated(Deep, u"[)(][)(]2*") + u"1" + Repeated(Deep, u"-(3+1][)"));
    });
}

TEST(ExpressionAnalyse, LongFormulasWithErrors) {
    RunOnSmallStack(256 * 1024, [] {
        EXPECT_EQ(Analyse(CString(Repeated(300000, u"(1+"))).error, 2);
        EXPECT_EQ(Analyse(CString(Repeated(300000, u"1+"))).error, 5);
        EXPECT_EQ(Analyse(CString(Repeated(100000, u"(") + u"-" + Repeated(100000, u")"))).error, 5);
        EXPECT_EQ(Analyse(CString(Repeated(300000, u"-"))).error, 5);
        EXPECT_EQ(Analyse(CString(Repeated(300000, u"*"))).error, 5);
    });
}

}  // namespace
