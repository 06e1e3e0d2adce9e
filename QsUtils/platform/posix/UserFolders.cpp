#include "QsUtils/platform/UserFolders.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include <pwd.h>
#include <unistd.h>

#include "QsUtils/platform/FileContent.h"
#include "QsUtils/platform/FullPath.h"
#include "QsUtils/platform/NativePath.h"
#include "QsUtils/platform/posix/Environment.h"
#include "QsUtils/platform/posix/UserDirs.h"

namespace QsPlatform {

namespace {

/// Nobody's desktop writes more than a few lines.
constexpr std::size_t LargestUserDirs = std::size_t{1} << 20;

/// The user's entry among the accounts may be this long; the usual one has a hundred bytes.
constexpr std::size_t AccountBuffer = std::size_t{1} << 16;

CString Fitting(CString path) {
    return path.GetLength() < PathBuffer ? std::move(path) : CString();
}

std::string HomeOfAccount() {
    std::vector<char> buffer(AccountBuffer);
    passwd account{};
    passwd* found = nullptr;
    if (::getpwuid_r(::getuid(), &account, buffer.data(), buffer.size(), &found) != 0 || found == nullptr ||
        account.pw_dir == nullptr)
        return std::string();
    return account.pw_dir;
}

/// Empty when there is no home, or none that one could find again from another folder.
std::string Home() {
    const std::string_view set = EnvironmentVariable("HOME");
    std::string home = set.empty() ? HomeOfAccount() : std::string(set);
    return home.starts_with('/') ? home : std::string();
}

/// Where desktops keep their settings; a relative setting is to be ignored.
std::string ConfigurationFolder(const std::string& home) {
    const std::string_view set = EnvironmentVariable("XDG_CONFIG_HOME");
    if (set.starts_with('/'))
        return std::string(set);
    return home.empty() ? std::string() : home + "/.config";
}

std::optional<std::string> DocumentsOfDesktop(const std::string& home) {
    const std::string folder = ConfigurationFolder(home);
    if (folder.empty())
        return std::nullopt;
    const std::optional<std::string> file =
        ReadWholeFile(FromNativePath(folder + "/user-dirs.dirs"), nullptr, LargestUserDirs);
    return file ? UserDirectory(*file, "XDG_DOCUMENTS_DIR", home) : std::nullopt;
}

}  // namespace

CString TemporaryFolder() {
    for (const char* name : {"TMP", "TEMP", "TMPDIR"}) {
        const std::string_view folder = EnvironmentVariable(name);
        if (folder.empty())
            continue;
        CString full = FullPath(FromNativePath(folder));
        return full.IsEmpty() ? full : Fitting(full.TrimRight(u'\\') + u'\\');
    }
    return u"\\tmp\\";
}

CString CurrentFolder() {
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::current_path(error);
    return error ? CString() : Fitting(FromNativePath(folder));
}

CString DocumentsFolder() {
    const std::string home = Home();
    if (const std::optional<std::string> folder = DocumentsOfDesktop(home))
        return Fitting(FromNativePath(*folder));
    return home.empty() ? CString() : Fitting(FromNativePath(home + "/Documents"));
}

}  // namespace QsPlatform
