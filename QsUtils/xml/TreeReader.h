// From the bytes of a document to a tree of records.
#pragma once

#include <cstddef>
#include <string>

#include <xercesc/sax/InputSource.hpp>

#include "QsUtils/xml/XMLNode.h"

namespace QsXml {

/// The tree of a document with `size` bytes, which is the caller's: exactly what a walk over its DOM would
/// find, though none is made. Null, with the reason in `error`, for a document that can't be parsed. Needs a
/// running XML platform; raises memory exhaustion.
XMLNode* ReadTree(const xercesc::InputSource& document, std::size_t size, std::u16string& error);

/// Whether a document can be parsed within the limits, by the same pass without a tree.
bool CheckDocument(const xercesc::InputSource& document, std::size_t size, std::u16string& error);

}  // namespace QsXml
