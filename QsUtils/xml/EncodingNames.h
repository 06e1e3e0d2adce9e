// Names of encodings in documents.
#pragma once

#include <string_view>

namespace QsXml {

/// The name in the XML declaration of a document whose encoding extends ASCII; empty when there is none.
std::string_view DeclaredEncoding(std::string_view bytes) noexcept;

/// Whether a name is that of GB2312. Files that name it hold GBK as often as not, and are read and written as
/// that: it is the same for all characters that GB2312 has.
bool NamesGb2312(std::string_view name) noexcept;

/// The name under which this system's XML platform knows GBK.
const char16_t* GbkName();

}  // namespace QsXml
