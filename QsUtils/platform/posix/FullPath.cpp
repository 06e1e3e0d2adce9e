#include "QsUtils/platform/FullPath.h"

#include <filesystem>
#include <system_error>

#include "QsUtils/platform/NativePath.h"

namespace QsPlatform {

CString FullPath(const CString& path) {
    if (path.IsEmpty())
        return CString();
    std::error_code error;
    const std::filesystem::path full = std::filesystem::absolute(ToNativePath(path), error);
    return error ? CString() : FromNativePath(full.lexically_normal());
}

}  // namespace QsPlatform
