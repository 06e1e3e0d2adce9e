// The variables in the text of a formula.
#include <list>
#include <map>
#include <random>

#include <gtest/gtest.h>

#include "QsUtils/QsUtils.h"
#include "QsUtils/expression/COprateString.h"

#include "tests/expression/PlainVariables.h"
#include "tests/support/Rounds.h"

namespace {

using List = std::list<CString>;
using Map = std::map<int, CString>;

List VariablesIn(const CString& text, bool unique = false) {
    List out;
    IQsUtils::FindVariable(text, out, unique);
    return out;
}

Map Placed(const CString& text) {
    Map out;
    IQsUtils::FindVariable(text, out);
    return out;
}

CString Replaced(CString text, const CString& variable, const CString& value) {
    IQsUtils::ReplaceVarString(text, variable, value);
    return text;
}

CString WithAmount(CString text, const CString& amount) {
    IQsUtils::ReplaceQWithProjectAmount(text, amount);
    return text;
}

TEST(IsVariable, LettersThatAreNoHeads) {
    for (const char16_t* text : {u"A", u"][", u"[]", u"ASIN(1)", u"acos(1)", u"SIN", u"FABS(1)", u"exp",
                                 u"宽", u"SIN (1)", u"x", u"1+a", u"[1]", u"\u0181"})
        EXPECT_TRUE(IQsUtils::IsVariable(text)) << CString(text);
    for (const char16_t* text :
         {u"", u"123+4", u"SIN(30)", u"sin(30)", u"ATAN(1)", u"2*EXP(1)", u"sqrt(2)", u"Ln(2)",
          u"log(2)+rad(3)", u"SQR(2)", u"TAN(1)", u"[", u"]", u"中", u"。", u"SSIN(IN(1)", u"{1}"})
        EXPECT_FALSE(IQsUtils::IsVariable(text)) << CString(text);
}

TEST(FindVariable, List) {
    EXPECT_EQ(VariablesIn(u"A+B*2"), (List{u"A", u"B"}));
    EXPECT_EQ(VariablesIn(u"A+A"), (List{u"A"}));  // the end of the text asks for what is held already
    EXPECT_EQ(VariablesIn(u"A+A+1"), (List{u"A", u"A"}));
    EXPECT_EQ(VariablesIn(u"[Q]*2"), (List{u"[Q]"}));
    EXPECT_EQ(VariablesIn(u"{A}+B"), (List{u"B"}));
    EXPECT_EQ(VariablesIn(u"EXP(A)"), (List{u"EXP", u"A"}));
    EXPECT_EQ(VariablesIn(u"A.5"), (List{u"A"}));
    EXPECT_EQ(VariablesIn(u"2A"), (List{u"A"}));
    EXPECT_EQ(VariablesIn(u"A2"), (List{u"A2"}));
    EXPECT_EQ(VariablesIn(u"[A]]"), (List{u"[A]", u"]"}));
    EXPECT_EQ(VariablesIn(u"SIN(A)"), (List{u"SINA"}));
    EXPECT_EQ(VariablesIn(u"[sin]+[b]"), (List{u"[sin]", u"[b]"}));
    EXPECT_EQ(VariablesIn(u"a+sin]+[b]"), (List{u"a", u"[b]"}));
    EXPECT_EQ(VariablesIn(u"A{B}C+1"), (List{u"AC"}));
    EXPECT_EQ(VariablesIn(u"Q+q"), (List{u"Q", u"q"}));
    EXPECT_EQ(VariablesIn(u"12+3"), List{});
}

TEST(FindVariable, AFunctionAloneIsTrueAndAddsNothing) {
    List out;
    EXPECT_TRUE(IQsUtils::FindVariable(u"SIN", out, false));
    EXPECT_TRUE(out.empty());
}

TEST(FindVariable, UniqueLetsRepeatedTokensRunOn) {
    EXPECT_EQ(VariablesIn(u"A+A+B", true), (List{u"A", u"AB"}));
    EXPECT_EQ(VariablesIn(u"A+A+B+1", true), (List{u"A", u"AB"}));
    EXPECT_EQ(VariablesIn(u"[Q]+[Q]", true), (List{u"[Q]", u"[Q]"}));
    EXPECT_EQ(VariablesIn(u"A+[B]+A]+1", true), (List{u"A", u"[B]", u"A1"}));
    EXPECT_EQ(VariablesIn(u"A+A]+B", true), (List{u"A", u"AB"}));
}

TEST(FindVariable, OutputsAreAddedTo) {
    List list{u"B", u"x"};
    EXPECT_TRUE(IQsUtils::FindVariable(u"A+B", list, false));
    EXPECT_EQ(list, (List{u"B", u"x", u"A"}));
    EXPECT_FALSE(IQsUtils::FindVariable(u"1+2", list, false));
    EXPECT_EQ(list.size(), 3u);
    Map map{{0, u"old"}, {9, u"kept"}};
    EXPECT_TRUE(IQsUtils::FindVariable(u"A+B", map));
    EXPECT_EQ(map, (Map{{0, u"A"}, {2, u"B"}, {9, u"kept"}}));
    EXPECT_FALSE(IQsUtils::FindVariable(u"1", map));
    EXPECT_EQ(map.size(), 3u);
}

TEST(FindVariable, Map) {
    EXPECT_EQ(Placed(u"A+BC"), (Map{{0, u"A"}, {3, u"BC"}}));
    EXPECT_EQ(Placed(u"[Q]*2"), (Map{{2, u"[Q]"}}));
    EXPECT_EQ(Placed(u"SIN(A)"), (Map{{4, u"A"}}));
    EXPECT_EQ(Placed(u"A+A"), (Map{{0, u"A"}, {2, u"A"}}));
    EXPECT_EQ(Placed(u"sin]"), (Map{}));
    EXPECT_EQ(Placed(u"x+sin]+]"), (Map{{0, u"x"}, {7, u"]"}}));
    EXPECT_EQ(Placed(u"EXP(A)"), (Map{{2, u"EXP"}, {4, u"A"}}));
}

TEST(FindVariable, AHanziIsALetterByItsLowByte) {
    // 中 is U+4E2D and 土 is U+571F: separators. 长 is U+957F: one too. 宽 is U+5BBD: a letter.
    EXPECT_EQ(VariablesIn(u"宽中A"), (List{u"宽", u"A"}));
    EXPECT_EQ(VariablesIn(u"长宽+1"), (List{u"宽"}));
}

TEST(IsIncludeQ, InEitherCaseAndWithBrackets) {
    for (const char16_t* text : {u"Q", u"q", u"[q]", u"[Q]", u"Q*2", u"Q+SIN(1)", u"2*(q+1)"})
        EXPECT_TRUE(IQsUtils::IsIncludeQ(text)) << CString(text);
    for (const char16_t* text : {u"", u"Q2", u"SIN(Q)", u"12", u"{Q}", u"QQ", u"A", u"[Q"})
        EXPECT_FALSE(IQsUtils::IsIncludeQ(text)) << CString(text);
}

TEST(ReplaceVarString, EveryEqualVariable) {
    EXPECT_EQ(Replaced(u"A+AB+A", u"A", u"2"), u"2+AB+2");
    EXPECT_EQ(Replaced(u"a+A", u"A", u"2"), u"a+2");
    EXPECT_EQ(Replaced(u"{A}+A", u"A", u"2"), u"{A}+2");
    EXPECT_EQ(Replaced(u"SIN(A)", u"A", u"2"), u"SIN(2)");
    EXPECT_EQ(Replaced(u"[A]+A", u"[A]", u"(1+2)"), u"(1+2)+A");
    EXPECT_EQ(Replaced(u"A+A", u"A", u""), u"+");
    EXPECT_EQ(Replaced(u"A", u"", u"2"), u"A");
    EXPECT_EQ(Replaced(u"", u"A", u"2"), u"");
    EXPECT_EQ(Replaced(u"12", u"1", u"2"), u"12");
    EXPECT_EQ(Replaced(u"A+B", u"C", u"2"), u"A+B");
}

TEST(ReplaceQWithProjectAmount, InItsFourForms) {
    EXPECT_EQ(WithAmount(u"Q*2+[q]", u"100.00"), u"100*2+100");
    EXPECT_EQ(WithAmount(u"Q*2", u""), u"*2");
    EXPECT_EQ(WithAmount(u"q+[Q]+Q2", u"1.50"), u"1.5+1.5+Q2");
    EXPECT_EQ(WithAmount(u"Q", u"1000"), u"1000");
    // What an earlier form puts in is open to the later ones.
    EXPECT_EQ(WithAmount(u"Q", u"q"), u"q");
    EXPECT_EQ(WithAmount(u"Q", u"[Q]"), u"[Q]");
}

TEST(TrimTrailingZeros, OnlyBehindAPoint) {
    const std::pair<const char16_t*, const char16_t*> cases[] = {
        {u"100.00", u"100"}, {u"1.50", u"1.5"},  {u"1.", u"1"},   {u".0", u""},
        {u"0.0", u"0"},      {u"1.0.0", u"1.0"}, {u"a.b", u"a.b"}};
    for (const auto& [before, after] : cases) {
        CString text = before;
        EXPECT_TRUE(COprateString::TrimTrailingZeros(text));
        EXPECT_EQ(text, after);
    }
    CString text = u"1000";
    EXPECT_FALSE(COprateString::TrimTrailingZeros(text));
    EXPECT_EQ(text, u"1000");
}

TEST(FormulaVariables, AgreeWithThePlainScans) {
    std::mt19937 random(4);
    const std::u16string pieces[] = {u"A", u"b",  u"1",  u"2", u"+",    u"*",    u"(",    u")",   u"[",
                                     u"]", u"{",  u"}",  u"Q", u"SIN(", u"cos(", u"EXP(", u"sin", u"LN(",
                                     u".", u"宽", u"中", u"S", u"IN(",  u"[Q]",  u"A+A"};
    const auto formula = [&](unsigned most) {
        CString text;
        for (auto count = random() % (most + 1); count > 0; --count)
            text += CString(pieces[random() % std::size(pieces)]);
        return text;
    };
    for (int i = 0; i < Rounds(300000); ++i) {
        const CString text = formula(14);
        ASSERT_EQ(IQsUtils::IsVariable(text), PlainVariables::IsVariable(text)) << text;
        for (const bool unique : {false, true}) {
            List ours{u"A", u"[Q"};
            List plain = ours;
            ASSERT_EQ(IQsUtils::FindVariable(text, ours, unique),
                      PlainVariables::FindVariable(text, plain, unique));
            ASSERT_EQ(ours, plain) << text;
        }
        Map ours;
        Map plain;
        ASSERT_EQ(IQsUtils::FindVariable(text, ours), PlainVariables::FindVariable(text, plain));
        ASSERT_EQ(ours, plain) << text;
        const CString variable = formula(2);
        const CString value = formula(2);
        CString replaced = text;
        PlainVariables::ReplaceVarString(replaced, variable, value);
        ASSERT_EQ(Replaced(text, variable, value), replaced) << text << " " << variable;
        CString amount = formula(3);
        const CString whole = WithAmount(text, amount);
        PlainVariables::TrimTrailingZeros(amount);
        CString stepwise = text;
        for (const char16_t* name : {u"Q", u"q", u"[Q]", u"[q]"})
            PlainVariables::ReplaceVarString(stepwise, name, amount);
        ASSERT_EQ(whole, stepwise) << text;
    }
}

TEST(FormulaVariables, LongFormulas) {
    CString formula;
    for (int i = 0; i < 200000; ++i)
        formula += u"A+[Q]*SIN(B)+";
    EXPECT_EQ(VariablesIn(formula).size(), 3u * 200000);
    EXPECT_EQ(Placed(formula).size(), 3u * 200000);
    EXPECT_EQ(Replaced(formula, u"A", u"12").GetLength(), formula.GetLength() + 200000);
    // A long token that is held already, and nothing but separators behind it.
    const CString token(u'A', 200000);
    EXPECT_EQ(VariablesIn(token + u"+" + token + CString(u'+', 200000), true).size(), 1u);
    EXPECT_FALSE(IQsUtils::IsVariable(CString(u'(', 300000) + CString(u'1', 300000)));
    CString heads;
    for (int i = 0; i < 100000; ++i)
        heads += u"SIN(";
    CString nested = heads;
    for (int i = 0; i < 100000; ++i)
        nested += u"1)";
    EXPECT_FALSE(IQsUtils::IsVariable(nested));
}

}  // namespace
