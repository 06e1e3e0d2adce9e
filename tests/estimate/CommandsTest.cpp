#include <cstdio>
#include <filesystem>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "ArgumentFolder.h"
#include "TestSupport.h"
#include "tests/support/Devices.h"

namespace {

namespace fs = std::filesystem;

const std::string OneItemBill = std::string(Headings) + "010401001001,砖基础,,m3,10,100\n";
const std::string BadBill = OneItemBill + "4-1,a,,m3,?,1\n";

using Folder = ArgumentFolder;

}  // namespace

TEST(Commands, HelpEverywhere) {
    const ProgramRun help = RunEstimate({"--help"});
    EXPECT_EQ(help.status, 0);
    for (const char* command : {"price", "convert", "eval", "vars", "capital", "sort", "unit", "libraries"}) {
        EXPECT_TRUE(Has(help.out, command)) << command;
        const ProgramRun run = RunEstimate({command, "--help"});
        EXPECT_EQ(run.status, 0) << command;
        EXPECT_TRUE(Has(run.out, "Usage: estimate " + std::string(command))) << run.out;
    }
    EXPECT_TRUE(Has(help.out, "Exit status"));
}

TEST(Commands, WrongUsageCannotRun) {
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{},
                                                      {"unknown"},
                                                      {"price"},
                                                      {"price", "-", "--json", "--csv"},
                                                      {"price", "-", "--bom"},
                                                      {"unit"},
                                                      {"convert", "-"},
                                                      {"convert", "-o", "x.xml"},
                                                      {"sort", "--kind", "x"},
                                                      {"eval", "-d", "7", "1"},
                                                      {"price", "-", "--nonsense"}}) {
        const ProgramRun run = RunEstimate(arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_NE(run.err, "");
        EXPECT_EQ(run.out, "");
    }
}

TEST(Commands, PriceFromStandardInput) {
    const ProgramRun run = RunEstimate({"price", "-"}, OneItemBill);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_TRUE(Has(run.out, "清单合计  1,000.00 元"));
}

TEST(Commands, BadRowsGiveStatusOne) {
    const ProgramRun run = RunEstimate({"price", "-", "--json"}, BadBill);
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err,
              "(standard input):3:5: error: formula: \"?\" is neither a number nor a known variable\n");
    EXPECT_EQ(nlohmann::json::parse(run.out)["total"]["amount"], 1000.0);
}

TEST(Commands, WarningsGiveStatusNull) {
    const ProgramRun run =
        RunEstimate({"price", "-"}, std::string(Headings) + "010401001001,a,,m3,10-2-3,1\n");
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(Has(run.err, ":2:5: warning: formula: at 5:"));
}

TEST(Commands, WhatCannotBeReadOrWritten) {
    const Folder folder;
    EXPECT_EQ(RunEstimate({"price", folder.Path("none.csv")}).status, 2);
    EXPECT_EQ(RunEstimate({"price", folder.Path("")}).status, 2);
    EXPECT_EQ(RunEstimate({"price", "-", "--vars", folder.Path("none.csv")}, OneItemBill).status, 2);
    EXPECT_EQ(RunEstimate({"price", "-"}, "no table\n").status, 2);
    EXPECT_EQ(RunEstimate({"price", "-"}, std::string("a\0b", 3)).status, 2);
    const std::string noValue = folder.Write("v.csv", "name\n");
    EXPECT_EQ(RunEstimate({"price", "-", "--vars", noValue}, OneItemBill).status, 2);
    EXPECT_EQ(RunEstimate({"price", "-", "-o", folder.Path("none/x.txt")}, OneItemBill).status, 2);
    EXPECT_EQ(RunEstimate({"price", "-", "--area", "X"}, OneItemBill).status, 2);
    EXPECT_EQ(RunEstimate({"price", "-", "--area", "0"}, OneItemBill).status, 2);
}

TEST(Commands, BadVariablesGiveStatusOne) {
    const Folder folder;
    const std::string variables = folder.Write("v.csv", "name,value\nA,1\nB,x\n");
    const ProgramRun run = RunEstimate({"price", "-", "--vars", variables}, OneItemBill);
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(Has(run.err, variables + ":3:2: error: value: "));
}

