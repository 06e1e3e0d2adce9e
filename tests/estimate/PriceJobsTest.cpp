// Several bills priced at the same time.
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "ArgumentFolder.h"
#include "BillGenerator.h"
#include "PriceJobs.h"
#include "TestSupport.h"

namespace {

std::string Generated(unsigned long rows) {
    std::ostringstream bill;
    GenerateBill(bill, rows);
    return bill.str();
}

class PriceJobs : public testing::Test {
protected:
    std::string Write(const std::string& name, const std::string& bytes) {
        return m_folder.Write(name, bytes);
    }
    ProgramRun Price(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "price");
        return RunEstimate(arguments);
    }
    std::vector<std::string> SomeBills() {
        std::vector<std::string> bills;
        for (unsigned long i = 0; i < 12; ++i)
            bills.push_back(Write("bill" + std::to_string(i) + ".csv", Generated(20 + 7 * i)));
        bills.push_back(Write("bad.csv", std::string(Headings) + "4-1,a,,m3,?,1\n"));
        bills.push_back(bills.front());
        return bills;
    }

    ArgumentFolder m_folder;
};

TEST_F(PriceJobs, TheResultIsTheSameForEveryNumberOfJobs) {
    for (const char* form : {"--json", "--features"}) {
        std::vector<std::string> arguments = SomeBills();
        arguments.insert(arguments.end(), {form, "--jobs", "1"});
        const ProgramRun one = Price(arguments);
        EXPECT_EQ(one.status, 1);
        EXPECT_NE(one.err, "");
        for (const char* jobs : {"2", "3", "10", "256"}) {
            arguments.back() = jobs;
            const ProgramRun several = Price(arguments);
            EXPECT_EQ(several.status, one.status);
            EXPECT_EQ(several.out, one.out);
            EXPECT_EQ(several.err, one.err);
        }
    }
}

TEST_F(PriceJobs, EachReportIsThatOfItsBillAlone) {
    const std::string a = Write("a.csv", Generated(30));
    const std::string b = Write("b.csv", Generated(50));
    EXPECT_EQ(Price({a, b}).out,
              "==> " + a + " <==\n" + Price({a}).out + "\n==> " + b + " <==\n" + Price({b}).out);
    const auto both = nlohmann::json::parse(Price({b, a, "--json"}).out);
    ASSERT_EQ(both.size(), 2u);
    EXPECT_EQ(both[0], nlohmann::json::parse(Price({b, "--json"}).out));
    EXPECT_EQ(both[1], nlohmann::json::parse(Price({a, "--json"}).out));
}

TEST_F(PriceJobs, TheReportsGoToOneFile) {
    const std::string a = Write("a.csv", Generated(30));
    const std::string out = m_folder.Path("out.json");
    EXPECT_EQ(Price({a, a, "--json", "-o", out}).out, "");
    EXPECT_EQ(nlohmann::json::parse(m_folder.Read("out.json")).size(), 2u);
}

TEST_F(PriceJobs, ABillThatCantBeReadIsLeftOut) {
    const std::string a = Write("a.csv", Generated(30));
    const std::string missing = m_folder.Path("missing.csv");
    const ProgramRun run = Price({missing, a, "--json"});
    EXPECT_EQ(run.status, 2);
    EXPECT_NE(run.err.find("missing.csv"), std::string::npos);
    EXPECT_EQ(nlohmann::json::parse(run.out).size(), 1u);
    EXPECT_EQ(Price({missing, missing, "--json"}).out, "[]\n");
    EXPECT_EQ(Price({missing, missing}).out, "");
}

TEST_F(PriceJobs, WhatIsOneBillsAloneIsRefused) {
    const std::string a = Write("a.csv", Generated(30));
    for (const std::vector<std::string>& more : {std::vector<std::string>{"-"},
                                                 {a, "--csv"},
                                                 {a, "--name", "x"},
                                                 {a, "--area", "1"},
                                                 {a, "--vars", "-"},
                                                 {a, "--jobs", "0"},
                                                 {a, "--jobs", "257"},
                                                 {a, "--jobs", "x"}}) {
        std::vector<std::string> arguments = {a};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const ProgramRun run = Price(arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_NE(run.err, "");
    }
}

TEST_F(PriceJobs, ProgressIsDrawnAsBillsAreDone) {
    const std::string large = Write("large.csv", Generated(30'000));
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(Estimate::PriceBills({}, {large, large, large}, 2, {in, out, err, true}), 0);
    EXPECT_NE(err.str().find("] 0 %"), std::string::npos);
    EXPECT_NE(err.str().find("] 33 %"), std::string::npos);
    EXPECT_NE(err.str().find("] 66 %"), std::string::npos);
    EXPECT_NE(err.str().find("] 100 %"), std::string::npos);
    EXPECT_TRUE(err.str().ends_with("\r\x1B[K"));
}

}  // namespace
