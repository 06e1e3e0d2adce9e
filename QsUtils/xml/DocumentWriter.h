// From a document to a file.
#pragma once

#include <string>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMLSSerializer.hpp>

namespace QsXml {

/// Writes a document with the serializer's own rules to the file at `path`, which is replaced whole or left
/// as it was. False, with the file as it was, when the serializer can't write the document, for instance
/// since it doesn't know the encoding. Raises what the serializer raises and what `FileTarget` raises.
bool WriteDocument(const xercesc::DOMDocument& document, xercesc::DOMLSSerializer& serializer,
                   const std::wstring& path);

/// How many levels of nodes a document has below itself, as far as the serializer goes down.
std::size_t DepthOf(const xercesc::DOMDocument& document);

}  // namespace QsXml
