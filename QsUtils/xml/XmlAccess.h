/// @file
/// XML files, as documents and as plain trees.
#pragma once

#include <cstdint>
#include <string>

#include "QsUtils/platform/Api.h"
#include "QsUtils/text/CString.h"
#include "QsUtils/xml/XMLNode.h"

// The two types of Xerces-C that cross the boundary. A host that works on documents includes Xerces-C's own
// headers; one that works on trees needs none.
namespace xercesc_3_2 {
class DOMDocument;
class DOMElement;
}  // namespace xercesc_3_2

/// The tool through which documents go. See docs/xml.md.
namespace NS_XMLACCESS {

/// Opens one XML file at a time, keeps its document, reads and writes attributes, and writes the document
/// back. Tools come from `GetXmlAccessTool` alone and go by `RemoveXmlAccessTool`. A tool, its document and
/// all elements of it are for one thread at a time.
///
/// A path names a file, never a URI, and may hold any character that the system allows. On Linux backslashes
/// and slashes both separate folders. Exceptions of Xerces-C leave only where that is said, as
/// `xercesc::XMLException` or `xercesc::DOMException`; beyond them there is memory exhaustion.
class QSUTILS_API IXmlAccessTool {
public:
    virtual ~IXmlAccessTool();
    /// Closes the file at hand, then opens and parses another. False, with an error text, when the file can't
    /// be read, isn't well-formed, or is out of all bounds (see docs/xml.md). Nothing but this one file is
    /// read, whatever the document names.
    virtual bool LoadXmlFile(const std::wstring& path) = 0;
    /// The document, which belongs to the tool and goes with `Close` and the next load; null when there is
    /// none.
    virtual xercesc_3_2::DOMDocument* GetDocument() = 0;
    /// The document's root; null when there is no document.
    virtual xercesc_3_2::DOMElement* GetRootElement() = 0;
    /// Writes the document, in the encoding that it came with, to `path`, or where it came from when `path`
    /// is empty. The file is replaced whole or left as it was. False when there is no document or its
    /// encoding can't be written; a file that can't be written raises `xercesc::XMLException`.
    virtual bool SaveXmlFile(const std::wstring& path) = 0;
    /// Why the last load failed; empty after a good one and after `Close`.
    virtual std::wstring GetLastErrorText() = 0;
    /// Loads a file as `LoadXmlFile` does and gives its tree, which is the caller's; null on failure.
    virtual XMLNode* LoadXMLNode(const std::wstring& path) = 0;
    /// Writes a tree as a new file in UTF-8, replaced whole or left as it was. False for a null root and for
    /// an empty path. A name that XML doesn't allow and a character that it lacks raise
    /// `xercesc::DOMException`, a file that can't be written `xercesc::XMLException`. A document at hand is
    /// out of reach afterwards.
    virtual bool SaveXMLNode(XMLNode* root, const std::wstring& path, const bool& prettyPrint) = 0;

    /// @name Attributes
    /// A getter resets its output first and returns whether the element has the attribute, which may be
    /// empty; a setter makes or replaces it, and raises `xercesc::DOMException` for an impossible name. A
    /// null name or element counts as no attribute.
    /// @{

    /// The value after a way through the ANSI code page and back: what the page lacks is lost.
    virtual bool GetCStringAttribute(CString& value, const wchar_t* name,
                                     xercesc_3_2::DOMElement* element) = 0;
    /// Writes the text as it is.
    virtual void SetCStringAttribute(const CString& value, const wchar_t* name,
                                     xercesc_3_2::DOMElement* element) = 0;
    /// The value as it is.
    virtual bool GetStringAttribute(std::wstring& value, const wchar_t* name,
                                    xercesc_3_2::DOMElement* element) = 0;
    /// Writes the text as it is.
    virtual void SetStringAttribute(const std::wstring& value, const wchar_t* name,
                                    xercesc_3_2::DOMElement* element) = 0;
    /// The number that the value begins with, or 0.
    virtual bool GetDoubleAttribute(double& value, const wchar_t* name, xercesc_3_2::DOMElement* element) = 0;
    /// Writes six decimals.
    virtual void SetDoubleAttribute(double value, const wchar_t* name, xercesc_3_2::DOMElement* element) = 0;
    /// The whole number that the value begins with, or 0.
    virtual bool GetIntAttribute(std::int32_t& value, const wchar_t* name,
                                 xercesc_3_2::DOMElement* element) = 0;
    /// Writes decimal digits, with a sign for numbers below 0.
    virtual void SetIntAttribute(std::int32_t value, const wchar_t* name,
                                 xercesc_3_2::DOMElement* element) = 0;
    /// Whether the whole number that the value begins with isn't 0: "true" and "0.9" are false.
    virtual bool GetBoolAttribute(bool& value, const wchar_t* name, xercesc_3_2::DOMElement* element) = 0;
    /// Writes "1" or "0".
    virtual void SetBoolAttribute(bool value, const wchar_t* name, xercesc_3_2::DOMElement* element) = 0;

    /// @}

    /// Lets go of the document and its file; does nothing when none is loaded.
    virtual void Close() = 0;
};

}  // namespace NS_XMLACCESS

extern "C" {

/// @name The four functions
/// Any thread may call them; a tool is for the thread that it was made for.
/// @{

/// A new tool. It belongs to the module, which ends it at the latest when it is unloaded.
QSUTILS_API NS_XMLACCESS::IXmlAccessTool* GetXmlAccessTool();
/// Ends a tool. Null and anything that isn't a living tool of this module are left alone.
QSUTILS_API void RemoveXmlAccessTool(NS_XMLACCESS::IXmlAccessTool* tool);
/// The tree of a file, to be deleted by the caller; null when the file can't be loaded.
QSUTILS_API XMLNode* LoadXMLNode(const std::wstring& path);
/// Writes a tree as `IXmlAccessTool::SaveXMLNode` does, with the same results and exceptions.
QSUTILS_API bool SaveXMLNode(XMLNode* root, const std::wstring& path, const bool& prettyPrint);
/// @}
}
