#include <sstream>

#include <gtest/gtest.h>

#include "EnglishText.h"
#include "Utf8.h"
#include "Variables.h"

using namespace Estimate;

namespace {

std::string Found(const Variables& variables, const char16_t* name) {
    const CString* value = variables.Find(name);
    return value == nullptr ? "none" : ToUtf8(*value);
}

struct ReadTable {
    explicit ReadTable(const std::string& csv) {
        std::istringstream in(csv);
        refusal = ReadVariables(in, variables, problems);
    }
    Variables variables;
    Problems problems;
    Estimate::Message refusal;
};

}  // namespace

TEST(Variables, NamesIgnoreCase) {
    Variables variables;
    EXPECT_EQ(variables.Add(u"Lw", u" 36.24 ").reason, "");
    EXPECT_EQ(variables.Add(u"层高", u"3.6").reason, "");
    EXPECT_EQ(Found(variables, u"LW"), "36.24");
    EXPECT_EQ(Found(variables, u"lw"), "36.24");
    EXPECT_EQ(Found(variables, u"层高"), "3.6");
    EXPECT_EQ(Found(variables, u"x"), "none");
    EXPECT_NE(variables.Add(u"lW", u"1").reason, "");
    EXPECT_EQ(variables.Count(), 2u);
}

TEST(Variables, FullWidthNamesAndGroupedValues) {
    Variables variables;
    EXPECT_EQ(variables.Add(u"Ａ１", u"１,２３４.５").reason, "");
    EXPECT_EQ(Found(variables, u"A1"), "1234.5");
    EXPECT_EQ(variables.Add(u"B", u"-12,000").reason, "");
    EXPECT_EQ(Found(variables, u"B"), "-12000");
}

TEST(Variables, NamesThatCannotStandInAFormula) {
    Variables variables;
    for (const char16_t* name : {u"", u"A+B", u"A B", u"[A]", u"A%", u"2A", u".A", u"Q", u"q", u"cost",
                                 u"LNB", u"sinus", u"Tank", u"expo", u"sqrt1", u"fabs", u"A×B"})
        EXPECT_NE(variables.Add(name, u"1").reason, "") << ToUtf8(CString(name));
    EXPECT_EQ(variables.Count(), 0u);
    EXPECT_EQ(variables.Add(u"log", u"1").reason, "");  // no function of the analyser
}

TEST(Variables, ValuesAreNumbers) {
    Variables variables;
    for (const char16_t* value : {u"", u"abc", u"1e5", u"1/2", u"5%", u"1000000000", u"12,34"})
        EXPECT_NE(variables.Add(u"A", value).reason, "") << ToUtf8(CString(value));
    EXPECT_EQ(variables.Add(u"A", u"999999999").reason, "");
}

TEST(Variables, ReadsATable) {
    const ReadTable table("楼的尺寸\n变量名,说明,数值\nL,长,36.24\nB,宽,14.64\n");
    EXPECT_EQ(table.refusal, "");
    EXPECT_EQ(table.problems.badRows, 0u);
    EXPECT_EQ(Found(table.variables, u"B"), "14.64");
}

TEST(Variables, BadRowsAreNotedAndLeftOut) {
    const ReadTable table("name,value\nL,36\ncost,1\nB,abc\nl,2\nH,3\n");
    EXPECT_EQ(table.refusal, "");
    EXPECT_EQ(table.problems.badRows, 3u);
    ASSERT_EQ(table.problems.found.size(), 3u);
    EXPECT_EQ(EnglishText("v.csv", table.problems.found[0]),
              "v.csv:3:1: error: name: in a formula the name would be read as the function cos");
    EXPECT_EQ(EnglishText("v.csv", table.problems.found[1]),
              "v.csv:4:2: error: value: the value is no number: \"abc\"");
    EXPECT_EQ(table.problems.found[2].place.line, 5u);
    EXPECT_EQ(Found(table.variables, u"H"), "3");
}

TEST(Variables, TablesThatCannotBeRead) {
    EXPECT_EQ(ReadTable("name\nL\n").refusal, "no row names the columns: value");
    EXPECT_EQ(ReadTable("").refusal, "no row names the columns: name, value");
    EXPECT_NE(ReadTable("\xFF\xFE").refusal, "");
    const ReadTable broken("name,value\nA,1\nB,\"2\n");
    EXPECT_EQ(broken.refusal, "");
    EXPECT_EQ(broken.problems.badRows, 1u);
    EXPECT_EQ(Found(broken.variables, u"A"), "1");
}
