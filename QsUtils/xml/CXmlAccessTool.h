// The tool behind `IXmlAccessTool`.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMLSParser.hpp>
#include <xercesc/dom/DOMLSSerializer.hpp>

#include "QsUtils/xml/ParserGuards.h"
#include "QsUtils/xml/Release.h"
#include "QsUtils/xml/XmlAccess.h"

namespace QsXml {

/// Holds one file. The document of a file that was loaded as a tree is parsed when somebody first asks for
/// it, which most hosts never do; until then the tool keeps the bytes.
class CXmlAccessTool final : public NS_XMLACCESS::IXmlAccessTool {
public:
    explicit CXmlAccessTool(std::int32_t id) noexcept : m_nId(id) {}
    CXmlAccessTool(const CXmlAccessTool&) = delete;
    CXmlAccessTool& operator=(const CXmlAccessTool&) = delete;
    ~CXmlAccessTool() override;

    /// The key in the table of tools.
    std::int32_t Id() const noexcept { return m_nId; }

    bool LoadXmlFile(const std::wstring& path) override;
    xercesc::DOMDocument* GetDocument() override;
    xercesc::DOMElement* GetRootElement() override;
    bool SaveXmlFile(const std::wstring& path) override;
    std::wstring GetLastErrorText() override;
    /// The tree of a file for a caller that never asks for its document: neither is the file kept nor a
    /// parser for documents made.
    static XMLNode* ReadTreeFile(const std::wstring& path);
    XMLNode* LoadXMLNode(const std::wstring& path) override;
    bool SaveXMLNode(XMLNode* root, const std::wstring& path, const bool& prettyPrint) override;

    bool GetCStringAttribute(CString& value, const wchar_t* name, xercesc::DOMElement* element) override;
    void SetCStringAttribute(const CString& value, const wchar_t* name,
                             xercesc::DOMElement* element) override;
    bool GetStringAttribute(std::wstring& value, const wchar_t* name, xercesc::DOMElement* element) override;
    void SetStringAttribute(const std::wstring& value, const wchar_t* name,
                            xercesc::DOMElement* element) override;
    bool GetDoubleAttribute(double& value, const wchar_t* name, xercesc::DOMElement* element) override;
    void SetDoubleAttribute(double value, const wchar_t* name, xercesc::DOMElement* element) override;
    bool GetIntAttribute(std::int32_t& value, const wchar_t* name, xercesc::DOMElement* element) override;
    void SetIntAttribute(std::int32_t value, const wchar_t* name, xercesc::DOMElement* element) override;
    bool GetBoolAttribute(bool& value, const wchar_t* name, xercesc::DOMElement* element) override;
    void SetBoolAttribute(bool value, const wchar_t* name, xercesc::DOMElement* element) override;

    void Close() override;

private:
    bool CreateParser();
    void MakeParser();
    bool Open(const std::wstring& path);
    template <typename Read>
    bool Load(const std::wstring& path, Read read);
    bool Parse();
    void ReleaseParser() noexcept;
    void ForgetDocument() noexcept;
    bool FailToParse(std::u16string_view reason);

    // In this order: the parser calls its guards, and owns the document.
    ParserGuards m_guards;
    Released<xercesc::DOMLSSerializer> m_pSerializer;
    Released<xercesc::DOMLSParser> m_pParser;
    xercesc::DOMDocument* m_pDocument = nullptr;
    std::wstring m_strPath;
    std::u16string m_strName;  // the path for the parser
    std::string m_bytes;       // of a document that isn't parsed yet
    std::wstring m_strError;
    bool m_bLoaded = false;
    bool m_bUnparsed = false;
    std::int32_t m_nId;
};

}  // namespace QsXml
