// From the bytes of a document to a tree of records.
#pragma once

#include <string>
#include <string_view>

#include "QsUtils/xml/XMLNode.h"

namespace QsXml {

/// The tree of a document, which is the caller's: exactly what a walk over its DOM would find, though none is
/// made. Null, with the reason in `error`, for a document that can't be parsed. `name` stands for the
/// document in messages. Needs a running XML platform; raises memory exhaustion.
XMLNode* ReadTree(std::string_view bytes, const std::u16string& name, std::u16string& error);

/// Whether a document can be parsed within the limits, by the same pass without a tree.
bool CheckDocument(std::string_view bytes, const std::u16string& name, std::u16string& error);

}  // namespace QsXml
