// What tells processes apart in the names of new versions of files.
#include <cerrno>
#include <csignal>

#include <limits.h>
#include <unistd.h>

#include "QsUtils/platform/AbandonedVersions.h"

namespace QsPlatform {

std::uint32_t ThisMachine() noexcept {
    char name[HOST_NAME_MAX + 1] = {};
    static_cast<void>(::gethostname(name, HOST_NAME_MAX));
    // FNV-1a, http://www.isthe.com/chongo/tech/comp/fnv/
    std::uint32_t hash = 2166136261U;
    for (const char* byte = name; *byte != '\0'; ++byte)
        hash = (hash ^ static_cast<unsigned char>(*byte)) * 16777619U;
    return hash;
}

std::uint32_t ThisProcess() noexcept {
    return static_cast<std::uint32_t>(::getpid());
}

bool IsProcessGone(std::uint32_t process) noexcept {
    const auto number = static_cast<pid_t>(process);
    return number > 0 && ::kill(number, 0) != 0 && errno == ESRCH;
}

}  // namespace QsPlatform
