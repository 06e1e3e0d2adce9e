#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMException.hpp>
#include <xercesc/util/XMLException.hpp>

#include "QsUtils/config/OverviewFile.h"
#include "QsUtils/platform/Process.h"
#include "QsUtils/xml/XmlAccess.h"
#include "QsUtils/xml/XmlText.h"

using NS_XMLACCESS::IXmlAccessTool;
using QS_ProjectOverView::stuColInfo;
using QsXml::Xml;

namespace QsConfig {

namespace {

void WriteField(const stuColInfo& field, IXmlAccessTool& tool, xercesc::DOMElement* element) {
    tool.SetCStringAttribute(field.strCode, L"Code", element);
    tool.SetCStringAttribute(field.strName, L"Name", element);
    tool.SetCStringAttribute(field.strType, L"Type", element);
    tool.SetCStringAttribute(TextOfGroup(field.nBelongType), L"BelongType", element);
    tool.SetBoolAttribute(field.bPrint, L"Print", element);
    tool.SetBoolAttribute(!field.bShow, L"Hide", element);
    tool.SetIntAttribute(field.nMantissa, L"Mantissa", element);
    tool.SetIntAttribute(field.nIndex1, L"Index1", element);
    tool.SetIntAttribute(field.nIndex2, L"Index2", element);
    tool.SetBoolAttribute(field.bUserDef, L"UserDef", element);
}

/// A file that can't be written stays as it was, and nobody is told: hosts take the result for whether there
/// is a project, and look for the fields by reading them.
void Save(IXmlAccessTool& tool, const std::wstring& path) {
    try {
        tool.SaveXmlFile(path);
    } catch (const xercesc::XMLException&) {
        return;
    } catch (const xercesc::DOMException&) {
        return;
    }
}

}  // namespace

bool WriteOverview(const CString& path, const std::list<stuColInfo*>& fields) {
    IXmlAccessTool& tool = *GetXmlAccessTool();
    const std::wstring file = path.ToWide();
    if (!tool.LoadXmlFile(file)) {
        QsPlatform::ShowMessage(CString(tool.GetLastErrorText()));
        return false;
    }
    xercesc::DOMElement* const root = tool.GetRootElement();
    if (root == nullptr)
        return false;
    xercesc::DOMDocument& document = *tool.GetDocument();
    xercesc::DOMElement* const overview = document.createElement(Xml(u"CProjectOverView"));
    root->appendChild(overview);
    for (const stuColInfo* field : fields) {
        if (field == nullptr)
            continue;
        xercesc::DOMElement* const element = document.createElement(Xml(u"CColInfoLeaf"));
        WriteField(*field, tool, element);
        overview->appendChild(element);
    }
    Save(tool, file);
    return true;
}

}  // namespace QsConfig
