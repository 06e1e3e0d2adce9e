// The commands about overviews, extra costs, marks and the history, in an installation.
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "TestSupport.h"
#include "tests/support/Installation.h"

namespace {

const std::filesystem::path Samples = ESTIMATE_SAMPLES;
const std::string Overview = std::string(ESTIMATE_SAMPLES) + "/overview.xml";

std::string WithoutReturns(std::string text) {
    std::erase(text, '\r');
    return text;
}

class Configured : public testing::Test {
protected:
    ProgramResult Run(const std::vector<std::string>& arguments) const {
        ProgramResult result = m_installation.Run(arguments);
        result.out = WithoutReturns(result.out);
        return result;
    }
    std::string Path(const std::string& name) const {
        const std::u8string path = (m_installation.Folder() / name).u8string();
        return std::string(path.begin(), path.end());
    }

    Installation m_installation{ESTIMATE_PROGRAM, ESTIMATE_MODULES};
};

TEST_F(Configured, TheOverviewOfAProject) {
    const ProgramResult result = Run({"overview", Overview});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_TRUE(result.out.starts_with("工程信息\n  GCMC         工程名称                 文本, 打印\n"))
        << result.out;
    for (const char* line : {"\n工程特征内容\n  JZMJ         建筑面积                 数值, 2 位小数, 打印\n",
                             "  WQBW         外墙保温做法             文本, 打印, 自定义\n电子招投标信息\n",
                             "  JYM          校验码                   文本, 隐藏\n"})
        EXPECT_NE(result.out.find(line), std::string::npos) << result.out;
}

TEST_F(Configured, TheSampleWithAnOverviewIsPriced) {
    const ProgramRun run = RunEstimate({"price", Overview});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("清单合计  10,137.72 元"), std::string::npos) << run.out;
}

TEST_F(Configured, TheOfferIsAddedToAProjectThatHasNone) {
    EXPECT_EQ(Run({"overview"}).status, 1);
    m_installation.Write("p.xml", "<Project><Bill/></Project>");
    EXPECT_EQ(Run({"overview", Path("p.xml")}).status, 1);
    EXPECT_EQ(Run({"overview", "--add", Path("p.xml")}).status, 2) << "nothing is offered";
    m_installation.CopyIn(Samples / "installation/FieldChoose.cos");
    const ProgramResult offered = Run({"overview"});
    EXPECT_EQ(offered.status, 0) << offered.err;
    EXPECT_EQ(offered.out.find("软件内部编号"), std::string::npos) << "a field of another group";
    EXPECT_NE(offered.out.find("  JCLX         基础类型                 选项\n"), std::string::npos);
    EXPECT_EQ(Run({"overview", "--add", Path("p.xml")}).status, 0);
    EXPECT_EQ(Run({"overview", Path("p.xml")}).out, offered.out);
    const ProgramResult again = Run({"overview", "--add", Path("p.xml")});
    EXPECT_EQ(again.status, 2);
    EXPECT_NE(again.err.find("has an overview"), std::string::npos) << again.err;
}

TEST_F(Configured, WhatIsNoProjectIsRefused) {
    m_installation.CopyIn(Samples / "installation/FieldChoose.cos");
    m_installation.Write("p.csv", "code\n");
    m_installation.Write("broken.xml", "<p>");
    m_installation.Write("locked.xml", "<p/>");
    using std::filesystem::perms;
    std::filesystem::permissions(m_installation.Folder() / "locked.xml", perms::owner_read);
    for (const char* name : {"none.xml", "p.csv"})
        EXPECT_EQ(Run({"overview", Path(name)}).status, 2) << name;
    for (const char* name : {"none.xml", "p.csv", "broken.xml", "locked.xml"}) {
        const ProgramResult result = Run({"overview", "--add", Path(name)});
        EXPECT_EQ(result.status, 2) << name;
        EXPECT_NE(result.err, "") << name;
    }
    std::filesystem::permissions(m_installation.Folder() / "locked.xml",
                                 perms::owner_read | perms::owner_write);
    EXPECT_EQ(m_installation.Read("locked.xml"), "<p/>");
}

TEST_F(Configured, MarksOfAKindOfItem) {
    EXPECT_EQ(Run({"marks", "taxes"}).status, 1);
    m_installation.Write("Config/MarkConfig.xml",
                         "<r><QdMode><FeeTax><m Code='SJ' Name='税金'/><m Code='GF' Name='规费'/></FeeTax>"
                         "</QdMode><DeMode><FeeTax><m Code='D' Name='定额'/></FeeTax></DeMode></r>");
    EXPECT_EQ(Run({"marks", "taxes"}).out, "GF           规费\nSJ           税金\n");
    EXPECT_EQ(Run({"marks", "taxes", "--quota"}).out, "D            定额\n");
    EXPECT_EQ(Run({"marks", "FeeTax"}).status, 2);
}

TEST_F(Configured, TheMarksOfTheSample) {
    m_installation.Write("Config/MarkConfig.xml",
                         ReadWhole(std::string(ESTIMATE_SAMPLES) + "/installation/Config/MarkConfig.xml"));
    const std::vector<std::pair<std::string, std::string>> marks = {
        {"measures", "AQWM         安全文明施工费\nYJSG         夜间施工费\n"},
        {"taxes", "SHBX         社会保险费\nSJ           税金\nZFGJJ        住房公积金\n"},
        {"fees", "CSXM         措施项目费\nFBFX         分部分项工程费\nGCZJ         工程造价\n"},
        {"other", "ZLJE         暂列金额\nZYGCZGJ      专业工程暂估价\n"},
        {"provisional", "ZGJ          暂估价\n"}};
    for (const auto& [group, listed] : marks) {
        const ProgramResult result = Run({"marks", group});
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(result.out, listed);
        EXPECT_EQ(Run({"marks", group, "--quota"}).out, listed);
        EXPECT_EQ(Run({"marks", group, "--folder", "no such folder"}).out, listed);
    }
}

TEST_F(Configured, TheHistoryOfAnInputField) {
    EXPECT_EQ(Run({"history", "工程名称"}).out, "");
    m_installation.CopyIn(Samples / "installation/HistoryInput.ini");
    EXPECT_EQ(Run({"history", "工程名称"}).out, "三层办公楼\n门卫室\n厂区围墙\n");
    EXPECT_EQ(Run({"history", "工程名称", "车库", "门卫室"}).out, "门卫室\n车库\n三层办公楼\n厂区围墙\n");
    EXPECT_EQ(Run({"history", "工程名称"}).out, "门卫室\n车库\n三层办公楼\n厂区围墙\n");
}

TEST_F(Configured, WithoutLibrariesThereAreNoExtraCosts) {
    const ProgramResult result = Run({"extra-costs", "x.zkx", "--family", "北京"});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.err.find("no extra costs of x.zkx in family 北京"), std::string::npos) << result.err;
    EXPECT_EQ(Run({"extra-costs", "x.zkx"}).status, 2);
}

}  // namespace
