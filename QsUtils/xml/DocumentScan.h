// One pass over a document, without a DOM.
#pragma once

#include <string>
#include <string_view>

#include <xercesc/framework/XMLElementDecl.hpp>
#include <xercesc/parsers/SAXParser.hpp>
#include <xercesc/sax/HandlerBase.hpp>
#include <xercesc/util/SecurityManager.hpp>

#include "QsUtils/xml/ScanLimits.h"

namespace QsXml {

/// What a scan meets inside of the root element, in the order of the file and as a DOM would hold it.
class ScanEvents {
public:
    using Attributes = xercesc::RefVectorOf<xercesc::XMLAttr>;

    /// `attributes` holds `count` attributes; those by default stand among them or in the declaration.
    virtual void StartElement(const xercesc::XMLElementDecl& element, const Attributes& attributes,
                              std::size_t count) = 0;
    virtual void EndElement() = 0;
    /// A piece of a text; pieces that follow one another are one text.
    virtual void Text(std::u16string_view piece) = 0;
    /// A CDATA section, a comment or a processing instruction, with its value.
    virtual void Node(std::u16string_view value) = 0;
    /// A reference to an entity; what the entity holds follows, up to `EndReference`.
    virtual void StartReference() = 0;
    virtual void EndReference() = 0;

protected:
    ~ScanEvents() = default;
};

/// Parses a document with the settings of the document way and within its limits. Nothing but its own bytes
/// is read: what the document names elsewhere counts as empty.
class DocumentScan final : private xercesc::SAXParser {
public:
    /// `size` is that of the document in bytes. `events` may be null, when only the question is whether the
    /// document can be parsed.
    DocumentScan(ScanMemory& memory, std::size_t size, ScanEvents* events);

    /// Runs once. False when the document isn't well-formed or passes a limit, also when what came before
    /// has been told. Raises memory exhaustion and what the events raise.
    bool Run(const xercesc::InputSource& document);
    /// Why it was false.
    const std::u16string& ErrorText() const noexcept { return m_error; }

private:
    void Fail(std::u16string_view text);
    void Declare(std::size_t cost);
    void Enter();
    void Leave();

    // The parser's side.
    void startElement(const xercesc::XMLElementDecl& element, unsigned, const XMLCh*,
                      const ScanEvents::Attributes& attributes, XMLSize_t count, bool isEmpty, bool) override;
    void endElement(const xercesc::XMLElementDecl&, unsigned, bool, const XMLCh*) override;
    void docCharacters(const XMLCh* text, XMLSize_t length, bool isCData) override;
    void ignorableWhitespace(const XMLCh* text, XMLSize_t length, bool isCData) override;
    void docComment(const XMLCh* text) override;
    void docPI(const XMLCh* target, const XMLCh* data) override;
    void startEntityReference(const xercesc::XMLEntityDecl&) override;
    void endEntityReference(const xercesc::XMLEntityDecl&) override;
    void startDocument() override {}
    void endDocument() override {}
    void resetDocument() override {}
    void XMLDecl(const XMLCh* version, const XMLCh*, const XMLCh*, const XMLCh*) override;

    void error(unsigned, const XMLCh*, xercesc::XMLErrorReporter::ErrTypes type, const XMLCh* text,
               const XMLCh*, const XMLCh*, XMLFileLoc, XMLFileLoc) override;
    xercesc::InputSource* resolveEntity(xercesc::XMLResourceIdentifier*) override;

    void doctypeDecl(const xercesc::DTDElementDecl& root, const XMLCh* publicId, const XMLCh* systemId, bool,
                     bool) override;
    // Declarations only cost. They may be many more than the file holds, by parameter entities.
    void attDef(const xercesc::DTDElementDecl&, const xercesc::DTDAttDef& attribute, bool) override;
    void doctypeComment(const XMLCh* text) override;
    void doctypePI(const XMLCh* target, const XMLCh* data) override;
    void doctypeWhitespace(const XMLCh* text, XMLSize_t length) override;
    void elementDecl(const xercesc::DTDElementDecl& element, bool) override;
    void entityDecl(const xercesc::DTDEntityDecl& entity, bool, bool) override;
    void notationDecl(const xercesc::XMLNotationDecl&, bool) override;
    void resetDocType() override {}

    ScanEvents* m_events;
    xercesc::HandlerBase m_interest;  // makes the parser ask; all answers are given above
    xercesc::SecurityManager m_limits;
    ContentBudget m_budget;
    std::u16string m_version;
    std::size_t m_depth = 0;             // of elements
    std::size_t m_references = 0;        // entities that are open
    std::size_t m_depthInReference = 0;  // of elements and entities in the outermost one
    std::size_t m_declarations = 0;
    std::u16string m_error;
    bool m_failed = false;
};

}  // namespace QsXml
