// The wall clock.
#include <ctime>

#include <gtest/gtest.h>

#include "QsUtils/platform/LocalTime.h"

namespace {

std::tm Local(std::time_t moment) {
    return *std::localtime(&moment);
}

bool IsWithin(const QsPlatform::LocalTime& time, std::time_t first, std::time_t last) {
    for (std::time_t moment = first; moment <= last; ++moment) {
        const std::tm parts = Local(moment);
        if (time.year == parts.tm_year + 1900 && time.month == parts.tm_mon + 1 &&
            time.day == parts.tm_mday && time.hour == parts.tm_hour && time.minute == parts.tm_min &&
            time.second == parts.tm_sec)
            return true;
    }
    return false;
}

TEST(LocalTime, IsThatOfTheRuntime) {
    const std::time_t before = std::time(nullptr);
    const auto now = QsPlatform::LocalTimeNow();
    ASSERT_TRUE(now.has_value());
    // The runtime's clock may tick a little later.
    EXPECT_TRUE(IsWithin(*now, before, std::time(nullptr) + 1));
    EXPECT_GE(now->millisecond, 0);
    EXPECT_LT(now->millisecond, 1000);
}

}  // namespace
