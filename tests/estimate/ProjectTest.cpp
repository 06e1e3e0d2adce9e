// From rows to a tree and back, in memory.
#include <random>
#include <sstream>

#include <gtest/gtest.h>

#include "EnglishText.h"
#include "Project.h"
#include "ProjectDocument.h"

using namespace Estimate;

namespace {

using Row = std::vector<std::string>;

Row TextOf(const BillRow& row) {
    Row texts = {row.kind == RowKind::Item ? "item" : row.kind == RowKind::Quota ? "quota" : "heading"};
    texts.insert(texts.end(), row.fields.begin(), row.fields.end());
    return texts;
}

std::vector<Row> RowsOf(const Project& project) {
    std::vector<Row> rows;
    for (const BillRow& row : project.rows)
        rows.push_back(TextOf(row));
    return rows;
}

std::vector<Row> RowsOf(const XMLNode& root) {
    std::vector<Row> rows;
    VisitBill(root, [&](const BillRow& row) { rows.push_back(TextOf(row)); });
    return rows;
}

class RandomProject {
public:
    explicit RandomProject(std::mt19937& random) : m_random(random) {
        for (std::size_t left = random() % 10; left > 0; --left)
            AddRow();
    }
    const Project& Get() const { return m_project; }

private:
    std::string_view Text() {
        constexpr const char* texts[] = {"",  "",     "",       "m3",       "Q/100", "1,234.50", "砖 基础",
                                         "<", "a\nb", "𠮷&\"'", "x\r\n\ty", "]]>",   "<!--",     "&amp;"};
        return texts[m_random() % std::size(texts)];
    }
    void AddRow() {
        BillRow row;
        row.kind = m_hasItem ? static_cast<RowKind>(m_random() % 3)
                             : (m_random() % 2 == 0 ? RowKind::Item : RowKind::Heading);
        m_hasItem = m_hasItem || row.kind == RowKind::Item;
        for (std::string_view& field : row.fields)
            field = row.kind == RowKind::Heading ? std::string_view() : Text();
        if (row.kind == RowKind::Heading)
            row.fields[BillColumn::Name] = "土石方工程";
        m_project.rows.push_back(row);
    }

    std::mt19937& m_random;
    Project m_project;
    bool m_hasItem = false;
};

struct Collected {
    Project project;
    Problems problems;

    std::string OnlyProblem() const {
        return problems.found.size() == 1 ? EnglishText("f", problems.found.front())
                                          : std::to_string(problems.found.size()) + " problems";
    }
};

const Columns BillColumns(BillColumn::Specs);
const Columns VariableColumns(VariableColumn::Specs);

void Collect(const std::vector<BillRow>& rows, ProjectForm target, Collected& collected) {
    ProjectCollector collector(collected.project, target);
    for (const BillRow& row : rows)
        collector.Take(row, BillColumns, collected.problems);
}

std::string ProblemOf(const std::vector<BillRow>& rows, ProjectForm target) {
    Collected collected;
    Collect(rows, target, collected);
    EXPECT_LT(collected.project.rows.size(), rows.size());
    return collected.OnlyProblem();
}

const BillRow GoodItem = {RowKind::Item, {0, 1, 0, 0}, {"010401001001", "a", "", "m3", "1", "1"}, {}};

BillRow Quota(Place place, const BillFields& fields) {
    return {RowKind::Quota, place, fields, {}};
}

}  // namespace

TEST(Project, RowsComeBackFromTheTree) {
    std::mt19937 random(4);
    for (int i = 0; i < 200'000; ++i) {
        const RandomProject project(random);
        const std::unique_ptr<XMLNode> root = TreeOf(project.Get());
        ASSERT_EQ(RowsOf(*root), RowsOf(project.Get())) << i;
    }
}

TEST(Project, HeadingsStandBesideTheirRows) {
    Project project;
    for (const RowKind kind :
         {RowKind::Heading, RowKind::Item, RowKind::Heading, RowKind::Quota, RowKind::Heading, RowKind::Item})
        project.rows.push_back({kind, {}, {"", "x"}, {}});
    const std::unique_ptr<XMLNode> root = TreeOf(project);
    const XMLNode* bill = root->FindChildNode(L"Bill");
    ASSERT_NE(bill, nullptr);
    ASSERT_EQ(bill->Children.size(), 4u);
    EXPECT_EQ(bill->Children[1]->Children.size(), 2u);  // the heading in front of the quota row, and this
    EXPECT_EQ(bill->Children[2]->Name, L"Heading");
}

