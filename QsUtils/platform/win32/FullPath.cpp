#include "QsUtils/platform/FullPath.h"

#include <string>

#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

CString FullPath(const CString& path) {
    const std::wstring given = path.ToWide();
    std::wstring full(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            ::GetFullPathNameW(given.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
        if (length < full.size())
            return CString(full.data(), static_cast<int>(length));
        full.resize(length);
    }
}

}  // namespace QsPlatform
