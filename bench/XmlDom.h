// The parser's own way to read a file: into a DOM.
#pragma once

#include <filesystem>

#include <xercesc/dom/DOM.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>

/// A file's document, made with what the library's document way asks of a parser.
class XmlDom {
public:
    explicit XmlDom(const std::filesystem::path& path) {
        m_parser = Implementation()->createLSParser(xercesc::DOMImplementationLS::MODE_SYNCHRONOUS, nullptr);
        m_parser->getDomConfig()->setParameter(xercesc::XMLUni::fgDOMNamespaces, false);
        m_document = m_parser->parseURI(path.c_str());
    }

    const xercesc::DOMDocument* Document() const { return m_document; }
    bool HasRoot() const { return m_document != nullptr && m_document->getDocumentElement() != nullptr; }
    void Release() const { m_parser->release(); }

    static xercesc::DOMImplementation* Implementation() {
        const XMLCh feature[] = {xercesc::chLatin_L, xercesc::chLatin_S, xercesc::chNull};
        return xercesc::DOMImplementationRegistry::getDOMImplementation(feature);
    }

private:
    xercesc::DOMLSParser* m_parser = nullptr;
    const xercesc::DOMDocument* m_document = nullptr;
};
