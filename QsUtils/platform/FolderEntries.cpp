// The rules of a search, which are one on all systems; what stands in a folder is asked in the systems'
// folders.
#include "QsUtils/platform/FolderEntries.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <utility>

#include "QsUtils/platform/EntryNames.h"
#include "QsUtils/platform/FolderListing.h"

namespace QsPlatform {

namespace {

bool ComesFirst(const FolderEntry& a, const FolderEntry& b) noexcept {
    if (a.isDots != b.isDots)
        return a.isDots;
    return StandsBefore(a.name.View(), b.name.View());
}

std::vector<FolderEntry> Find(const CString& pattern, std::size_t most) {
    // A host's path may have come from elsewhere.
    const int separator = std::max(pattern.ReverseFind(u'\\'), pattern.ReverseFind(u'/'));
    const CString last = pattern.Mid(separator + 1);
    std::vector<FolderEntry> entries;
    if (HasWildcards(last.View())) {
        // The folder of a bare name is the current one; the backslash of the root is part of its path.
        const CString folder = separator < 0 ? CString(u".") : pattern.Left(separator + 1);
        entries = ListFolder(folder, NameMask(last.View()), most);
    } else if (std::optional<FolderEntry> entry = FindEntry(pattern)) {
        entries.push_back(std::move(*entry));
    }
    return entries;
}

}  // namespace

std::vector<FolderEntry> FindEntries(const CString& pattern) {
    std::vector<FolderEntry> entries = Find(pattern, std::numeric_limits<std::size_t>::max());
    std::sort(entries.begin(), entries.end(), ComesFirst);
    return entries;
}

bool IsEntryFound(const CString& pattern) {
    return !Find(pattern, 1).empty();
}

}  // namespace QsPlatform
