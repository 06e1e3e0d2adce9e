#include "QsUtils/platform/FolderListing.h"

#include <string>
#include <utility>

#include "QsUtils/platform/win32/SystemPath.h"
#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

namespace {

class SystemSearch {
public:
    explicit SystemSearch(const std::wstring& pattern) noexcept
        : m_handle(pattern.empty()
                       ? INVALID_HANDLE_VALUE
                       : ::FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &m_found, FindExSearchNameMatch,
                                            nullptr, FIND_FIRST_EX_LARGE_FETCH)) {}
    SystemSearch(const SystemSearch&) = delete;
    SystemSearch& operator=(const SystemSearch&) = delete;
    ~SystemSearch() {
        if (IsFound())
            ::FindClose(m_handle);
    }

    bool IsFound() const noexcept { return m_handle != INVALID_HANDLE_VALUE; }
    bool Next() noexcept { return ::FindNextFileW(m_handle, &m_found) != 0; }

    FolderEntry Entry() const {
        FolderEntry entry;
        entry.name = m_found.cFileName;
        entry.isFolder = (m_found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        entry.isDots = IsDots(entry.name.View());
        return entry;
    }

private:
    WIN32_FIND_DATAW m_found{};
    HANDLE m_handle;
};

}  // namespace

std::vector<FolderEntry> ListFolder(const CString& folder, const NameMask& mask, std::size_t most) {
    std::vector<FolderEntry> entries;
    // All of them, because the system's own masks would look at short names as well, and some of its versions
    // take
    // "?" for nothing.
    SystemSearch search(SystemPath(folder.Right(1) == u"\\" ? folder + u'*' : folder + u"\\*"));
    if (!search.IsFound())
        return entries;
    do {
        FolderEntry entry = search.Entry();
        if (mask.Matches(entry.name.View()))
            entries.push_back(std::move(entry));
    } while (entries.size() < most && search.Next());
    return entries;
}

std::optional<FolderEntry> FindEntry(const CString& path) {
    // The system has more wildcards than it tells of, and would take these in any part of the path.
    const int begin = path.Left(4) == LR"(\\?\)" ? 4 : 0;
    if (path.Right(1) == u"\\" || path.Mid(begin).FindOneOf(u"*?<>\"") >= 0)
        return std::nullopt;
    const SystemSearch search(SystemPath(path));
    if (!search.IsFound())
        return std::nullopt;
    return search.Entry();
}

}  // namespace QsPlatform
