#include <sstream>

#include <gtest/gtest.h>

#include "Progress.h"

using Estimate::Progress;

TEST(Progress, DrawsEachPercentOnceAndWipes) {
    std::ostringstream out;
    {
        Progress progress(out, true, 10 << 20, "pricing");
        progress.Show(0);
        progress.Show(1);
        progress.Show(5 << 20);
        progress.Show(20 << 20);
    }
    EXPECT_EQ(out.str(),
              "\r\x1B[Kpricing [........................................] 0 %"
              "\r\x1B[Kpricing [####################....................] 50 %"
              "\r\x1B[Kpricing [########################################] 100 %"
              "\r\x1B[K");
}

TEST(Progress, OnlyForLongInputsOnATerminal) {
    for (const bool terminal : {false, true}) {
        std::ostringstream out;
        {
            Progress progress(out, terminal, terminal ? 1000 : 10 << 20, "pricing");
            progress.Show(500);
        }
        EXPECT_EQ(out.str(), "");
    }
}

TEST(Progress, SaysWhatGoesOn) {
    std::ostringstream out;
    Progress(out, true, 10 << 20, "converting").Show(5 << 20);
    EXPECT_NE(out.str().find("converting ["), std::string::npos);
    EXPECT_NE(out.str().find(" 50 %"), std::string::npos);
}
