// Attributes of XML records as the readers of configuration files ask for them.
#pragma once

#include "QsUtils/text/CString.h"
#include "QsUtils/xml/XMLNode.h"

namespace QsXml {

/// The value of an attribute; empty when the element lacks it.
inline CString AttributeText(const XMLNode& node, const wchar_t* name) {
    const auto found = node.Attributes.find(name);
    return found == node.Attributes.end() ? CString() : CString(found->second);
}

}  // namespace QsXml
