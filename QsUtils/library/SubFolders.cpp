#include "QsUtils/library/SubFolders.h"

#include <algorithm>
#include <utility>

#include "QsUtils/platform/FolderEntries.h"

namespace QsLibrary {

std::vector<CString> FoldersFound(const CString& pattern, std::initializer_list<const char16_t*> exclusions) {
    std::vector<CString> names;
    for (QsPlatform::FolderEntry& entry : QsPlatform::FindEntries(pattern)) {
        if (!entry.isFolder || entry.isDots)
            continue;
        CString trimmed = entry.name;
        trimmed.Trim(u' ');
        const bool isExcluded = std::any_of(exclusions.begin(), exclusions.end(),
                                            [&](const char16_t* each) { return trimmed == each; });
        if (!trimmed.IsEmpty() && !isExcluded)
            names.push_back(std::move(entry.name));
    }
    return names;
}

std::vector<CString> SubFolders(const CString& folder, std::initializer_list<const char16_t*> exclusions) {
    CString pattern = folder;
    pattern.TrimRight(u'\\');
    return FoldersFound(pattern + u"\\*", exclusions);
}

}  // namespace QsLibrary
