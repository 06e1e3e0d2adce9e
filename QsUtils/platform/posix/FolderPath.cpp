#include "QsUtils/platform/posix/FolderPath.h"

#include <cstddef>

#include <fcntl.h>
#include <linux/limits.h>

#include "QsUtils/platform/NativePath.h"

namespace QsPlatform {

namespace {

/// What one call takes, its NUL included.
constexpr std::size_t LongestPath = PATH_MAX;

}  // namespace

FolderPath::FolderPath(const CString& path) : m_rest(ToNativePath(path).native()), m_base(AT_FDCWD) {
    const std::size_t last = m_rest.find_last_not_of('/');
    m_endsAsFolder = !m_rest.empty() && last + 1 != m_rest.size();
    m_rest.resize(last == m_rest.npos ? (m_endsAsFolder ? 1 : 0) : last + 1);
    m_isGood = !m_rest.empty() && m_rest.find('\0') == m_rest.npos && OpenHead();
}

/// Goes down the head of a path that is too long for one call.
bool FolderPath::OpenHead() {
    std::size_t begin = 0;
    while (m_rest.size() - begin >= LongestPath) {
        const std::size_t end = m_rest.rfind('/', begin + LongestPath - 2);
        if (end == m_rest.npos || end <= begin)
            return false;  // no name is that long
        const std::string part = m_rest.substr(begin, end - begin);
        m_base.Reset(::openat(m_base.Number(), part.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        if (!m_base.IsOpen())
            return false;
        begin = m_rest.find_first_not_of('/', end);
    }
    m_rest.erase(0, begin);
    return true;
}

}  // namespace QsPlatform
