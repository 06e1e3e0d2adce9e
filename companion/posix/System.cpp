#include "companion/System.h"

#include <algorithm>

#include "companion/Text.h"

namespace Companion {

std::string ShownPath(const std::wstring& path) {
    std::string native = ToUtf8(path);
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
}

std::filesystem::path NativePath(const std::wstring& path) {
    return ShownPath(path);
}

std::wstring LibraryForm(const std::filesystem::path& path) {
    std::wstring text = FromUtf8(path.native()).value_or(std::wstring());
    std::replace(text.begin(), text.end(), L'/', L'\\');
    return text;
}

std::size_t RootLength(std::wstring_view path) noexcept {
    return std::min(path.find_first_not_of(L'\\'), path.size());
}

std::FILE* OpenToRead(const std::wstring& path) {
    return std::fopen(NativePath(path).c_str(), "rb");
}

std::FILE* OpenToReplace(const std::wstring& path) {
    return std::fopen(NativePath(path).c_str(), "wb");
}

void WriteToStandardError(const std::string& utf8) {
    std::fwrite(utf8.data(), 1, utf8.size(), stderr);
    std::fflush(stderr);
}

}  // namespace Companion
