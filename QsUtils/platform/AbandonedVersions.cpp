#include "QsUtils/platform/AbandonedVersions.h"

#include <optional>
#include <string_view>

#include "QsUtils/platform/Files.h"
#include "QsUtils/platform/FolderEntries.h"
#include "QsUtils/platform/FolderTrees.h"

namespace QsPlatform {

namespace {

constexpr std::u16string_view Beginning = u".qsutils-";
constexpr std::u16string_view End = u".tmp";

/// Reads hexadecimal digits up to the next "-" and moves behind it.
std::optional<std::uint32_t> ReadMark(std::u16string_view& text) {
    std::uint32_t mark = 0;
    const std::size_t length = text.find(u'-');
    if (length == text.npos || length == 0 || length > 8)
        return std::nullopt;
    for (const char16_t unit : text.substr(0, length)) {
        const bool isDigit = unit >= u'0' && unit <= u'9';
        if (!isDigit && (unit < u'a' || unit > u'f'))
            return std::nullopt;
        mark = mark * 16 + static_cast<std::uint32_t>(isDigit ? unit - u'0' : unit - u'a' + 10);
    }
    text.remove_prefix(length + 1);
    return mark;
}

bool IsAbandoned(std::u16string_view name) {
    name.remove_prefix(Beginning.size());
    const std::optional<std::uint32_t> machine = ReadMark(name);
    const std::optional<std::uint32_t> process = ReadMark(name);
    return machine == ThisMachine() && process && IsProcessGone(*process);
}

}  // namespace

bool IsVersionName(std::u16string_view name) noexcept {
    return name.starts_with(Beginning) && name.ends_with(End);
}

void RemoveAbandonedVersions(const CString& folder) {
    for (const FolderEntry& entry : FindEntries(folder + u"\\" + CString(Beginning) + u"*" + CString(End))) {
        // A mask without regard to case finds more than is ours.
        if (!IsVersionName(entry.name.View()) || !IsAbandoned(entry.name.View()))
            continue;
        const CString path = folder + u"\\" + entry.name;
        if (entry.isFolder) {
            RemoveFolderTree(path);
        } else {
            MakeWritable(path);
            RemoveFile(path);
        }
    }
}

}  // namespace QsPlatform
