// The wall clock: contract.
#pragma once

#include <optional>

namespace QsPlatform {

struct LocalTime {
    int year = 0;
    int month = 0;  ///< from 1
    int day = 0;    ///< from 1
    int hour = 0;
    int minute = 0;
    int second = 0;
    int millisecond = 0;
};

/// The present time in the system's time zone; nothing when it can't be told. Any thread may call it.
std::optional<LocalTime> LocalTimeNow() noexcept;

}  // namespace QsPlatform
