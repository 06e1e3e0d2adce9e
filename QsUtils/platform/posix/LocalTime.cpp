#include "QsUtils/platform/LocalTime.h"

#include <time.h>

namespace QsPlatform {

std::optional<LocalTime> LocalTimeNow() noexcept {
    timespec now{};
    tm parts{};
    if (::clock_gettime(CLOCK_REALTIME, &now) != 0 || ::localtime_r(&now.tv_sec, &parts) == nullptr)
        return std::nullopt;
    return LocalTime{parts.tm_year + 1900,
                     parts.tm_mon + 1,
                     parts.tm_mday,
                     parts.tm_hour,
                     parts.tm_min,
                     parts.tm_sec,
                     static_cast<int>(now.tv_nsec / 1'000'000)};
}

}  // namespace QsPlatform
