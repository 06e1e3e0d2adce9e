// Whole runs of the conversion.
#include <random>

#include <gtest/gtest.h>

#include "ArgumentFolder.h"
#include "BillGenerator.h"
#include "TestSupport.h"

namespace {

using Row = std::vector<std::string>;

const std::string CsvBill =
    std::string(Headings) +
    ",砌筑工程,,,,\n010401001001,砖基础,\"1.砖:\"\"MU10\"\"\r\n2.砂浆\",m³,L*2,\"1,234.50\"\n"
    "4-1,砖,,10m3,Q/10,100\n,主材,,,,\nZC-1,<a&b>'\t',,t,Q,1\n010401001002,bad,,m3,X,y\n";
const std::string CsvVariables = "name,remark,value\nL,长,36.24\nB,,14\n";

/// All but the heading row.
std::vector<Row> DataOf(const std::string& csv) {
    std::vector<Row> rows = CsvRowsOf(csv);
    rows.erase(rows.begin());
    return rows;
}

class Convert : public ::testing::Test {
protected:
    std::string Path(const char* name) const { return m_folder.Path(name); }
    std::string Write(const char* name, std::string_view text) const { return m_folder.Write(name, text); }
    std::string Read(const char* name) const { return m_folder.Read(name); }

    /// What the conversion of a bill to XML says when it refuses it.
    std::string Refusal(const std::string& csv) const {
        const ProgramRun run = RunEstimate({"convert", "-", "-o", Path("refused.xml")}, csv);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_FALSE(m_folder.Has("refused.xml"));
        return run.err;
    }

    ArgumentFolder m_folder;
};

/// A bill of strange texts, most of which can't be priced.
std::string RandomBill(std::mt19937& random) {
    constexpr const char* texts[] = {"",     "砖",    "a,b",  "\"q\"",    "x\r\ny",       "<&>",
                                     "m3",   "1+2*3", "L*2",  "10.5",     "1,234",        "]]>",
                                     "&#1;", "𠮷",    "a  b", "\xC2\x85", "\xE2\x80\xA8z"};
    std::string csv = Headings;
    std::string code = "010401001001";
    for (std::size_t left = random() % 8; left > 0; --left) {
        csv += code;
        for (int i = 0; i < 5; ++i) {
            std::string field = texts[random() % std::size(texts)];
            for (std::size_t at = field.find('"'); at != std::string::npos; at = field.find('"', at + 2))
                field.insert(at, 1, '"');
            csv.append(",\"").append(field).append("\"");
        }
        csv += "\r\n";
        constexpr const char* codes[] = {"010402001002", "4-1", "A5-12", "", "010401001001"};
        code = codes[random() % std::size(codes)];
    }
    return csv;
}

}  // namespace

TEST_F(Convert, ThereAndBack) {
    const std::string bill = Write("bill.csv", CsvBill);
    const std::string variables = Write("variables.csv", CsvVariables);
    EXPECT_EQ(RunEstimate({"convert", bill, "--vars", variables, "-o", Path("p.xml")}).status, 0);
    const ProgramRun back =
        RunEstimate({"convert", Path("p.xml"), "-o", Path("b.CSV"), "--vars-out", Path("v.csv")});
    EXPECT_EQ(back.status, 0);
    EXPECT_EQ(back.err, "");
    EXPECT_EQ(DataOf(Read("b.CSV")), DataOf(CsvBill));
    EXPECT_EQ(Read("v.csv"), "\"变量名\",\"数值\",\"说明\"\r\n\"L\",\"36.24\",\"长\"\r\n\"B\",\"14\",\r\n");
    const ProgramRun priced = RunEstimate({"price", Path("p.xml")});
    EXPECT_EQ(priced.status, 1);
    EXPECT_EQ(priced.out, RunEstimate({"price", bill, "--vars", variables}).out);
    EXPECT_EQ(m_folder.Entries(), 5);
}

