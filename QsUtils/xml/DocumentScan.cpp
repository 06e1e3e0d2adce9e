#include "QsUtils/xml/DocumentScan.h"

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMException.hpp>
#include <xercesc/dom/DOMImplementation.hpp>
#include <xercesc/dom/DOMImplementationRegistry.hpp>
#include <xercesc/framework/XMLEntityDecl.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/validators/DTD/DTDAttDef.hpp>
#include <xercesc/validators/DTD/DTDElementDecl.hpp>
#include <xercesc/validators/DTD/DTDEntityDecl.hpp>

#include "QsUtils/xml/Release.h"
#include "QsUtils/xml/XmlInput.h"
#include "QsUtils/xml/XmlText.h"

namespace QsXml {

namespace {

// What a node costs besides its texts.
constexpr std::size_t NodeCost = 16;
constexpr std::size_t AttributeCost = 4;

}  // namespace

DocumentScan::DocumentScan(ScanMemory& memory, std::size_t size, ScanEvents* events)
    : SAXParser(nullptr, &memory), m_events(events), m_budget(size) {
    setValidationScheme(Val_Never);
    setDoNamespaces(false);
    setDoSchema(false);
    setHandleMultipleImports(false);
    setValidationSchemaFullChecking(false);
    setLoadExternalDTD(false);
    setDisableDefaultEntityResolution(true);
    m_limits.setEntityExpansionLimit(MostExpansions);
    setSecurityManager(&m_limits);
    installAdvDocHandler(this);
    setDTDHandler(&m_interest);
    setErrorHandler(&m_interest);
    setEntityResolver(&m_interest);
}

bool DocumentScan::Run(const xercesc::InputSource& document) {
    try {
        parse(document);
    } catch (const xercesc::OutOfMemoryException&) {
        throw std::bad_alloc();
    } catch (const xercesc::XMLException& exception) {
        Fail(Units(exception.getMessage()));
    } catch (const xercesc::DOMException& exception) {
        Fail(Units(exception.getMessage()));
    } catch (const LimitExceeded& exceeded) {
        Fail(exceeded.text);
    }
    return !m_failed;
}

void DocumentScan::Fail(std::u16string_view text) {
    // What follows the first failure is often its consequence.
    if (!m_failed)
        m_error = text;
    m_failed = true;
}

void DocumentScan::error(unsigned, const XMLCh*, xercesc::XMLErrorReporter::ErrTypes type, const XMLCh* text,
                         const XMLCh*, const XMLCh*, XMLFileLoc, XMLFileLoc) {
    if (type != xercesc::XMLErrorReporter::ErrType_Warning)
        Fail(Units(text));
}

xercesc::InputSource* DocumentScan::resolveEntity(xercesc::XMLResourceIdentifier*) {
    return EmptyInput().release();
}

// The scanner takes every version that begins with "1."; a document refuses those that it doesn't know.
void DocumentScan::XMLDecl(const XMLCh* version, const XMLCh*, const XMLCh*, const XMLCh*) {
    m_version = Units(version);
    if (!m_version.empty() && m_version != u"1.0" && m_version != u"1.1")
        throw xercesc::DOMException(xercesc::DOMException::NOT_SUPPORTED_ERR, 0,
                                    xercesc::XMLPlatformUtils::fgMemoryManager);
}

// A document also has its own opinion on the names of its type.
void DocumentScan::doctypeDecl(const xercesc::DTDElementDecl& root, const XMLCh* publicId,
                               const XMLCh* systemId, bool, bool) {
    const Released<xercesc::DOMDocument> document(
        xercesc::DOMImplementationRegistry::getDOMImplementation(Xml(u"LS"))
            ->createDocument(xercesc::XMLPlatformUtils::fgMemoryManager));
    document->setXmlVersion(Xml(m_version));
    document->createDocumentType(root.getFullName(), publicId, systemId);
}

// Elements and references both count as a level: each becomes a node of a DOM.
void DocumentScan::Enter() {
    if (m_references > 0 && ++m_depthInReference > MostEntityDepth)
        throw LimitExceeded{u"the contents of an entity are nested too deep"};
}

void DocumentScan::Leave() {
    if (m_references > 0)
        --m_depthInReference;
}

void DocumentScan::startElement(const xercesc::XMLElementDecl& element, unsigned, const XMLCh*,
                                const ScanEvents::Attributes& attributes, XMLSize_t count, bool isEmpty,
                                bool) {
    if (++m_depth > MostDepth)
        throw LimitExceeded{u"the elements are nested too deep"};
    if (count > MostAttributes)
        throw LimitExceeded{u"an element has too many attributes"};
    Enter();
    std::size_t cost = NodeCost + Units(element.getFullName()).size();
    for (XMLSize_t i = 0; i < count; ++i) {
        const xercesc::XMLAttr& attribute = *attributes.elementAt(i);
        cost += AttributeCost + Units(attribute.getName()).size() + Units(attribute.getValue()).size();
    }
    m_budget.Spend(cost);
    if (m_events != nullptr)
        m_events->StartElement(element, attributes, count);
    if (isEmpty)
        endElement(element, 0, false, nullptr);
}

void DocumentScan::endElement(const xercesc::XMLElementDecl&, unsigned, bool, const XMLCh*) {
    Leave();
    --m_depth;
    if (m_events != nullptr)
        m_events->EndElement();
}

void DocumentScan::docCharacters(const XMLCh* text, XMLSize_t length, bool isCData) {
    if (m_depth == 0)
        return;
    m_budget.Spend(length);
    if (m_events == nullptr)
        return;
    if (isCData)
        m_events->Node(Units(text, length));
    else
        m_events->Text(Units(text, length));
}

void DocumentScan::ignorableWhitespace(const XMLCh* text, XMLSize_t length, bool) {
    docCharacters(text, length, false);
}

void DocumentScan::docComment(const XMLCh* text) {
    m_budget.Spend(NodeCost + Units(text).size());
    if (m_events != nullptr && m_depth > 0)
        m_events->Node(Units(text));
}

void DocumentScan::docPI(const XMLCh* target, const XMLCh* data) {
    m_budget.Spend(NodeCost + Units(target).size() + Units(data).size());
    if (m_events != nullptr && m_depth > 0)
        m_events->Node(Units(data));
}

void DocumentScan::startEntityReference(const xercesc::XMLEntityDecl&) {
    m_budget.Spend(NodeCost);
    ++m_references;
    Enter();
    if (m_events != nullptr)
        m_events->StartReference();
}

void DocumentScan::endEntityReference(const xercesc::XMLEntityDecl&) {
    Leave();
    --m_references;
    if (m_events != nullptr)
        m_events->EndReference();
}

void DocumentScan::attDef(const xercesc::DTDElementDecl&, const xercesc::DTDAttDef& attribute, bool) {
    m_budget.Spend(NodeCost + Units(attribute.getFullName()).size() + Units(attribute.getValue()).size() +
                   Units(attribute.getEnumeration()).size());
}

void DocumentScan::doctypeComment(const XMLCh* text) {
    m_budget.Spend(NodeCost + Units(text).size());
}

void DocumentScan::doctypePI(const XMLCh* target, const XMLCh* data) {
    m_budget.Spend(NodeCost + Units(target).size() + Units(data).size());
}

void DocumentScan::doctypeWhitespace(const XMLCh*, XMLSize_t length) {
    m_budget.Spend(length);
}

void DocumentScan::elementDecl(const xercesc::DTDElementDecl& element, bool) {
    m_budget.Spend(NodeCost + Units(element.getFullName()).size() +
                   Units(element.getFormattedContentModel()).size());
}

void DocumentScan::Declare(std::size_t cost) {
    if (++m_declarations > MostDeclarations)
        throw LimitExceeded{u"the document declares too many entities"};
    m_budget.Spend(NodeCost + cost);
}

void DocumentScan::entityDecl(const xercesc::DTDEntityDecl& entity, bool, bool) {
    Declare(Units(entity.getName()).size() + entity.getValueLen());
}

void DocumentScan::notationDecl(const xercesc::XMLNotationDecl&, bool) {
    Declare(0);
}

}  // namespace QsXml
