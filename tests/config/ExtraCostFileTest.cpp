// Extra costs in files, and where the files are.
#include <list>
#include <map>

#include <gtest/gtest.h>

#include "QsUtils/config/ExtraCostFile.h"

#include "tests/support/TemporaryFolder.h"

using QsConfig::CoefficientTypeOf;
using QsConfig::ExtraCostPath;
using QsConfig::ReadExtraCosts;

using Options = std::list<CString>;
using Types = std::map<CString, CString>;

namespace {

std::optional<QsConfig::ExtraCosts> CostsOf(std::string_view contents) {
    const TemporaryFolder folder;
    folder.Write("库.ec", contents);
    return ReadExtraCosts(folder.Text("库.ec"));
}

TEST(ExtraCostFile, OptionsAndTypes) {
    const auto costs = CostsOf(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><any>\n"
        "<Overheight><Value Name=\"檐高20m\"/><Value/><Other Name=\"x\"/><Value "
        "Name=\"檐高20m\"/></Overheight>"
        "<ExtraCostType><Type Name=\"a\" Coefficient=\"子目系数\"/><Type Name=\"b\"/><Type "
        "Coefficient=\"综合系数\"/><Kind Name=\"c\"/><Type Name=\"a\" Coefficient=\"工程系数\"/>"
        "</ExtraCostType></any>");
    ASSERT_TRUE(costs);
    EXPECT_EQ(costs->overHeight, (Options{u"檐高20m", u"", u"檐高20m"}));
    EXPECT_EQ(costs->types, (Types{{u"a", u"子目系数"}, {u"b", u""}, {u"", u"综合系数"}}));
}

TEST(ExtraCostFile, SeveralGroupsAddUp) {
    const auto costs = CostsOf(
        "<r><Overheight><Value Name=\"1\"/></Overheight><ExtraCostType><Type Name=\"a\" Coefficient=\"x\"/>"
        "</ExtraCostType><Overheight><Value Name=\"2\"/></Overheight><ExtraCostType><Type Name=\"a\" "
        "Coefficient=\"y\"/><Type Name=\"b\" Coefficient=\"z\"/></ExtraCostType></r>");
    ASSERT_TRUE(costs);
    EXPECT_EQ(costs->overHeight, (Options{u"1", u"2"}));
    EXPECT_EQ(costs->types, (Types{{u"a", u"x"}, {u"b", u"z"}}));
}

TEST(ExtraCostFile, OnlyDirectChildrenOfExactNamesCount) {
    const auto costs = CostsOf(
        "<r><overheight><Value Name=\"1\"/></overheight><x><Overheight><Value Name=\"2\"/></Overheight></x>"
        "<Overheight><value Name=\"3\"/><g><Value Name=\"4\"/></g><Value name=\"5\"/></Overheight>"
        "<Extracosttype><Type Name=\"a\"/></Extracosttype><ExtraCostType><type Name=\"b\"/></ExtraCostType>"
        "</r>");
    ASSERT_TRUE(costs);
    EXPECT_EQ(costs->overHeight, (Options{u""}));
    EXPECT_EQ(costs->types, Types{});
}

TEST(ExtraCostFile, AnEmptyRootHasNone) {
    const auto costs = CostsOf("<Overheight/>");
    ASSERT_TRUE(costs);
    EXPECT_TRUE(costs->overHeight.empty());
    EXPECT_TRUE(costs->types.empty());
}

TEST(ExtraCostFile, BadFilesAreNone) {
    for (const char* contents : {"", "x", "<r>", "<r></s>", "<r a=\"1\" a=\"2\"/>"})
        EXPECT_FALSE(CostsOf(contents)) << contents;
    const TemporaryFolder folder;
    EXPECT_FALSE(ReadExtraCosts(folder.Text("none.ec")));
    EXPECT_FALSE(ReadExtraCosts(FromNativePath(folder.Path())));
    EXPECT_FALSE(ReadExtraCosts(CString()));
}

TEST(ExtraCostFile, EverythingFromTheLastPointOnIsReplaced) {
    EXPECT_EQ(ExtraCostPath(u"\\a\\x.mdb"), u"\\a\\x.ec");
    EXPECT_EQ(ExtraCostPath(u"\\a\\x.y.mdb"), u"\\a\\x.y.ec");
    EXPECT_EQ(ExtraCostPath(u"\\a\\x."), u"\\a\\x.ec");
    EXPECT_EQ(ExtraCostPath(u".x"), u".ec");
    EXPECT_EQ(ExtraCostPath(u"\\a.b\\x"), u"\\a.ec");
    EXPECT_EQ(ExtraCostPath(u"\\a\\x"), u"");
    EXPECT_EQ(ExtraCostPath(u""), u"");
}

TEST(ExtraCostFile, CoefficientTexts) {
    EXPECT_EQ(CoefficientTypeOf(u"子目系数"), eExtraCost_ItemCoefficient);
    EXPECT_EQ(CoefficientTypeOf(u"工程系数"), eExtraCost_ProjectCoefficient);
    EXPECT_EQ(CoefficientTypeOf(u"综合系数"), eExtraCost_CompositeCoefficient);
    for (const char16_t* other : {u"", u"1.05", u"子目系数 ", u" 子目系数", u"系数", u"1"})
        EXPECT_EQ(CoefficientTypeOf(other), eExtraCost_Unknown);
    EXPECT_EQ(static_cast<int>(eExtraCost_Unknown), 0);
    EXPECT_EQ(static_cast<int>(eExtraCost_ItemCoefficient), 1);
    EXPECT_EQ(static_cast<int>(eExtraCost_ProjectCoefficient), 2);
    EXPECT_EQ(static_cast<int>(eExtraCost_CompositeCoefficient), 3);
}

}  // namespace
