// What the parser reads: one file or bytes in memory, and nothing else.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <xercesc/sax/InputSource.hpp>

#include "QsUtils/platform/FileStream.h"

namespace QsXml {

/// The bytes of a document, not copied, under a name for messages; both must outlive the input.
std::unique_ptr<xercesc::InputSource> BytesInput(std::string_view bytes, const std::u16string& name);

/// The same for an open file at its beginning, which can be read once; it must outlive the input.
std::unique_ptr<xercesc::InputSource> FileInput(QsPlatform::FileStream& file, const std::u16string& name);

/// What every other file that a document names is taken for.
std::unique_ptr<xercesc::InputSource> EmptyInput();

}  // namespace QsXml
