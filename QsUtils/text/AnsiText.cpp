// Between wide and narrow text, as hosts ask for it: up to the first NUL.
#include <string_view>

#include "QsUtils/platform/CodePage.h"
#include "QsUtils/text/Segments.h"
#include "QsUtils/text/WideText.h"

namespace QsText {

std::wstring AnsiToUnicode(const std::string& text) {
    const std::string_view narrow(text.c_str());
    return Utf16ToWide(QsPlatform::DecodeAnsi(narrow));
}

std::string UnicodeToAnsi(const std::wstring& text) {
    const std::wstring_view wide(text.c_str());
    return QsPlatform::EncodeAnsi(WideToUtf16(wide));
}

int GetCharCount(const CString& text) {
    const std::u16string_view units = text.View();
    return static_cast<int>(QsPlatform::AnsiRoundTripLength(units.substr(0, units.find(u'\0'))));
}

}  // namespace QsText
