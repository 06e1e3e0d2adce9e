#include "QsUtils/platform/NativePath.h"

std::filesystem::path ToNativePath(const CString& path) {
    return std::filesystem::path(path.ToWide());
}

CString FromNativePath(const std::filesystem::path& path) {
    return CString(path.native());
}
