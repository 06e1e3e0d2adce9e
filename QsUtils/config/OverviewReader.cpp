#include <memory>

#include "QsUtils/config/OverviewFile.h"
#include "QsUtils/text/Numbers.h"
#include "QsUtils/xml/NodeAttribute.h"
#include "QsUtils/xml/XmlAccess.h"

using QS_ProjectOverView::stuColInfo;

namespace QsConfig {

namespace {

/// The attributes of one field; those that are absent leave what they are asked for as it is.
class FieldElement {
public:
    explicit FieldElement(const XMLNode& element) : m_element(element) {}

    void Read(const wchar_t* name, CString& text) const {
        if (const std::wstring* value = Find(name))
            text = CString(*value);
    }
    void Read(const wchar_t* name, int& number) const {
        if (const std::wstring* value = Find(name))
            number = QsText::ReadInt(CString(*value).View());
    }
    void Read(const wchar_t* name, bool& flag) const {
        int number = flag;
        Read(name, number);
        flag = number != 0;
    }

private:
    const std::wstring* Find(const wchar_t* name) const {
        const auto found = m_element.Attributes.find(name);
        return found == m_element.Attributes.end() ? nullptr : &found->second;
    }

    const XMLNode& m_element;
};

std::unique_ptr<stuColInfo> ReadField(const XMLNode& node, const CString& group) {
    auto field = std::make_unique<stuColInfo>();
    const FieldElement element(node);
    element.Read(L"Code", field->strCode);
    element.Read(L"Name", field->strName);
    element.Read(L"Type", field->strType);
    field->nBelongType = GroupOfText(group);
    element.Read(L"Print", field->bPrint);
    bool hidden = !field->bShow;
    element.Read(L"Hide", hidden);
    field->bShow = !hidden;
    element.Read(L"Mantissa", field->nMantissa);
    element.Read(L"Index1", field->nIndex1);
    element.Read(L"Index2", field->nIndex2);
    element.Read(L"UserDef", field->bUserDef);
    return field;
}

}  // namespace

void ReadOverview(const CString& path, OverviewSource source, std::list<stuColInfo*>& fields) {
    const std::unique_ptr<XMLNode> root(LoadXMLNode(path.ToWide()));
    const XMLNode* parent = root.get();
    if (parent != nullptr && source == OverviewSource::Project)
        parent = parent->FindChildNode(L"CProjectOverView");
    if (parent == nullptr)
        return;
    int number = 0;
    for (const XMLNode* child : parent->Children) {
        ++number;  // fields that are passed over leave a gap
        const CString group = QsXml::AttributeText(*child, L"BelongType");
        if (!IsOverviewGroup(group))
            continue;
        std::unique_ptr<stuColInfo> field = ReadField(*child, group);
        if (source == OverviewSource::Offer)
            field->nIndex1 = number;
        fields.push_back(field.get());
        static_cast<void>(field.release());
    }
}

}  // namespace QsConfig