TEST(Project, EmptyTextsAreNoAttributes) {
    Project project;
    project.rows.push_back(GoodItem);
    const std::unique_ptr<XMLNode> root = TreeOf(project);
    EXPECT_TRUE(root->Attributes.empty());
    EXPECT_EQ(root->Children.size(), 1u);  // no variables, no table
    EXPECT_FALSE(root->Children[0]->Children[0]->Attributes.contains(L"Features"));
    EXPECT_EQ(root->Children[0]->Children[0]->Attributes.size(), 5u);
}

TEST(Project, WhatATableCannotSay) {
    BillRow item = GoodItem;
    item.fields[BillColumn::Code] = "0104010010";
    EXPECT_EQ(ProblemOf({item}, ProjectForm::Table),
              "f: item 1: error: a table tells a bill item by its code of 12 digits, and this one has none");
    EXPECT_EQ(ProblemOf({GoodItem, Quota({0, 1, 1, 0}, {"010401001002", "b"})}, ProjectForm::Table),
              "f: item 1, quota 1: error: with a code of 12 digits the quota row would be a bill item in a "
              "table");
    EXPECT_EQ(ProblemOf({GoodItem, Quota({0, 1, 1, 0}, {"", "b"})}, ProjectForm::Table),
              "f: item 1, quota 1: error: without code, unit, formula and price the quota row would be a "
              "heading in a table");
    Collected collected;
    Collect({item, Quota({0, 1, 1, 0}, {"010401001002", "b"}), Quota({0, 1, 2, 0}, {"", "b"})},
            ProjectForm::Document, collected);
    EXPECT_TRUE(collected.problems.found.empty());
    EXPECT_EQ(collected.project.rows.size(), 3u);
}

TEST(Project, WhatNoFormCanSay) {
    for (const ProjectForm form : {ProjectForm::Table, ProjectForm::Document}) {
        EXPECT_EQ(ProblemOf({Quota({2, 0, 0, 0}, {"4-1", "b"})}, form),
                  "f:2: error: no bill item stands above the quota row");
        EXPECT_EQ(ProblemOf({GoodItem, Quota({0, 0, 1, 0}, {"4-1", "b"})}, form),
                  "f: quota 1: error: no bill item stands above the quota row");
        BillRow faulty = GoodItem;
        faulty.fault = Message::Same("too wide");
        EXPECT_EQ(ProblemOf({faulty}, form), "f: item 1: error: too wide");
    }
}

TEST(Project, WhatXmlCannotHold) {
    BillRow item = GoodItem;
    item.fields[BillColumn::Name] = "a\x01";
    EXPECT_EQ(ProblemOf({item}, ProjectForm::Document),
              "f: item 1: error: name: XML can't hold the character U+0001");
    Collected table;
    Collect({item}, ProjectForm::Table, table);
    EXPECT_EQ(table.project.rows.size(), 1u);
    Collected variables;
    ProjectCollector(variables.project, ProjectForm::Document)
        .Take(VariableRow{{3, 0, 0, 0}, {"A", "1", "\x02"}, {}}, VariableColumns, variables.problems);
    EXPECT_EQ(variables.OnlyProblem(), "f:3: error: remark: XML can't hold the character U+0002");
}

TEST(Project, EmptyHeadingsFallAway) {
    Collected collected;
    Collect({{RowKind::Heading, {}, {}, {}}, {RowKind::Heading, {}, {"code", "x", "", "m3"}, {}}},
            ProjectForm::Document, collected);
    ASSERT_EQ(collected.project.rows.size(), 1u);
    EXPECT_EQ(RowsOf(collected.project)[0], (Row{"heading", "", "x", "", "", "", ""}));
}

TEST(Project, VariablesAreReplacedByName) {
    Collected collected;
    ProjectCollector collector(collected.project, ProjectForm::Document);
    const auto take = [&](const VariableFields& fields) {
        collector.Take(VariableRow{{}, fields, {}}, VariableColumns, collected.problems);
    };
    take({"A", "1", "length"});
    take({"B", "2", "width"});
    collector.BeginReplacing();
    take({"ａ", "3", ""});  // full width
    take({"b", "4", "breadth"});
    take({"a", "5", ""});  // twice in its own table
    take({"C", "6", ""});
    const auto& variables = collected.project.variables;
    ASSERT_EQ(variables.size(), 4u);
    EXPECT_EQ(variables[0].fields, (VariableFields{"ａ", "3", "length"}));
    EXPECT_EQ(variables[1].fields, (VariableFields{"b", "4", "breadth"}));
    EXPECT_EQ(variables[2].fields, (VariableFields{"a", "5", ""}));
    EXPECT_EQ(variables[3].fields, (VariableFields{"C", "6", ""}));
}
