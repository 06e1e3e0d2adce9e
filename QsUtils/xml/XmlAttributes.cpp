// The typed attributes of the tool.
#include <xercesc/dom/DOMAttr.hpp>

#include "QsUtils/platform/CodePage.h"
#include "QsUtils/text/DoubleText.h"
#include "QsUtils/text/Numbers.h"
#include "QsUtils/xml/CXmlAccessTool.h"
#include "QsUtils/xml/XmlText.h"

namespace QsXml {

namespace {

/// The units of an attribute's value; false when the element has no such attribute.
bool FindAttribute(const wchar_t* name, const xercesc::DOMElement* element, std::u16string_view& value) {
    if (name == nullptr || element == nullptr)
        return false;
    // Asked for as a node: the value alone doesn't tell an empty attribute from none.
    const xercesc::DOMAttr* const attribute = element->getAttributeNode(Xml(QsText::WideToUtf16(name)));
    if (attribute == nullptr)
        return false;
    value = Units(attribute->getValue());
    return true;
}

void SetAttribute(const std::u16string& value, const wchar_t* name, xercesc::DOMElement* element) {
    if (name != nullptr && element != nullptr)
        element->setAttribute(Xml(QsText::WideToUtf16(name)), Xml(value));
}

}  // namespace

bool CXmlAccessTool::GetCStringAttribute(CString& value, const wchar_t* name, xercesc::DOMElement* element) {
    value.Empty();
    std::u16string_view units;
    if (!FindAttribute(name, element, units))
        return false;
    value = CString(QsPlatform::EncodeAnsi(units).c_str());
    return true;
}

void CXmlAccessTool::SetCStringAttribute(const CString& value, const wchar_t* name,
                                         xercesc::DOMElement* element) {
    SetAttribute(std::u16string(value.View()), name, element);
}

bool CXmlAccessTool::GetStringAttribute(std::wstring& value, const wchar_t* name,
                                        xercesc::DOMElement* element) {
    value.clear();
    std::u16string_view units;
    if (!FindAttribute(name, element, units))
        return false;
    value = QsText::Utf16ToWide(units);
    return true;
}

void CXmlAccessTool::SetStringAttribute(const std::wstring& value, const wchar_t* name,
                                        xercesc::DOMElement* element) {
    SetAttribute(QsText::WideToUtf16(value), name, element);
}

bool CXmlAccessTool::GetDoubleAttribute(double& value, const wchar_t* name, xercesc::DOMElement* element) {
    value = 0.0;
    std::u16string_view units;
    if (!FindAttribute(name, element, units))
        return false;
    value = QsText::ReadDouble(units);
    return true;
}

void CXmlAccessTool::SetDoubleAttribute(double value, const wchar_t* name, xercesc::DOMElement* element) {
    SetAttribute(QsText::WriteDouble(value, {}), name, element);
}

bool CXmlAccessTool::GetIntAttribute(std::int32_t& value, const wchar_t* name, xercesc::DOMElement* element) {
    value = 0;
    std::u16string_view units;
    if (!FindAttribute(name, element, units))
        return false;
    value = QsText::ReadInt(units);
    return true;
}

void CXmlAccessTool::SetIntAttribute(std::int32_t value, const wchar_t* name, xercesc::DOMElement* element) {
    CString text;
    text.Format(u"%d", value);
    SetAttribute(std::u16string(text.View()), name, element);
}

bool CXmlAccessTool::GetBoolAttribute(bool& value, const wchar_t* name, xercesc::DOMElement* element) {
    std::int32_t number = 0;
    const bool found = GetIntAttribute(number, name, element);
    value = number != 0;
    return found;
}

void CXmlAccessTool::SetBoolAttribute(bool value, const wchar_t* name, xercesc::DOMElement* element) {
    SetAttribute(value ? u"1" : u"0", name, element);
}

}  // namespace QsXml
