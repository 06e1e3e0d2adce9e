#include "ProjectDocument.h"

#include <utility>

#include "Columns.h"
#include "Files.h"
#include "Utf8.h"

namespace Estimate {
namespace {

struct RemoveTool {
    void operator()(NS_XMLACCESS::IXmlAccessTool* tool) const { RemoveXmlAccessTool(tool); }
};

/// Takes attributes out of one element after the other. The texts are kept for their memory, and the names
/// because each look-up would make them anew.
template <std::size_t N>
class AttributeReader {
public:
    explicit AttributeReader(const std::array<const wchar_t*, N>& names) {
        for (std::size_t i = 0; i < N; ++i)
            m_names[i] = names[i];
    }

    /// The fields are valid until the next element is read.
    void Read(const XMLNode& element, std::array<std::string_view, N>& fields) {
        for (std::size_t i = 0; i < N; ++i) {
            const auto found = element.Attributes.find(m_names[i]);
            m_texts[i] = found == element.Attributes.end() ? std::string() : ToUtf8(CString(found->second));
            fields[i] = Trimmed(m_texts[i]);
        }
    }

private:
    std::array<std::wstring, N> m_names;
    std::array<std::string, N> m_texts;
};

class BillVisitor {
public:
    explicit BillVisitor(const BillRowHandler& handler) : m_handler(handler) {}

    void Visit(const XMLNode& element) {
        if (element.Name == ProjectName::Item)
            VisitItem(element);
        else if (element.Name == ProjectName::Heading)
            Hand(RowKind::Heading, element, {});
        else if (element.Name == ProjectName::Quota)
            Hand(RowKind::Quota, element, {0, 0, ++m_strays});
    }

private:
    void VisitItem(const XMLNode& item) {
        Place place;
        place.item = ++m_items;
        Hand(RowKind::Item, item, place);
        for (const XMLNode* child : item.Children) {
            if (child->Name == ProjectName::Quota) {
                ++place.quota;
                Hand(RowKind::Quota, *child, place);
            } else if (child->Name == ProjectName::Heading) {
                Hand(RowKind::Heading, *child, place);
            }
        }
    }

    void Hand(RowKind kind, const XMLNode& element, const Place& place) {
        BillRow row;
        row.kind = kind;
        row.place = place;
        m_attributes.Read(element, row.fields);
        m_handler(row);
    }

    const BillRowHandler& m_handler;
    AttributeReader<ProjectName::RowAttributes.size()> m_attributes{ProjectName::RowAttributes};
    std::uint32_t m_items = 0;
    std::uint32_t m_strays = 0;
};

}  // namespace

ProjectDocument::ProjectDocument(const std::string& path) {
    const std::optional<std::wstring> name = LibraryPath(path);
    if (!name) {
        refusal = Say<Text::XmlName>();
        return;
    }
    const std::unique_ptr<NS_XMLACCESS::IXmlAccessTool, RemoveTool> tool(GetXmlAccessTool());
    root.reset(tool->LoadXMLNode(*name));
    if (root == nullptr) {
        refusal = Say<Text::XmlBroken>(ToUtf8(CString(tool->GetLastErrorText())));
    } else if (root->Name != ProjectName::Project) {
        refusal = Say<Text::XmlNoProject>(ToUtf8(CString(root->Name)));
        root.reset();
    } else if (root->FindChildNode(ProjectName::Bill) == nullptr) {
        refusal = Say<Text::XmlNoBill>();
        root.reset();
    }
}

std::string AttributeText(const XMLNode& element, const wchar_t* name) {
    const auto found = element.Attributes.find(name);
    if (found == element.Attributes.end())
        return {};
    return std::string(Trimmed(ToUtf8(CString(found->second))));
}

void VisitVariables(const XMLNode& root, const VariableRowHandler& handler) {
    AttributeReader<ProjectName::VariableAttributes.size()> attributes(ProjectName::VariableAttributes);
    VariableRow row;
    for (const XMLNode* table : root.Children) {
        if (table->Name != ProjectName::Variables)
            continue;
        for (const XMLNode* variable : table->Children) {
            if (variable->Name != ProjectName::Variable)
                continue;
            ++row.place.variable;
            attributes.Read(*variable, row.fields);
            handler(row);
        }
    }
}

void VisitBill(const XMLNode& root, const BillRowHandler& handler, std::uint64_t total,
               const ByteProgress& progress) {
    std::size_t count = 0;
    for (const XMLNode* bill : root.Children)
        count += bill->Name == ProjectName::Bill ? bill->Children.size() : 0;
    BillVisitor visitor(handler);
    std::size_t done = 0;
    for (const XMLNode* bill : root.Children) {
        if (bill->Name != ProjectName::Bill)
            continue;
        for (const XMLNode* element : bill->Children) {
            visitor.Visit(*element);
            if (progress)
                progress(static_cast<std::uint64_t>(static_cast<double>(total) * static_cast<double>(++done) /
                                                    static_cast<double>(count)));
        }
    }
}

}  // namespace Estimate