TEST_F(Convert, RandomBillsThereAndBack) {
    std::mt19937 random(44);
    const std::string variables = Write("v.csv", CsvVariables);
    int priced = 0;
    for (int i = 0; i < 400; ++i) {
        const std::string csv = RandomBill(random);
        const std::string bill = Write("bill.csv", csv);
        ASSERT_EQ(RunEstimate({"convert", bill, "--vars", variables, "-o", Path("p.xml")}).err, "") << csv;
        ASSERT_EQ(
            RunEstimate({"convert", Path("p.xml"), "-o", Path("b.csv"), "--vars-out", Path("w.csv")}).err,
            "");
        ASSERT_EQ(CsvRowsOf(Read("w.csv")).size(), 3u);
        ASSERT_EQ(DataOf(Read("b.csv")), DataOf(csv)) << csv;
        const ProgramRun ofTable = RunEstimate({"price", bill, "--vars", variables});
        const ProgramRun ofDocument = RunEstimate({"price", Path("p.xml")});
        ASSERT_EQ(ofDocument.out, ofTable.out) << csv;
        ASSERT_EQ(ofDocument.status, ofTable.status);
        priced += ofTable.out.find("清单项目  0 项") == std::string::npos ? 1 : 0;
    }
    EXPECT_GT(priced, 5);
}

TEST_F(Convert, ALongBill) {
    std::ostringstream csv;
    GenerateBill(csv, 100'000);
    const std::string bill = Write("bill.csv", csv.str());
    EXPECT_EQ(RunEstimate({"convert", bill, "-o", Path("p.xml")}).err, "");
    const ProgramRun ofDocument = RunEstimate({"price", Path("p.xml"), "--csv"});
    EXPECT_EQ(ofDocument.status, 0);
    EXPECT_TRUE(ofDocument.out == RunEstimate({"price", bill, "--csv"}).out);
}

TEST_F(Convert, NameAndArea) {
    const std::string first = Path("a.xml");
    EXPECT_EQ(RunEstimate({"convert", "-", "-o", first, "--name", "甲\"", "--area", "L*2"}, CsvBill).status,
              0);
    EXPECT_NE(Read("a.xml").find("<Project Area=\"L*2\" Name=\"甲&quot;\">"), std::string::npos);
    EXPECT_EQ(RunEstimate({"convert", first, "-o", Path("b.xml")}).status, 0);
    EXPECT_EQ(Read("b.xml"), Read("a.xml"));
    EXPECT_EQ(RunEstimate({"convert", first, "-o", first, "--name", "乙"}).status, 0);
    EXPECT_NE(Read("a.xml").find("<Project Area=\"L*2\" Name=\"乙\">"), std::string::npos);
}

TEST_F(Convert, VariablesOfATableReplaceThoseOfTheProject) {
    const std::string variables = Write("v.csv", CsvVariables);
    EXPECT_EQ(RunEstimate({"convert", "-", "--vars", variables, "-o", Path("p.xml")}, CsvBill).status, 0);
    const std::string others = Write("o.csv", "name,value\nl,40\nH,3\n");
    EXPECT_EQ(RunEstimate({"convert", Path("p.xml"), "--vars", others, "-o", Path("q.xml"), "--vars-out",
                           Path("w.csv")})
                  .status,
              0);
    EXPECT_EQ(DataOf(Read("w.csv")), (std::vector<Row>{{"l", "40", "长"}, {"B", "14", ""}, {"H", "3", ""}}));
    EXPECT_EQ(RunEstimate({"price", Path("q.xml")}).out,
              RunEstimate({"price", Path("p.xml"), "--vars", others}).out);
}

TEST_F(Convert, TablesSayWhatTheyLeaveOut) {
    const std::string variables = Write("v.csv", CsvVariables);
    const ProgramRun run = RunEstimate({"convert", "-", "--vars", variables, "-o", Path("b.csv")}, CsvBill);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "estimate: warning: the variables are left out; --vars-out writes them\n");
    EXPECT_EQ(RunEstimate({"convert", "-", "-o", Path("b.csv"), "--bom"}, CsvBill).err, "");
    EXPECT_TRUE(Read("b.csv").starts_with("\xEF\xBB\xBF\"项目编码\""));
}

TEST_F(Convert, Gbk) {
    const CString text(u"编码,名称,单位,工程量,单价\n010401001001,砖基础,m3,2,3\n");
    const std::string bill = Write("bill.csv", IQsUtils::UnicodeToAnsi(text.ToWide()));
    EXPECT_EQ(RunEstimate({"convert", bill, "-o", Path("目录 100%#1.xml")}).status, 0);
    EXPECT_NE(m_folder.Read("目录 100%#1.xml").find("Name=\"砖基础\""), std::string::npos);
}

