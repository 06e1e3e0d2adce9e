#include "QsUtils/platform/LocalTime.h"

#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

std::optional<LocalTime> LocalTimeNow() noexcept {
    SYSTEMTIME now{};
    ::GetLocalTime(&now);
    return LocalTime{now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond, now.wMilliseconds};
}

}  // namespace QsPlatform
