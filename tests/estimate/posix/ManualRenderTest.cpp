// The manual pages as man(1) shows them.
#include <string>

#include <gtest/gtest.h>

#include "tests/support/ChildProcess.h"

namespace {

class RenderedManual : public testing::TestWithParam<const char*> {};

}  // namespace

TEST_P(RenderedManual, IsFreeOfWarnings) {
    for (const char* width : {"80", "50", "200"}) {
        ProgramCall call;
        call.program = "man";
        call.arguments = {"--warnings", "-E", "UTF-8", "-l", GetParam()};
        call.environment = {{"LC_ALL", "C.UTF-8"}, {"MANWIDTH", width}, {"MANPAGER", "cat"}};
        const ProgramResult page = RunProgram(call);
        ASSERT_TRUE(page.isStarted) << "the package man-db is missing";
        EXPECT_EQ(page.status, 0);
        EXPECT_EQ(page.err, "");
        EXPECT_NE(page.out.find("--extra-costs"), std::string::npos);
        EXPECT_NE(page.out.find("LC_MESSAGES"), std::string::npos);
    }
}

// The database of apropos(1) takes it from the page's first section.
TEST_P(RenderedManual, IsFoundByItsName) {
    ProgramCall call;
    call.program = "lexgrog";
    call.arguments = {GetParam()};
    call.environment = {{"LC_ALL", "C.UTF-8"}};
    const ProgramResult names = RunProgram(call);
    ASSERT_TRUE(names.isStarted) << "the package man-db is missing";
    EXPECT_EQ(names.status, 0);
    EXPECT_NE(names.out.find("\"estimate - "), std::string::npos) << names.out;
}

INSTANTIATE_TEST_SUITE_P(Pages, RenderedManual, testing::Values(ESTIMATE_MANUAL, ESTIMATE_CHINESE_MANUAL));
