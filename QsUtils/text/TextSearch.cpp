#include "QsUtils/text/TextSearch.h"

namespace QsText {

std::size_t FindText(std::u16string_view text, std::u16string_view part, std::size_t start) noexcept {
    return text.find(part, start);
}

}  // namespace QsText
