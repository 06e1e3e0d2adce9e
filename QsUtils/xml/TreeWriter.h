// From a tree of records to the bytes of a document.
#pragma once

#include <string>

#include <xercesc/framework/XMLFormatter.hpp>

#include "QsUtils/xml/XMLNode.h"

namespace QsXml {

/// Writes a tree to `target` in UTF-8, byte for byte as the DOM serializer writes the document that
/// has this tree's elements, attributes and texts, but without a DOM and without recursion. A text ends at
/// its first NUL; null children are skipped. With `prettyPrint` the indentation stops growing at level 256,
/// or a deep tree would fill the disk with blanks.
///
/// Raises `xercesc::DOMException` for an impossible name, its `DOMLSException` for a character that XML
/// lacks, and what the target raises.
void WriteTree(const XMLNode& root, xercesc::XMLFormatTarget& target, bool prettyPrint);

/// The same to the file at `path`, which is replaced whole or left as it was. Raises what `FileTarget`
/// raises.
void WriteTree(const XMLNode& root, const std::wstring& path, bool prettyPrint);

}  // namespace QsXml
