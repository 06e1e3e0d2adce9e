#include "QsUtils/platform/NativePath.h"

#include <algorithm>
#include <string>
#include <utility>

#include "QsUtils/platform/Utf8.h"

std::filesystem::path ToNativePath(const CString& path) {
    std::string native = QsPlatform::EncodeUtf8(path.View());
    std::replace(native.begin(), native.end(), '\\', '/');
    return std::filesystem::path(std::move(native));
}

CString FromNativePath(const std::filesystem::path& path) {
    std::u16string text = QsPlatform::DecodeUtf8(path.native());
    std::replace(text.begin(), text.end(), u'/', u'\\');
    return CString(std::move(text));
}
