// The bytes of a tree as the rules say them: through a DOM and its serializer.
#pragma once

#include <string>

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufFormatTarget.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "QsUtils/text/WideText.h"
#include "QsUtils/xml/Release.h"
#include "QsUtils/xml/XMLNode.h"

#include "tests/xml/PlainTreeReader.h"

namespace PlainXml {

inline void FillElement(xercesc::DOMDocument& document, xercesc::DOMElement& element, const XMLNode& node) {
    const auto units = [](const std::wstring& text) { return QsText::WideToUtf16(text); };
    for (const auto& [name, value] : node.Attributes)
        element.setAttribute(X(units(name).c_str()), X(units(value).c_str()));
    if (!node.Text.empty())
        element.setTextContent(X(units(node.Text).c_str()));
    for (const XMLNode* child : node.Children) {
        xercesc::DOMElement* const below = document.createElement(X(units(child->Name).c_str()));
        element.appendChild(below);
        FillElement(document, *below, *child);
    }
}

/// Raises what the DOM and its serializer raise.
inline std::string WriteTree(const XMLNode& root, bool prettyPrint) {
    xercesc::DOMImplementation& implementation = *Implementation();
    const QsXml::Released<xercesc::DOMDocument> document(
        implementation.createDocument(nullptr, X(QsText::WideToUtf16(root.Name).c_str()), nullptr));
    FillElement(*document, *document->getDocumentElement(), root);
    const QsXml::Released<xercesc::DOMLSOutput> output(implementation.createLSOutput());
    const QsXml::Released<xercesc::DOMLSSerializer> serializer(implementation.createLSSerializer());
    xercesc::MemBufFormatTarget target;
    serializer->getDomConfig()->setParameter(xercesc::XMLUni::fgDOMWRTFormatPrettyPrint, prettyPrint);
    output->setByteStream(&target);
    serializer->write(document.get(), output.get());
    return std::string(reinterpret_cast<const char*>(target.getRawBuffer()), target.getLen());
}

}  // namespace PlainXml
