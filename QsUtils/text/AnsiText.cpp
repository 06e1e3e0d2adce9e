// Between wide and narrow text, as hosts ask for it: up to the first NUL.
#include <string_view>

#include "QsUtils/platform/CodePage.h"
#include "QsUtils/text/Segments.h"
#include "QsUtils/text/TextSearch.h"

namespace QsText {

std::wstring AnsiToUnicode(const std::string& text) {
    return QsPlatform::DecodeAnsiToWide(text.c_str());
}

std::string UnicodeToAnsi(const std::wstring& text) {
    return QsPlatform::EncodeAnsi(std::wstring_view(text.c_str()));
}

int GetCharCount(const CString& text) {
    return static_cast<int>(QsPlatform::AnsiRoundTripLength(QsText::UpToNul(text.View())));
}

}  // namespace QsText
