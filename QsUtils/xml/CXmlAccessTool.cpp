#include "QsUtils/xml/CXmlAccessTool.h"

#include <optional>
#include <type_traits>
#include <utility>

#include <xercesc/dom/DOMException.hpp>
#include <xercesc/dom/DOMImplementation.hpp>
#include <xercesc/dom/DOMImplementationLS.hpp>
#include <xercesc/dom/DOMImplementationRegistry.hpp>
#include <xercesc/framework/Wrapper4InputSource.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/RuntimeException.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "QsUtils/platform/FileContent.h"
#include "QsUtils/platform/FileStream.h"
#include "QsUtils/xml/DocumentWriter.h"
#include "QsUtils/xml/TreeReader.h"
#include "QsUtils/xml/TreeWriter.h"
#include "QsUtils/xml/XmlInput.h"
#include "QsUtils/xml/XmlPlatform.h"
#include "QsUtils/xml/XmlText.h"

// The public header names the two types by hand; a parser of another version has others.
static_assert(std::is_same_v<xercesc_3_2::DOMDocument, xercesc::DOMDocument>);
static_assert(std::is_same_v<xercesc_3_2::DOMElement, xercesc::DOMElement>);

// Out of line, so that the type information of the interface has one home and a host's casts meet it.
NS_XMLACCESS::IXmlAccessTool::~IXmlAccessTool() = default;

