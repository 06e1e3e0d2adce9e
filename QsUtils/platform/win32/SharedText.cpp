#include "QsUtils/platform/SharedText.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

namespace {

/// The text at the start of a view. The writer may have made the object of any size, with or without a NUL,
/// or of memory that isn't there yet.
CString TextOf(const void* view) {
    MEMORY_BASIC_INFORMATION memory{};
    if (::VirtualQuery(view, &memory, sizeof memory) == 0 || memory.State != MEM_COMMIT)
        return CString();
    const auto* const units = static_cast<const volatile char16_t*>(view);
    const std::size_t most = std::min<std::size_t>(memory.RegionSize, LargestSharedText) / sizeof(char16_t);
    std::u16string text;
    for (std::size_t i = 0; i < most; ++i) {
        const char16_t unit = units[i];  // once: the writer may be at work
        if (unit == u'\0')
            break;
        text += unit;
    }
    return CString(std::move(text));
}

}  // namespace

std::optional<CString> ReadSharedText(const CString& name) {
    // The 32-bit value that once was the marker for memory without a file. Where handles have 64 bits it is
    // not, so that the system refuses to make a missing object and nothing is left behind; one that is there
    // is opened by its name all the same where the system takes it so.
    const auto file = reinterpret_cast<HANDLE>(std::uintptr_t{0xFFFFFFFF});
    // Never closed: hosts count on the object living on once it has been looked at.
    const HANDLE mapping = ::CreateFileMappingW(file, nullptr, PAGE_READONLY, 0, SharedTextBytes,
                                                SystemUnits(name.View().data()));
    if (mapping == nullptr)
        return std::nullopt;
    const void* const view = ::MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 0);
    if (view == nullptr)
        return std::nullopt;
    CString text = TextOf(view);
    ::UnmapViewOfFile(view);
    return text;
}

}  // namespace QsPlatform
