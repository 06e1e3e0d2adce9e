// A project as it is written, for conversion between its forms.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include <QsUtils/QsUtils.h>

#include "BillRow.h"
#include "Columns.h"
#include "Problem.h"
#include "TextPool.h"
#include "VariableRow.h"

namespace Estimate {

enum class ProjectForm { Table, Document };

struct Project {
    TextPool texts;  ///< of the rows
    std::string name;
    std::string area;
    std::vector<VariableRow> variables;
    std::vector<BillRow> rows;  ///< in the order in which they were written
};

/// Collects a project out of rows, and notes those that the other form can't say. Texts are taken as they
/// are: whether a row can be priced doesn't matter here.
class ProjectCollector {
public:
    ProjectCollector(Project& project, ProjectForm target) : m_project(project), m_target(target) {}

    void Take(const BillRow& row, const Columns& columns, Problems& problems);
    void Take(const VariableRow& row, const Columns& columns, Problems& problems);
    /// From now on a variable replaces one of the same name that has come so far.
    void BeginReplacing();

private:
    Message FaultOf(const BillRow& row);
    template <typename Row>
    bool HoldsTexts(const Row& row, const Columns& columns, Problems& problems) const;
    template <typename Row>
    Row Kept(const Row& row);

    Project& m_project;
    ProjectForm m_target;
    bool m_hasItem = false;
    std::uint32_t m_item = 0;                      // the number of the last one in a document
    std::map<CString, std::size_t> m_replaceable;  // places of variables by what their names have in common
};

/// The project as a tree for an XML file. All texts must be fit for XML.
std::unique_ptr<XMLNode> TreeOf(const Project& project);

/// Replaces an XML file whole. The result is empty, or says what failed.
Message WriteDocument(const std::string& path, const Project& project);

/// A table of the bill, and one of the variables: UTF-8, fields in quotes, lines end with CR LF.
void WriteBillTable(std::ostream& out, const Project& project);
void WriteVariableTable(std::ostream& out, const Project& project);

}  // namespace Estimate
