#include "QsUtils/config/ExtraCostFile.h"

#include <memory>

#include "QsUtils/xml/NodeAttribute.h"
#include "QsUtils/xml/XmlAccess.h"

using QsXml::AttributeText;

namespace QsConfig {

namespace {

void AddOptions(const XMLNode& group, std::list<CString>& options) {
    for (const XMLNode* child : group.Children) {
        if (child->Name == L"Value")
            options.push_back(AttributeText(*child, L"Name"));
    }
}

void AddTypes(const XMLNode& group, std::map<CString, CString>& types) {
    for (const XMLNode* child : group.Children) {
        if (child->Name == L"Type")  // the first of a name counts
            types.emplace(AttributeText(*child, L"Name"), AttributeText(*child, L"Coefficient"));
    }
}

}  // namespace

CString ExtraCostPath(const CString& libraryPath) {
    const int point = libraryPath.ReverseFind(u'.');
    return point < 0 ? CString() : libraryPath.Left(point) + u".ec";
}

std::optional<ExtraCosts> ReadExtraCosts(const CString& path) {
    const std::unique_ptr<XMLNode> root(LoadXMLNode(path.ToWide()));
    if (root == nullptr)
        return std::nullopt;
    ExtraCosts costs;
    for (const XMLNode* child : root->Children) {
        if (child->Name == L"Overheight")
            AddOptions(*child, costs.overHeight);
        else if (child->Name == L"ExtraCostType")
            AddTypes(*child, costs.types);
    }
    return costs;
}

eExtraCost_CoefficientType CoefficientTypeOf(const CString& text) {
    if (text == u"子目系数")
        return eExtraCost_ItemCoefficient;
    if (text == u"工程系数")
        return eExtraCost_ProjectCoefficient;
    return text == u"综合系数" ? eExtraCost_CompositeCoefficient : eExtraCost_Unknown;
}

}  // namespace QsConfig
