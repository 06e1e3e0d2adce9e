// Between UTF-16 units and the bytes of native texts.
#pragma once

#include <string>
#include <string_view>

namespace QsPlatform {

/// UTF-8, a lone surrogate in the three bytes that its number would have, so that no name is lost.
std::string EncodeUtf8(std::u16string_view text);

/// The way back, lone surrogates in three bytes included. A byte that fits nowhere becomes U+FFFD.
std::u16string DecodeUtf8(std::string_view bytes);

}  // namespace QsPlatform
