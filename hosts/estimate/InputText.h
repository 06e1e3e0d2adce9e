// Where an input's text begins, and in which encoding it is.
#pragma once

#include <cstdint>
#include <istream>
#include <string>
#include <string_view>

#include "Message.h"

namespace Estimate {

enum class Encoding { Utf8, Gbk };

struct InputText {
    Encoding encoding = Encoding::Utf8;
    std::uint64_t size = 0;  ///< in bytes, with the byte-order mark
    Message refusal;         ///< why the input is no text; empty when it is one
};

/// Reads the whole of `in` once, in pieces, and leaves it at the first character of the text. UTF-8 with or
/// without a byte-order mark is known by its bytes; everything else is GBK. UTF-16 and binary data are
/// refused. `in` must be seekable.
InputText DetectText(std::istream& in);

/// Whether the first character is "<", white space and a byte-order mark aside, in UTF-8, UTF-16 or any code
/// page. `in` must be seekable and is left at its beginning.
bool IsMarkup(std::istream& in);

/// A field's bytes as UTF-8.
std::string DecodeField(std::string_view bytes, Encoding encoding);

}  // namespace Estimate
