/// @file
/// The plain record of an XML element.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "QsUtils/platform/Api.h"

/// One element of an XML file, without any tie to the file or to the parser. A record owns its children:
/// deleting the root frees the tree, however deep it is, without recursion. Whoever receives a root from
/// `LoadXMLNode` deletes it. Records may be made and changed at will; a child pointer may be null, but no
/// record may stand at two places. A tree is for one thread at a time; different trees are independent.
class QSUTILS_API XMLNode {
public:
    XMLNode() = default;
    XMLNode(const XMLNode&) = delete;
    XMLNode& operator=(const XMLNode&) = delete;
    ~XMLNode();

    /// The first child whose name is exactly `name`, or null. It stays this record's.
    XMLNode* FindChildNode(const std::wstring& name) const;

    /// The element's name as it stands in the file.
    std::wstring Name;
    /// The value of the element's first child node, if that is a text, a CDATA section, a comment or a
    /// processing instruction; else empty. Not trimmed: white space that indents the first child element is
    /// such a text. What stands behind the first child node isn't here.
    std::wstring Text;
    /// For the host's own use: neither read nor written.
    std::wstring Extra;
    /// The attributes, ascending by name.
    std::map<std::wstring, std::wstring> Attributes;
    /// The child elements in the order of the file.
    std::vector<XMLNode*> Children;
};