TEST_F(Convert, AllOrNothing) {
    const std::string nothing = "estimate: nothing is written\n";
    EXPECT_EQ(
        Refusal(std::string(Headings) + "4-1,a,,m3,1,1\n010401001001,a,,m3,1,1,extra\n"),
        "(standard input):2: error: no bill item stands above the quota row\n"
        "(standard input):3: error: the row has 7 fields and the headings 6; a text with a comma stands in "
        "quotes\n" +
            nothing);
    EXPECT_EQ(Refusal(std::string(Headings) + "010401001001,a\x01,,m3,1,1\n"),
              "(standard input):2:2: error: name: XML can't hold the character U+0001\n" + nothing);
    EXPECT_EQ(Refusal(std::string(Headings) + "010401001001,a,\xEF\xBF\xBE,m3,1,1\n"),
              "(standard input):2:3: error: features: XML can't hold the character U+FFFE\n" + nothing);
    EXPECT_EQ(Refusal(std::string(Headings) + "010401001001,\"a\n"),
              "(standard input):2: error: a quote opened in this row is never closed\n" + nothing);
    EXPECT_EQ(Refusal("code,name\n"),
              "estimate: (standard input): no row names the columns: unit, formula, price\n");
    EXPECT_EQ(Refusal("<Project/>"), "estimate: a project in XML is read from a file\n");
}

TEST_F(Convert, AFailureLeavesTheOldFile) {
    const std::string project = Write("p.xml", "before");
    EXPECT_EQ(RunEstimate({"convert", "-", "-o", project}, "4-1").status, 2);
    const std::string variables = Write("v.csv", "name,value\nA\x02,1\n");
    const ProgramRun run = RunEstimate({"convert", "-", "--vars", variables, "-o", project}, CsvBill);
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, variables + ":2:1: error: name: XML can't hold the character U+0002\n" +
                           "estimate: nothing is written\n");
    EXPECT_EQ(Read("p.xml"), "before");
}

TEST_F(Convert, WhatATableCannotSay) {
    const std::string project = Write("p.xml", "<Project><Bill><Item Code='1'/></Bill></Project>");
    const ProgramRun run = RunEstimate({"convert", project, "-o", Path("b.csv")});
    EXPECT_EQ(run.status, 2);
    EXPECT_TRUE(run.err.starts_with(project + ": item 1: error: a table tells a bill item by its code"))
        << run.err;
    EXPECT_FALSE(m_folder.Has("b.csv"));
}

TEST_F(Convert, WrongCalls) {
    const auto refusal = [](std::vector<std::string> options) {
        options.insert(options.begin(), {"convert", "-"});
        const ProgramRun run = RunEstimate(options, CsvBill);
        EXPECT_EQ(run.status, 2);
        return run.err;
    };
    EXPECT_EQ(refusal({"-o", "x.txt"}), "estimate: the output ends with .xml or .csv: x.txt\n");
    EXPECT_EQ(refusal({"-o", "-"}), "estimate: the output ends with .xml or .csv: -\n");
    EXPECT_EQ(refusal({"-o", "x.csv", "--vars-out", "x.csv"}),
              "estimate: --output and --vars-out are the same file\n");
    EXPECT_EQ(refusal({"-o", Path("x.xml"), "--name", "a\x01"}),
              "estimate: --name: XML can't hold the character U+0001\n");
    EXPECT_EQ(refusal({"-o", Path("x.xml"), "--area", "\xED\xA0\x80"}),
              "estimate: --area: the text isn't Unicode\n");
    EXPECT_EQ(refusal({"-o", Path("x.xml"), "--vars", Path("none.csv")}),
              "estimate: the file can't be read: " + Path("none.csv") + "\n");
    for (const char* path : {"none/x.xml", "none/x.csv"})
        EXPECT_EQ(refusal({"-o", Path(path)}), "estimate: the file can't be written: " + Path(path) + "\n");
    EXPECT_EQ(refusal({"-o", Path("x.xml"), "--vars-out", Path("none/v.csv")}),
              "estimate: the file can't be written: " + Path("none/v.csv") + "\n");
    EXPECT_EQ(m_folder.Entries(), 0);
    EXPECT_EQ(RunEstimate({"convert", Path("none.xml"), "-o", Path("x.csv")}).status, 2);
    EXPECT_EQ(RunEstimate({"convert", Write("bad.xml", "<a"), "-o", Path("x.csv")}).status, 2);
}
