// The program with and without the files of an installation beside it.
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/Installation.h"

namespace {

constexpr const char* Table = "GB50500-2008.xml";

std::string DecimalsOf(const Installation& installation, const std::string& unit) {
    const ProgramResult result = installation.Run({"unit", unit});
    EXPECT_EQ(result.status, 0) << result.err;
    const std::string label = "decimals   ";
    const std::size_t at = result.out.find(label);
    return at == std::string::npos ? result.out : result.out.substr(at + label.size(), 1);
}

}  // namespace

TEST(Installation, DecimalsComeFromTheTableBesideTheProgram) {
    const Installation installation(ESTIMATE_PROGRAM, ESTIMATE_MODULES);
    installation.CopyIn(std::filesystem::path(ESTIMATE_SAMPLES) / "installation" / Table);
    EXPECT_EQ(DecimalsOf(installation, "t"), "3");
    EXPECT_EQ(DecimalsOf(installation, "樘"), "0");
    EXPECT_EQ(DecimalsOf(installation, "100m2"), "4");
    installation.Write(Table, "<r><u unit=\"t\" decimal=\"-1\"/><u unit=\"m2\" decimal=\"5\"/></r>");
    EXPECT_EQ(DecimalsOf(installation, "t"), "0");
    EXPECT_EQ(DecimalsOf(installation, "m2"), "5");
    EXPECT_EQ(DecimalsOf(installation, "100m2"), "6");
    EXPECT_EQ(DecimalsOf(installation, "kg"), "0");
}

TEST(Installation, WithoutATableEveryUnitTakesTwo) {
    const Installation installation(ESTIMATE_PROGRAM, ESTIMATE_MODULES);
    EXPECT_EQ(DecimalsOf(installation, "t"), "2");
    EXPECT_EQ(DecimalsOf(installation, "樘"), "2");
    EXPECT_EQ(DecimalsOf(installation, "10m3"), "3");
}
