#include "QsUtils/platform/ClassRegistry.h"

#include <filesystem>
#include <string>

#include "QsUtils/platform/FileContent.h"
#include "QsUtils/platform/NativePath.h"
#include "QsUtils/platform/posix/Environment.h"
#include "QsUtils/platform/posix/RegistryFile.h"
#include "QsUtils/platform/posix/TextOfBytes.h"

namespace QsPlatform {

namespace {

/// In bytes. A registry with an office suite in it has some ten million.
constexpr std::size_t LargestRegistry = std::size_t{1} << 28;

/// The folder of the registry's files; empty when there is none. Wine takes no prefix but an absolute one.
std::filesystem::path PrefixFolder() {
    std::filesystem::path prefix = EnvironmentVariable("WINEPREFIX");
    if (prefix.empty())
        prefix = std::filesystem::path(EnvironmentVariable("HOME")) / ".wine";
    return prefix.is_absolute() ? prefix : std::filesystem::path();
}

}  // namespace

std::optional<CString> ReadClassValue(const CString& name, const CString& subkey, std::size_t most) {
    const std::filesystem::path folder = PrefixFolder();
    if (folder.empty())
        return std::nullopt;
    const CString key = u"Software\\Classes\\" + name + u'\\' + subkey;
    for (const char* file : {"user.reg", "system.reg"}) {
        const std::optional<std::string> bytes =
            ReadWholeFile(FromNativePath(folder / file), nullptr, LargestRegistry);
        const std::optional<std::string> value = bytes ? FindDefaultValue(*bytes, key.View()) : std::nullopt;
        if (value)
            return value->size() > most ? std::nullopt : std::optional(TextOfBytes(*value));
    }
    return std::nullopt;
}

}  // namespace QsPlatform
