#include "QsUtils/units/CUnitMantissa.h"

#include <memory>
#include <string>

#include "QsUtils/platform/ExecutableFolder.h"
#include "QsUtils/text/Numbers.h"
#include "QsUtils/xml/CXmlAccessTool.h"
#include "QsUtils/xml/NodeAttribute.h"

namespace QsUnits {

namespace {

int DecimalsOf(const CString& text) {
    return QsText::ReadInt(text.View());
}

}  // namespace

CString CUnitMantissa::FilePath() {
    return QsPlatform::ExecutableFolder() + u"\\GB50500-2008.xml";
}

void CUnitMantissa::Load(const CString& path) {
    // A tool outside of the table of tools: that is for one thread at a time, and this call for any.
    QsXml::CXmlAccessTool tool(0);
    const std::unique_ptr<XMLNode> root(tool.LoadXMLNode(path.ToWide()));
    if (root == nullptr)
        return;
    // The other way round than the name says, and hosts rest on it: a stated default leaves 2 in place,
    // whatever it is, and only its absence counts, as an empty number.
    if (root->Attributes.find(L"default_decimal") == root->Attributes.end())
        m_nDefaultDecimal = DecimalsOf(CString());
    for (const XMLNode* row : root->Children)
        m_mapUnitDecimal[QsXml::AttributeText(*row, L"unit")] =
            DecimalsOf(QsXml::AttributeText(*row, L"decimal"));
}

int CUnitMantissa::GetUnitMantissa(const CString& unit) const {
    const auto found = m_mapUnitDecimal.find(unit);
    return found == m_mapUnitDecimal.end() ? m_nDefaultDecimal : found->second;
}

}  // namespace QsUnits
