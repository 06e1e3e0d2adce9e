#include <exception>
#include <span>

#include "Files.h"
#include "Project.h"
#include "ProjectDocument.h"
#include "Utf8.h"

namespace Estimate {
namespace {

XMLNode& AddChild(XMLNode& parent, const wchar_t* name) {
    auto child = std::make_unique<XMLNode>();
    child->Name = name;
    parent.Children.push_back(child.get());
    return *child.release();
}

void SetAttribute(XMLNode& element, const wchar_t* name, std::string_view text) {
    if (!text.empty())
        element.Attributes.emplace(name, FromUtf8(text).ToWide());
}

void SetAttributes(XMLNode& element, std::span<const wchar_t* const> names,
                   std::span<const std::string_view> texts) {
    for (std::size_t i = 0; i < names.size(); ++i)
        SetAttribute(element, names[i], texts[i]);
}

const wchar_t* ElementOf(RowKind kind) {
    switch (kind) {
        case RowKind::Item:
            return ProjectName::Item;
        case RowKind::Quota:
            return ProjectName::Quota;
        case RowKind::Heading:
            break;
    }
    return ProjectName::Heading;
}

/// For each row whether a quota row comes before the next item: a heading in front of one stands in the item,
/// all others beside it.
std::vector<bool> ComeBeforeQuotas(const std::vector<BillRow>& rows) {
    std::vector<bool> before(rows.size());
    bool quota = false;
    for (std::size_t i = rows.size(); i-- > 0;) {
        before[i] = quota;
        if (rows[i].kind != RowKind::Heading)
            quota = rows[i].kind == RowKind::Quota;
    }
    return before;
}

void AddRows(XMLNode& bill, const std::vector<BillRow>& rows) {
    const std::vector<bool> beforeQuota = ComeBeforeQuotas(rows);
    XMLNode* item = nullptr;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const RowKind kind = rows[i].kind;
        const bool inside = kind == RowKind::Quota || (kind == RowKind::Heading && beforeQuota[i]);
        XMLNode& element = AddChild(inside && item != nullptr ? *item : bill, ElementOf(kind));
        SetAttributes(element, ProjectName::RowAttributes, rows[i].fields);
        if (kind == RowKind::Item)
            item = &element;
    }
}

}  // namespace

std::unique_ptr<XMLNode> TreeOf(const Project& project) {
    auto root = std::make_unique<XMLNode>();
    root->Name = ProjectName::Project;
    SetAttribute(*root, ProjectName::Name, project.name);
    SetAttribute(*root, ProjectName::Area, project.area);
    if (!project.variables.empty()) {
        XMLNode& table = AddChild(*root, ProjectName::Variables);
        for (const VariableRow& row : project.variables)
            SetAttributes(AddChild(table, ProjectName::Variable), ProjectName::VariableAttributes,
                          row.fields);
    }
    AddRows(AddChild(*root, ProjectName::Bill), project.rows);
    return root;
}

Message WriteDocument(const std::string& path, const Project& project) {
    const Message failure = Say<Text::FileUnwritable>(path);
    const std::optional<std::wstring> name = LibraryPath(path);
    if (!name)
        return failure;
    const std::unique_ptr<XMLNode> root = TreeOf(project);
    try {
        return SaveXMLNode(root.get(), *name, true) ? Message() : failure;
    } catch (const std::exception&) {
        throw;
    } catch (...) {
        // Texts and names are fit for XML, so it is the file; the parser's exceptions need its headers.
        return failure;
    }
}

}  // namespace Estimate
