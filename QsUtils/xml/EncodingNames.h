// Names of encodings in documents.
#pragma once

#include <string_view>

namespace QsXml {

/// The name in the XML declaration of a document whose encoding extends ASCII; empty when there is none.
std::string_view DeclaredEncoding(std::string_view bytes) noexcept;

/// The name by which the parser has to be told of an encoding; empty when the document's own name is right.
/// Files that name GB2312 hold GBK as often as not, and are read and written as that: it is the same for all
/// characters that GB2312 has. Other names of GBK aren't known to every system, nor is GB18030, of which GBK
/// is the part that is used.
std::string_view ParserEncoding(std::string_view name);

}  // namespace QsXml