namespace QsXml {

namespace {

constexpr const char16_t* unknownReason = u"未知错误!";

xercesc::DOMImplementation* Implementation() {
    return xercesc::DOMImplementationRegistry::getDOMImplementation(Xml(u"LS"));
}

/// In the parser's words, as for all other failures.
std::u16string CannotOpen(const std::u16string& name) {
    const xercesc::RuntimeException exception("XmlAccess", 0, xercesc::XMLExcepts::Scan_CouldNotOpenSource,
                                              Xml(name), nullptr, nullptr, nullptr,
                                              xercesc::XMLPlatformUtils::fgMemoryManager);
    return std::u16string(Units(exception.getMessage()));
}

}  // namespace

CXmlAccessTool::~CXmlAccessTool() {
    ForgetDocument();
    ReleaseParser();
}

void CXmlAccessTool::ReleaseParser() noexcept {
    m_pSerializer.reset();
    m_pParser.reset();
}

// The parser owns the document itself.
void CXmlAccessTool::ForgetDocument() noexcept {
    m_pDocument = nullptr;
    m_bUnparsed = false;
    m_bytes = std::string();
}

void CXmlAccessTool::Close() {
    if (!m_bLoaded)
        return;
    m_bLoaded = false;
    // Unlike the flag, the pointer would lead hosts into a document that is gone.
    ForgetDocument();
    ReleaseParser();
    m_strPath.clear();
    m_strError.clear();
}

void CXmlAccessTool::MakeParser() {
    using xercesc::XMLUni;
    xercesc::DOMImplementation* const implementation = Implementation();
    if (implementation == nullptr)
        return;
    xercesc::MemoryManager* const memory = xercesc::XMLPlatformUtils::fgMemoryManager;
    m_pParser.reset(implementation->createLSParser(xercesc::DOMImplementationLS::MODE_SYNCHRONOUS, nullptr,
                                                   memory, nullptr));
    m_pSerializer.reset(implementation->createLSSerializer(memory));
    xercesc::DOMConfiguration& configuration = *m_pParser->getDomConfig();
    for (const XMLCh* feature : {XMLUni::fgDOMNamespaces, XMLUni::fgXercesSchema,
                                 XMLUni::fgXercesHandleMultipleImports, XMLUni::fgXercesSchemaFullChecking})
        configuration.setParameter(feature, false);
    m_guards.Guard(configuration);
}

bool CXmlAccessTool::CreateParser() {
    ReleaseParser();
    m_strPath.clear();
    m_strError.clear();
    if (!IsXmlPlatformRunning())
        return false;
    try {
        MakeParser();
    } catch (const xercesc::XMLException&) {
        return false;
    } catch (const xercesc::DOMException&) {
        return false;
    }
    return m_pParser != nullptr && m_pSerializer != nullptr;
}

bool CXmlAccessTool::FailToParse(std::u16string_view reason) {
    m_strError = QsText::Utf16ToWide(u"解析Xml文档失败:");
    m_strError += QsText::Utf16ToWide(reason);
    return false;
}

bool CXmlAccessTool::Open(const std::wstring& path) {
    Close();
    ForgetDocument();
    if (!CreateParser()) {
        // One text for every reason: nobody asked for more so far, and hosts compare it.
        m_strError = QsText::Utf16ToWide(u"创建解析器失败!");
        return false;
    }
    m_strPath = path;
    m_strName = QsText::WideToUtf16(path);
    std::optional<std::string> bytes = QsPlatform::ReadWholeFile(CString(path));
    if (!bytes)
        return FailToParse(CannotOpen(m_strName));
    m_bytes = std::move(*bytes);
    return true;
}

/// `read` gives whether the bytes are a document, or why not.
template <typename Read>
bool CXmlAccessTool::Load(const std::wstring& path, Read read) {
    if (!Open(path))
        return false;
    std::u16string reason;
    if (!read(reason)) {
        m_bytes = std::string();
        return FailToParse(reason.empty() ? std::u16string_view(unknownReason) : reason);
    }
    m_bLoaded = true;
    m_bUnparsed = true;
    return true;
}

bool CXmlAccessTool::LoadXmlFile(const std::wstring& path) {
    const auto check = [this](std::u16string& reason) {
        return CheckDocument(*BytesInput(m_bytes, m_strName), m_bytes.size(), reason);
    };
    if (!Load(path, check))
        return false;
    m_bLoaded = Parse();
    return m_bLoaded;
}

XMLNode* CXmlAccessTool::LoadXMLNode(const std::wstring& path) {
    XMLNode* root = nullptr;
    Load(path, [&](std::u16string& reason) {
        root = ReadTree(*BytesInput(m_bytes, m_strName), m_bytes.size(), reason);
        return root != nullptr;
    });
    return root;
}

XMLNode* CXmlAccessTool::ReadTreeFile(const std::wstring& path) {
    if (!IsXmlPlatformRunning())
        return nullptr;
    QsPlatform::FileStream file{CString(path)};
    if (file.Failure() != QsPlatform::FileFailure::None || file.Size() > QsPlatform::LargestFile)
        return nullptr;
    std::u16string ignored;
    return ReadTree(*FileInput(file, QsText::WideToUtf16(path)), file.Size(), ignored);
}

// The document has passed the check by now, so nothing here takes more than its size allows.
bool CXmlAccessTool::Parse() {
    const std::string bytes = std::move(m_bytes);
    ForgetDocument();
    m_guards.Reset();
    try {
        const xercesc::Wrapper4InputSource input(BytesInput(bytes, m_strName).release(), true,
                                                 xercesc::XMLPlatformUtils::fgMemoryManager);
        m_pDocument = m_pParser->parse(&input);
    } catch (const xercesc::XMLException& exception) {
        return FailToParse(Units(exception.getMessage()));
    } catch (const xercesc::DOMException& exception) {
        return FailToParse(Units(exception.getMessage()));
    }
    if (!m_guards.HasFailed() && m_pDocument != nullptr)
        return true;
    m_pDocument = nullptr;
    return FailToParse(m_guards.HasFailed() ? std::u16string_view(m_guards.ErrorText()) : unknownReason);
}

xercesc::DOMDocument* CXmlAccessTool::GetDocument() {
    if (m_bUnparsed)
        Parse();
    return m_pDocument;
}

xercesc::DOMElement* CXmlAccessTool::GetRootElement() {
    xercesc::DOMDocument* const document = GetDocument();
    return document == nullptr ? nullptr : document->getDocumentElement();
}

bool CXmlAccessTool::SaveXmlFile(const std::wstring& path) {
    const xercesc::DOMDocument* const document = GetDocument();
    if (document == nullptr || m_pSerializer == nullptr)
        return false;
    return WriteDocument(*document, *m_pSerializer, path.empty() ? m_strPath : path);
}

std::wstring CXmlAccessTool::GetLastErrorText() {
    return m_strError;
}

bool CXmlAccessTool::SaveXMLNode(XMLNode* root, const std::wstring& path, const bool& prettyPrint) {
    if (root == nullptr || path.empty() || !IsXmlPlatformRunning())
        return false;
    ForgetDocument();
    WriteTree(*root, path, prettyPrint);
    return true;
}

}  // namespace QsXml
