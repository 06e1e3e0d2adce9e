#include "QsUtils/platform/WordCompare.h"

#include <algorithm>

#include "QsUtils/platform/win32/Windows.h"
#include "QsUtils/text/TextSearch.h"

namespace QsPlatform {

namespace {

// Named, and not the user's own, so that a product on a Windows of another language keeps its order. It is
// the compare behind `lstrcmpW`, which would want a copy of each text with a NUL behind it.
constexpr const wchar_t* Locale = L"zh-CN";

int Length(std::u16string_view text) {
    return static_cast<int>(std::min(text.size(), MostUnits));
}

}  // namespace

int CompareWords(std::u16string_view a, std::u16string_view b) {
    a = QsText::UpToNul(a);
    b = QsText::UpToNul(b);
    const int order = ::CompareStringEx(Locale, 0, SystemUnits(a.data()), Length(a), SystemUnits(b.data()),
                                        Length(b), nullptr, nullptr, 0);
    return order - CSTR_EQUAL;
}

void AppendWordKey(std::u16string_view text, std::string& key) {
    text = QsText::UpToNul(text);
    if (text.empty()) {
        // The system makes no key of an empty text: it gets that of a text whose units are all without
        // weight.
        key.append("\1\1\1\1", 5);
        return;
    }
    const auto write = [text](char* to, int room) {
        return ::LCMapStringEx(Locale, LCMAP_SORTKEY, SystemUnits(text.data()), Length(text),
                               reinterpret_cast<wchar_t*>(to), room, nullptr, nullptr, 0);
    };
    char buffer[512];
    if (const int size = write(buffer, static_cast<int>(sizeof buffer)); size > 0) {
        key.append(buffer, static_cast<std::size_t>(size));
        return;
    }
    const int size = write(nullptr, 0);
    const std::size_t end = key.size();
    key.resize(end + static_cast<std::size_t>(size));
    write(key.data() + end, size);
}

}  // namespace QsPlatform
