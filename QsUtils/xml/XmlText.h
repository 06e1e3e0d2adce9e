// Between the parser's texts and the library's. The parser's unit is one or the other 16-bit type, as the
// system has it.
#pragma once

#include <string>
#include <string_view>

#include <xercesc/util/XercesDefs.hpp>

#include "QsUtils/text/WideText.h"

namespace QsXml {

static_assert(sizeof(XMLCh) == sizeof(char16_t));

/// A text for the parser; valid as long as `text`.
inline const XMLCh* Xml(const char16_t* text) noexcept {
    return reinterpret_cast<const XMLCh*>(text);
}
inline const XMLCh* Xml(const std::u16string& text) noexcept {
    return Xml(text.c_str());
}

/// The units of a text of the parser; a null pointer counts as empty.
inline std::u16string_view Units(const XMLCh* text) noexcept {
    return text == nullptr ? std::u16string_view() : reinterpret_cast<const char16_t*>(text);
}
inline std::u16string_view Units(const XMLCh* text, std::size_t length) noexcept {
    return {reinterpret_cast<const char16_t*>(text), length};
}

inline std::wstring Wide(const XMLCh* text) {
    return QsText::Utf16ToWide(Units(text));
}

}  // namespace QsXml
