#include "QsUtils/platform/Process.h"

#include <cstdio>
#include <ctime>
#include <filesystem>
#include <string>
#include <system_error>

#include "QsUtils/platform/NativePath.h"
#include "QsUtils/platform/Utf8.h"

namespace QsPlatform {

namespace {

/// What the kernel adds to the name of an executable that has been replaced or removed since it was started.
constexpr std::string_view Removed = " (deleted)";

}  // namespace

CString ExecutablePath() {
    std::error_code error;
    const std::filesystem::path link = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error)
        return CString();
    std::string name = link.native();
    // An update may put a new file in place while the old one runs: the folder is still the host's.
    if (name.ends_with(Removed) && !std::filesystem::exists(link, error))
        name.resize(name.size() - Removed.size());
    return FromNativePath(name);
}

std::uint32_t TickCount() noexcept {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    const auto seconds = static_cast<std::uint64_t>(now.tv_sec);
    return static_cast<std::uint32_t>(seconds * 1000 + static_cast<std::uint64_t>(now.tv_nsec) / 1'000'000);
}

void ShowMessage(const CString& text) noexcept {
    try {
        const std::string line = EncodeUtf8(text.View()) + '\n';
        // One write, so that messages of two threads don't mix. Nobody is left to hear of a failure.
        static_cast<void>(std::fwrite(line.data(), 1, line.size(), stderr));
    } catch (const std::exception&) {
        static_cast<void>(std::fputs("QsUtils: out of memory\n", stderr));
    }
}

}  // namespace QsPlatform
