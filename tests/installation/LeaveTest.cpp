// Hosts that return from their main function while threads of theirs are in the library.
#include <string>

#include <gtest/gtest.h>

#include "tests/installation/ProbedLog.h"
#include "tests/support/Rounds.h"

namespace {

/// The threads run beside the end of the module's static objects, so that each end is another race.
class Leave : public testing::TestWithParam<const char16_t*> {};

INSTANTIATE_TEST_SUITE_P(BusyThreads, Leave, testing::Values(u"log", u"starts", u"tasks"));

TEST_P(Leave, TheProcessEndsAsItsHostDoes) {
    const ProbedLog host;
    host.MakeLogFolder();
    for (int round = 0; round < Rounds(ThreadRounds(120)); ++round) {
        // Nobody joins a thread that ends when the module has; a sanitizer takes each for a leak.
        const ProgramResult result =
            host.Run({"leave", Escaped(GetParam())}, {{"TSAN_OPTIONS", "report_thread_leaks=0"}});
        ASSERT_EQ(result.status, 0) << "round " << round << '\n' << result.err;
    }
    EXPECT_TRUE(host.HasLog());
}

}  // namespace
