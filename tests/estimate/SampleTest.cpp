#include <map>

#include <gtest/gtest.h>

#include "ArgumentFolder.h"
#include "TestSupport.h"

namespace {

using Row = std::vector<std::string>;

const std::string SampleTable = std::string(ESTIMATE_SAMPLES) + "/bill.csv";
const std::string SampleVariables = std::string(ESTIMATE_SAMPLES) + "/variables.csv";

/// kind, code, name, unit, quantity, price, amount of the rows that the expectations hold.
std::vector<Row> Priced(const std::string& csv) {
    std::vector<Row> priced;
    for (const Row& row : CsvRowsOf(csv)) {
        if (row[0] == "bill" || row[0] == "quota")
            priced.push_back({row[0], row[1], row[2], row[4], row[6], row[7], row[8]});
        else if (row[0] == "chapter")
            priced.push_back({row[0], row[1], "", "", "", "", row[8]});
        else if (row[0] == "total" && row[1] == "bill")
            priced.push_back({row[0], "", "", "", "", "", row[8]});
    }
    return priced;
}

}  // namespace

// The expected rows were calculated with exact fractions by the rules of school arithmetic.
TEST(Sample, EveryRowAsCalculatedByHand) {
    const ProgramRun run = RunEstimate({"price", SampleTable, "--vars", SampleVariables, "--csv"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    std::vector<Row> expected = CsvRowsOf(ReadWhole(std::string(ESTIMATE_DATA) + "/office-expected.csv"));
    expected.erase(expected.begin());
    const std::vector<Row> priced = Priced(run.out);
    ASSERT_EQ(priced.size(), expected.size());
    for (std::size_t i = 0; i < priced.size(); ++i)
        EXPECT_EQ(priced[i], expected[i]) << "row " << i;
}

TEST(Sample, IsARealBuilding) {
    std::map<std::string, int> kinds;
    std::map<std::string, int> chapters;
    for (const Row& row :
         CsvRowsOf(RunEstimate({"price", SampleTable, "--vars", SampleVariables, "--csv"}).out)) {
        ++kinds[row[0]];
        if (row[0] == "bill")
            ++chapters[row[1].substr(0, 4)];
    }
    EXPECT_GE(kinds["bill"], 80);
    EXPECT_GE(kinds["quota"], 150);
    for (const char* chapter :
         {"0101", "0104", "0105", "0108", "0109", "0110", "0111", "0112", "0113", "0114"})
        EXPECT_GE(chapters[chapter], 3) << chapter;
}

TEST(Sample, AmountsAddUp) {
    std::map<std::string, long long> sums;
    for (const Row& row :
         CsvRowsOf(RunEstimate({"price", SampleTable, "--vars", SampleVariables, "--csv"}).out)) {
        if (row[8].empty() || row[8] == "amount")
            continue;
        std::string fen = row[8];
        std::erase(fen, '.');
        sums[row[0] == "total" ? row[0] + row[1] : row[0]] += std::stoll(fen);
    }
    EXPECT_EQ(sums["bill"], sums["totalbill"]);
    EXPECT_EQ(sums["chapter"], sums["totalbill"]);
    EXPECT_EQ(sums["section"], sums["totalbill"]);
    EXPECT_EQ(sums["quota"], sums["totalquota"]);
    EXPECT_EQ(sums["resource"], sums["totalquota"]);
}

TEST(Sample, TheTextEndsWithTheTotal) {
    const ProgramRun run =
        RunEstimate({"price", SampleTable, "--vars", SampleVariables, "--area", "LW*BW*3"});
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(
        run.out.ends_with("清单合计  2,973,878.20 元\n单方造价  1,868.41 元/m2\n"
                          "大写金额  贰佰玖拾柒万叁仟捌佰柒拾捌元贰角\n"))
        << run.out.substr(run.out.size() - 300);
}

TEST(Sample, WithoutItsVariablesMostRowsAreBad) {
    const ProgramRun run = RunEstimate({"price", SampleTable});
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.err.find("\"LW\" is neither a number nor a known variable"), std::string::npos);
}

namespace {

const std::string Document = std::string(ESTIMATE_SAMPLES) + "/project.xml";
const std::string SampleProject = "三层办公楼";

}  // namespace

TEST(Sample, TheDocumentIsPricedAsTheTablesAre) {
    for (const std::vector<std::string>& form :
         {std::vector<std::string>{}, {"--features"}, {"--json"}, {"--csv"}, {"--csv", "--bom"}}) {
        std::vector<std::string> document = {"price", Document};
        std::vector<std::string> tables = {"price",  SampleTable,   "--vars", SampleVariables,
                                           "--name", SampleProject, "--area", "LW*BW*3"};
        document.insert(document.end(), form.begin(), form.end());
        tables.insert(tables.end(), form.begin(), form.end());
        const ProgramRun run = RunEstimate(document);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err, "");
        EXPECT_GT(run.out.size(), 10'000u);
        EXPECT_EQ(run.out, RunEstimate(tables).out);
    }
}

TEST(Sample, TheDocumentIsWhatTheTablesConvertTo) {
    const ArgumentFolder folder;
    const std::string made = folder.Path("made.xml");
    EXPECT_EQ(RunEstimate({"convert", SampleTable, "--vars", SampleVariables, "--name", SampleProject,
                           "--area", "LW*BW*3", "-o", made})
                  .status,
              0);
    EXPECT_EQ(ReadWhole(made), ReadWhole(Document));
}

TEST(Sample, TheDocumentConvertsBackToTheTables) {
    const ArgumentFolder folder;
    const std::string bill = folder.Path("bill.csv");
    const std::string variables = folder.Path("variables.csv");
    EXPECT_EQ(RunEstimate({"convert", Document, "-o", bill, "--vars-out", variables}).status, 0);
    EXPECT_EQ(CsvRowsOf(ReadWhole(bill)), CsvRowsOf(ReadWhole(SampleTable)));
    EXPECT_EQ(CsvRowsOf(ReadWhole(variables)), CsvRowsOf(ReadWhole(SampleVariables)));
}
