// The tree of a document as the rules say it: from a DOM, node by node.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/Wrapper4InputSource.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/XMLEntityResolver.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "QsUtils/text/WideText.h"
#include "QsUtils/xml/EncodingNames.h"
#include "QsUtils/xml/XMLNode.h"

namespace PlainXml {

inline const XMLCh* X(const char16_t* text) {
    return reinterpret_cast<const XMLCh*>(text);
}
inline std::wstring Wide(const XMLCh* text) {
    return QsText::Utf16ToWide(reinterpret_cast<const char16_t*>(text));
}

/// Listens to errors and has nothing to offer for what a document names elsewhere.
class Listener : public xercesc::DOMErrorHandler, public xercesc::XMLEntityResolver {
public:
    bool handleError(const xercesc::DOMError& error) override {
        if (error.getSeverity() == xercesc::DOMError::DOM_SEVERITY_WARNING)
            return true;
        if (!m_failed)
            m_text = reinterpret_cast<const char16_t*>(error.getMessage());
        m_failed = true;
        return false;
    }
    xercesc::InputSource* resolveEntity(xercesc::XMLResourceIdentifier*) override {
        static const XMLByte nothing[1] = {};
        return new xercesc::MemBufInputSource(nothing, 0, X(u""));
    }

    bool m_failed = false;
    std::u16string m_text;
};

inline xercesc::DOMImplementation* Implementation() {
    return xercesc::DOMImplementationRegistry::getDOMImplementation(X(u"LS"));
}

/// A document with the parser that owns it.
class Document {
public:
    explicit Document(std::string_view bytes, const char16_t* name = u"document") {
        using xercesc::XMLUni;
        m_limits.setEntityExpansionLimit(50'000);
        m_parser = Implementation()->createLSParser(xercesc::DOMImplementationLS::MODE_SYNCHRONOUS, nullptr);
        xercesc::DOMConfiguration& configuration = *m_parser->getDomConfig();
        configuration.setParameter(XMLUni::fgDOMNamespaces, false);
        configuration.setParameter(XMLUni::fgXercesSchema, false);
        configuration.setParameter(XMLUni::fgXercesHandleMultipleImports, false);
        configuration.setParameter(XMLUni::fgXercesSchemaFullChecking, false);
        configuration.setParameter(XMLUni::fgXercesLoadExternalDTD, false);
        configuration.setParameter(XMLUni::fgXercesSecurityManager, &m_limits);
        configuration.setParameter(XMLUni::fgXercesEntityResolver,
                                   static_cast<xercesc::XMLEntityResolver*>(&m_listener));
        configuration.setParameter(XMLUni::fgDOMErrorHandler,
                                   static_cast<xercesc::DOMErrorHandler*>(&m_listener));
        xercesc::MemBufInputSource source(reinterpret_cast<const XMLByte*>(bytes.data()), bytes.size(),
                                          X(name));
        const std::string_view encoding = QsXml::ParserEncoding(QsXml::DeclaredEncoding(bytes));
        if (!encoding.empty())
            source.setEncoding(X(std::u16string(encoding.begin(), encoding.end()).c_str()));
        const xercesc::Wrapper4InputSource input(&source, false);
        try {
            m_document = m_parser->parse(&input);
        } catch (const xercesc::DOMException& exception) {
            m_listener.m_failed = true;
            m_listener.m_text = reinterpret_cast<const char16_t*>(exception.getMessage());
        }
    }
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;
    ~Document() { m_parser->release(); }

    bool IsGood() const { return !m_listener.m_failed && m_document != nullptr; }
    const std::u16string& Error() const { return m_listener.m_text; }
    xercesc::DOMDocument& Dom() const { return *m_document; }

private:
    Listener m_listener;
    xercesc::SecurityManager m_limits;
    xercesc::DOMLSParser* m_parser = nullptr;
    xercesc::DOMDocument* m_document = nullptr;
};

inline XMLNode* ReadElement(const xercesc::DOMElement& element) {
    auto* node = new XMLNode;
    node->Name = Wide(element.getNodeName());
    const xercesc::DOMNamedNodeMap& attributes = *element.getAttributes();
    for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
        if (const auto* attribute = dynamic_cast<const xercesc::DOMAttr*>(attributes.item(i)))
            node->Attributes[Wide(attribute->getName())] = Wide(attribute->getValue());
    }
    const xercesc::DOMNode* const first = element.getFirstChild();
    if (first != nullptr && first->getNodeValue() != nullptr)
        node->Text = Wide(first->getNodeValue());
    for (const xercesc::DOMElement* child = element.getFirstElementChild(); child != nullptr;
         child = child->getNextElementSibling())
        node->Children.push_back(ReadElement(*child));
    return node;
}

/// The tree of a document, or null with the parser's message.
inline std::unique_ptr<XMLNode> ReadTree(std::string_view bytes, std::u16string& error) {
    const Document document(bytes);
    error = document.Error();
    const xercesc::DOMElement* root = document.IsGood() ? document.Dom().getDocumentElement() : nullptr;
    return std::unique_ptr<XMLNode>(root == nullptr ? nullptr : ReadElement(*root));
}

/// Everything that a tree holds, in one line.
inline void AppendText(const XMLNode& node, std::wstring& text) {
    text += L"(" + node.Name + L"|" + node.Text + L"|" + node.Extra;
    for (const auto& [name, value] : node.Attributes)
        text += L"|" + name + L"=" + value;
    for (const XMLNode* child : node.Children)
        AppendText(*child, text);
    text += L")";
}

inline std::wstring TextOf(const XMLNode* node) {
    std::wstring text;
    if (node == nullptr)
        return L"null";
    AppendText(*node, text);
    return text;
}

}  // namespace PlainXml
