// What the parser reads: bytes in memory, and nothing else.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <xercesc/sax/InputSource.hpp>

namespace QsXml {

/// The bytes of a document, not copied, under a name for messages; both must outlive the input.
std::unique_ptr<xercesc::InputSource> BytesInput(std::string_view bytes, const std::u16string& name);

/// What every other file that a document names is taken for.
std::unique_ptr<xercesc::InputSource> EmptyInput();

}  // namespace QsXml