TEST(Commands, OutputFilesArePutInPlaceWhole) {
    const Folder folder;
    const std::string target = folder.Write("out.csv", "before");
    EXPECT_EQ(RunEstimate({"price", "-", "--csv", "--bom", "-o", target}, OneItemBill).status, 0);
    EXPECT_TRUE(ReadWhole(target).starts_with("\xEF\xBB\xBF\"kind\",\"code\""));
    EXPECT_EQ(std::distance(fs::directory_iterator(fs::path(target).parent_path()), fs::directory_iterator()),
              1);
    EXPECT_EQ(RunEstimate({"price", "-", "-o", NullDevice()}, OneItemBill).status, 0);
    if (const auto device = FullDevice()) {
        EXPECT_EQ(RunEstimate({"price", "-", "-o", *device}, OneItemBill).status, 2);
    }
}

TEST(Commands, Eval) {
    EXPECT_EQ(RunEstimate({"eval", "1+2*3", "2*(3+4)"}).out, "7\n14\n");
    EXPECT_EQ(RunEstimate({"eval"}, "1+1\r\n2*2\n").out, "2\n4\n");
    EXPECT_EQ(RunEstimate({"eval", "A*Q", "--var", "A=2", "--var", "B=3", "-q", "10.5"}).out, "21\n");
    EXPECT_EQ(RunEstimate({"eval", "-d", "2", "2.675"}).out, "2.68\n");
    EXPECT_EQ(RunEstimate({"eval", "-d", "2", "99999*99999"}).out, "9999800001.00\n");
    EXPECT_EQ(RunEstimate({"eval", "--", "-(1+2)"}).out, "-3\n");
    const ProgramRun bad = RunEstimate({"eval", "X", "1"});
    EXPECT_EQ(bad.status, 1);
    EXPECT_EQ(bad.out, "1\n");
    EXPECT_EQ(bad.err, "X: error: \"X\" is neither a number nor a known variable\n");
    EXPECT_EQ(RunEstimate({"eval", "1", "--var", "A"}).status, 2);
    EXPECT_EQ(RunEstimate({"eval", "1", "--var", "A=x"}).status, 2);
    EXPECT_EQ(RunEstimate({"eval", "1", "-q", "x"}).status, 2);
    EXPECT_EQ(RunEstimate({"eval", "1", "--vars", "/none"}).status, 2);
    const Folder folder;
    const std::string variables = folder.Write("v.csv", "name,value\nA,7\nB,x\n");
    EXPECT_EQ(RunEstimate({"eval", "A", "--vars", variables}).out, "7\n");
}

TEST(Commands, Vars) {
    EXPECT_EQ(RunEstimate({"vars", "A+BC*2"}).out, "A\nBC\n");
    EXPECT_EQ(RunEstimate({"vars", "--positions", "A+BC"}).out, "1\tA\n4\tBC\n");
    EXPECT_EQ(RunEstimate({"vars", "A+A+1"}).out, "A\nA\n");
    EXPECT_EQ(RunEstimate({"vars", "-q", "100.00", "Q*2+[q]"}).out, "100*2+100\n");
    EXPECT_EQ(RunEstimate({"vars", "1+2"}).out, "");
}

TEST(Commands, Capital) {
    EXPECT_EQ(RunEstimate({"capital", "12.34", "1,000"}).out, "壹拾贰元叁角肆分\n壹仟元整\n");
    EXPECT_EQ(RunEstimate({"capital", "-1.5"}).out, "负壹元伍角\n");
    EXPECT_EQ(RunEstimate({"capital", "--plain", "105"}).out, "一百零五\n");
    const ProgramRun bad = RunEstimate({"capital"}, "x\n1\n");
    EXPECT_EQ(bad.status, 1);
    EXPECT_EQ(bad.out, "壹元整\n");
    EXPECT_EQ(bad.err, "estimate: no number: x\n");
    EXPECT_EQ(RunEstimate({"capital", "--plain", "1.5"}).status, 1);
}

TEST(Commands, Sort) {
    EXPECT_EQ(RunEstimate({"sort", "2-10", "A1", "2-9"}).out, "2-9\n2-10\nA1\n");
    EXPECT_EQ(RunEstimate({"sort", "-k", "bill"}, "100\n99\n").out, "99\n100\n");
    EXPECT_EQ(RunEstimate({"sort", "--kind", "item", "1/10", "1/9"}).out, "1/9\n1/10\n");
}

TEST(Commands, Unit) {
    EXPECT_EQ(RunEstimate({"unit", "100㎡"}).out, "decimals   4\nindicator  1 100m2 = 100 m2\n");
    EXPECT_EQ(RunEstimate({"unit", "kg"}).out, "decimals   2\nindicator  1 kg = 0.001 吨\n");
    EXPECT_EQ(RunEstimate({"unit", "吨", "公斤"}).out, "1 吨 = 1000 公斤\n");
    EXPECT_EQ(RunEstimate({"unit", "吨", "m3"}).status, 1);
}
