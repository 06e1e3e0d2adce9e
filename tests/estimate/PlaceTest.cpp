#include <gtest/gtest.h>

#include "EnglishText.h"
#include "Place.h"
#include "Problem.h"

using namespace Estimate;

TEST(Place, Texts) {
    EXPECT_EQ(PlaceText({}), "");
    EXPECT_EQ(PlaceText({12, 0, 0, 0}), "line 12");
    EXPECT_EQ(PlaceText({0, 3, 0, 0}), "item 3");
    EXPECT_EQ(PlaceText({0, 3, 2, 0}), "item 3, quota 2");
    EXPECT_EQ(PlaceText({0, 0, 2, 0}), "quota 2");
    EXPECT_EQ(PlaceText({0, 0, 0, 4}), "variable 4");
    EXPECT_EQ(AtPlace({12, 0, 0, 0}), "on line 12");
    EXPECT_EQ(AtPlace({0, 3, 2, 0}), "at item 3, quota 2");
}

TEST(Place, InTheOrderOfTheInput) {
    EXPECT_LT((Place{2, 0, 0, 0}), (Place{10, 0, 0, 0}));
    EXPECT_LT((Place{0, 2, 9, 0}), (Place{0, 10, 0, 0}));
    EXPECT_LT((Place{0, 2, 0, 0}), (Place{0, 2, 1, 0}));
}

TEST(Place, InProblems) {
    EXPECT_EQ(
        EnglishText("b.csv", {Severity::Error, {12, 0, 0, 0}, 5, Text::ColumnFormula, Message::Same("x")}),
        "b.csv:12:5: error: formula: x");
    EXPECT_EQ(
        EnglishText("p.xml", {Severity::Warning, {0, 3, 2, 0}, 0, Text::ColumnFormula, Message::Same("x")}),
        "p.xml: item 3, quota 2: warning: formula: x");
    EXPECT_EQ(EnglishText("p.xml", {Severity::Error, {}, 0, Text::ColumnArea, Message::Same("x")}),
              "p.xml: error: area: x");
}
