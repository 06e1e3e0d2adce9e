// Decimals by unit, from the file beside an executable.
#include <string>

#include <gtest/gtest.h>

#include "tests/installation/ProbedInstallation.h"

using Answers = ProbedInstallation::Answers;

namespace {

constexpr const char* DecimalsFile = "GB50500-2008.xml";

/// The decimals of units by a file of these contents.
Answers Decimals(std::string_view contents, const std::vector<std::u16string>& units) {
    const ProbedInstallation installation;
    installation.Write(DecimalsFile, contents);
    std::vector<std::u16string> questions;
    for (const std::u16string& unit : units)
        questions.insert(questions.end(), {u"decimals", unit});
    return installation.Ask(questions);
}

TEST(UnitDecimals, AStatedDefaultIsTwoWhateverItSays) {
    for (const char* value : {"3", "0", "", "x", "-1"})
        EXPECT_EQ(Decimals("<root default_decimal=\"" + std::string(value) + "\"/>", {u"m", u"", u"t"}),
                  (Answers{u"2", u"2", u"2"}));
}

TEST(UnitDecimals, WithoutAStatedDefaultItIsZero) {
    EXPECT_EQ(Decimals("<anything/>", {u"m", u""}), (Answers{u"0", u"0"}));
    EXPECT_EQ(Decimals("<anything Default_Decimal=\"3\" decimal=\"3\"/>", {u"m"}), (Answers{u"0"}));
}

TEST(UnitDecimals, UnitsAreLookedForAsTheyStand) {
    EXPECT_EQ(Decimals("<r default_decimal=\"5\"><u unit=\"m3\" decimal=\"3\"/></r>",
                       {u"m3", u"M3", u" m3", u"m3 ", u"m"}),
              (Answers{u"3", u"2", u"2", u"2", u"2"}));
}

TEST(UnitDecimals, AMissingAttributeIsAnEmptyOne) {
    EXPECT_EQ(Decimals("<r default_decimal=\"\"><u unit=\"kg\"/></r>", {u"kg"}), (Answers{u"0"}));
    EXPECT_EQ(Decimals("<r default_decimal=\"\"><u/></r>", {u"", u"kg"}), (Answers{u"0", u"2"}));
    EXPECT_EQ(Decimals("<r default_decimal=\"\"><u decimal=\"4\"/></r>", {u"", u"kg"}),
              (Answers{u"4", u"2"}));
    EXPECT_EQ(Decimals("<r default_decimal=\"\"><u Unit=\"kg\" DECIMAL=\"4\"/></r>", {u"kg", u""}),
              (Answers{u"2", u"0"}));
}

TEST(UnitDecimals, ALaterRowWins) {
    EXPECT_EQ(Decimals("<r><u unit=\"kg\" decimal=\"2\"/><v unit=\"t\" decimal=\"4\"/><w unit=\"kg\" "
                       "decimal=\"3\"/></r>",
                       {u"kg", u"t"}),
              (Answers{u"3", u"4"}));
    EXPECT_EQ(Decimals("<r><u unit=\"kg\" decimal=\"2\"/><u unit=\"kg\"/></r>", {u"kg"}), (Answers{u"0"}));
}

TEST(UnitDecimals, OnlyDirectChildrenAreRows) {
    EXPECT_EQ(Decimals("<r unit=\"root\" decimal=\"7\" default_decimal=\"\"><u unit=\"a\" decimal=\"1\">"
                       "<u unit=\"b\" decimal=\"1\"/></u><!-- <u unit=\"c\" decimal=\"1\"/> --></r>",
                       {u"a", u"b", u"c", u"root"}),
              (Answers{u"1", u"2", u"2", u"2"}));
}

TEST(UnitDecimals, ValuesAreReadAsWholeNumbersOfAnySize) {
    EXPECT_EQ(
        Decimals(
            "<r><u unit=\"a\" decimal=\"-3\"/><u unit=\"b\" decimal=\" 12x\"/><u unit=\"c\" decimal=\"x1\"/>"
            "<u unit=\"d\" decimal=\"3.9\"/><u unit=\"e\" decimal=\"99999999999\"/></r>",
            {u"a", u"b", u"c", u"d", u"e"}),
        (Answers{u"-3", u"12", u"0", u"3", u"2147483647"}));
}

TEST(UnitDecimals, WithoutAGoodFileThereIsNoTable) {
    const ProbedInstallation installation;
    EXPECT_EQ(installation.Ask({u"decimals", u"m", u"decimals", u""}), (Answers{u"2", u"2"}));
    for (const char* contents : {"", "no XML", "<r><u unit=\"m\" decimal=\"3\"/>", "<r>\xFF</r>",
                                 "<r><u unit=\"m\" decimal=\"3\" decimal=\"3\"/></r>"})
        EXPECT_EQ(Decimals(contents, {u"m", u"t"}), (Answers{u"2", u"2"})) << contents;
}

TEST(UnitDecimals, AFileThatIsAFolderIsNone) {
    const ProbedInstallation installation;
    std::filesystem::create_directory(installation.Folder() / DecimalsFile);
    EXPECT_EQ(installation.Ask({u"decimals", u"m"}), (Answers{u"2"}));
}

TEST(UnitDecimals, TheFileIsReadOnce) {
    const ProbedInstallation installation;
    installation.Write(DecimalsFile, "<r><u unit=\"m\" decimal=\"3\"/></r>");
    EXPECT_EQ(installation.Ask({u"decimals", u"m", u"write", u"GB50500-2008.xml",
                                u"<r><u unit=\"m\" decimal=\"4\"/></r>", u"decimals", u"m"}),
              (Answers{u"3", u"3"}));
    EXPECT_EQ(installation.Ask({u"decimals", u"m"}), (Answers{u"4"}));
}

TEST(UnitDecimals, FilesInTheCodePage) {
    EXPECT_EQ(Decimals("<?xml version=\"1.0\" encoding=\"GBK\"?><r><u unit=\"\xB8\xF6\" decimal=\"1\"/></r>",
                       {u"个"}),
              (Answers{u"1"}));
}

TEST(UnitDecimals, FoldersMayHaveAnyName) {
    const ProbedInstallation installation("造价 100%/计价软件 #1");
    installation.Write(DecimalsFile, "<r><u unit=\"m\" decimal=\"3\"/></r>");
    EXPECT_EQ(installation.Ask({u"decimals", u"m"}), (Answers{u"3"}));
}

TEST(UnitDecimals, TheSampleHasTheUnitsOfConstruction) {
    const ProbedInstallation installation;
    installation.CopySample(DecimalsFile);
    EXPECT_EQ(
        installation.Ask({u"decimals", u"t",  u"decimals", u"m",  u"decimals", u"m2", u"decimals", u"m3",
                          u"decimals", u"kg", u"decimals", u"樘", u"decimals", u"套", u"decimals", u"项",
                          u"decimals", u"株", u"decimals", u"个", u"decimals", u"台", u"decimals", u"?"}),
        (Answers{u"3", u"2", u"2", u"2", u"2", u"0", u"0", u"0", u"0", u"0", u"0", u"2"}));
}

}  // namespace
