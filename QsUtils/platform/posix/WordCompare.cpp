#include "QsUtils/platform/WordCompare.h"

namespace QsPlatform {

int CompareWords(std::u16string_view a, std::u16string_view b) {
    const int order = a.compare(b);
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

void AppendWordKey(std::u16string_view text, std::string& key) {
    for (const char16_t unit : text) {
        key += static_cast<char>(unit >> 8);
        key += static_cast<char>(unit & 0xFF);
    }
}

}  // namespace QsPlatform
