#include "Project.h"

#include <utility>

#include "Utf8.h"
#include "Variables.h"
#include "XmlText.h"

namespace Estimate {
namespace {

void Note(Problems& problems, const Place& place, std::size_t column, std::optional<Text> heading,
          Message reason) {
    problems.found.push_back({Severity::Error, place, column, heading, std::move(reason)});
    ++problems.badRows;
}

CString KeyOf(const VariableRow& row) {
    return VariableKey(FromUtf8(row.fields[VariableColumn::Name]));
}

/// A table has no other mark of what a row is than its fields.
Message TableFault(const BillRow& row) {
    using namespace BillColumn;
    const bool isBillCode = IsBillCode(row.fields[Code]);
    if (row.kind == RowKind::Item)
        return isBillCode ? Message() : Say<Text::TableItemCode>();
    if (isBillCode)
        return Say<Text::TableQuotaCode>();
    if (row.fields[Code].empty() && row.fields[Unit].empty() && row.fields[Formula].empty() &&
        row.fields[Price].empty())
        return Say<Text::TableQuotaEmpty>();
    return {};
}

}  // namespace

template <typename Row>
bool ProjectCollector::HoldsTexts(const Row& row, const Columns& columns, Problems& problems) const {
    if (m_target == ProjectForm::Table)
        return true;
    for (std::size_t i = 0; i < row.fields.size(); ++i)
        if (Message reason = WhyNoXml(row.fields[i]); !reason.empty()) {
            Note(problems, row.place, columns.Number(i), columns.Title(i), std::move(reason));
            return false;
        }
    return true;
}

template <typename Row>
Row ProjectCollector::Kept(const Row& row) {
    Row kept = row;
    for (std::string_view& field : kept.fields)
        field = m_project.texts.Keep(field);
    return kept;
}

Message ProjectCollector::FaultOf(const BillRow& row) {
    if (!row.fault.empty() || row.kind == RowKind::Heading)
        return row.fault;
    if (row.kind == RowKind::Item) {
        m_hasItem = true;
        m_item = row.place.item;
    } else if (!m_hasItem || row.place.item != m_item) {
        return Say<Text::NoItemAbove>();
    }
    return m_target == ProjectForm::Table ? TableFault(row) : Message();
}

void ProjectCollector::Take(const BillRow& row, const Columns& columns, Problems& problems) {
    using namespace BillColumn;
    if (Message fault = FaultOf(row); !fault.empty())
        return Note(problems, row.place, 0, {}, std::move(fault));
    if (!HoldsTexts(row, columns, problems))
        return;
    if (row.kind != RowKind::Heading) {
        m_project.rows.push_back(Kept(row));
        return;
    }
    BillRow heading;
    heading.place = row.place;
    heading.fields[Name] = row.fields[Name];
    heading.fields[Features] = row.fields[Features];
    if (!heading.fields[Name].empty() || !heading.fields[Features].empty())
        m_project.rows.push_back(Kept(heading));
}

void ProjectCollector::Take(const VariableRow& row, const Columns& columns, Problems& problems) {
    using namespace VariableColumn;
    if (!row.fault.empty())
        return Note(problems, row.place, 0, {}, row.fault);
    if (!HoldsTexts(row, columns, problems))
        return;
    VariableRow kept = Kept(row);
    const auto old = m_replaceable.find(KeyOf(row));
    if (old == m_replaceable.end()) {
        m_project.variables.push_back(kept);
        return;
    }
    VariableRow& place = m_project.variables[old->second];
    // A table of values for a project needn't explain them again.
    if (kept.fields[Remark].empty())
        kept.fields[Remark] = place.fields[Remark];
    place = kept;
    // A second one of this name is a fault of its own table, which pricing will report.
    m_replaceable.erase(old);
}

void ProjectCollector::BeginReplacing() {
    for (std::size_t i = 0; i < m_project.variables.size(); ++i)
        m_replaceable.try_emplace(KeyOf(m_project.variables[i]), i);
}

}  // namespace Estimate
