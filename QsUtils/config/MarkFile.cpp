#include "QsUtils/config/MarkFile.h"

#include <memory>

#include "QsUtils/xml/NodeAttribute.h"
#include "QsUtils/xml/XmlAccess.h"

using QsXml::AttributeText;

namespace QsConfig {

void ReadMarks(const CString& path, bool billMode, const MarkLists& lists) {
    const std::unique_ptr<XMLNode> root(LoadXMLNode(path.ToWide()));
    const XMLNode* const mode =
        root == nullptr ? nullptr : root->FindChildNode(billMode ? L"QdMode" : L"DeMode");
    if (mode == nullptr)
        return;
    for (std::size_t i = 0; i < MarkGroups.size(); ++i) {
        const XMLNode* const group = mode->FindChildNode(CString(MarkGroups[i]).ToWide());
        if (group == nullptr)
            continue;
        for (const XMLNode* mark : group->Children)
            lists[i]->emplace_back(AttributeText(*mark, L"Code"), AttributeText(*mark, L"Name"));
    }
}

}  // namespace QsConfig
