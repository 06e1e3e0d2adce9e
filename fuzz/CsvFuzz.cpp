// Any bytes as a bill: reading, pricing, all three reports, and the same by way of a project's tree.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <string>

#include <nlohmann/json.hpp>

#include "BillBuilder.h"
#include "BillReader.h"
#include "Project.h"
#include "ProjectDocument.h"
#include "Report.h"
#include "Utf8.h"

namespace {

/// The part of the input in front of the first "~" is the table of variables.
Estimate::Message TakeVariables(std::string& input, Estimate::Variables& variables) {
    const std::size_t end = input.find('~');
    if (end == std::string::npos)
        return {};
    std::istringstream in(input.substr(0, end));
    input.erase(0, end + 1);
    Estimate::Problems problems;
    return Estimate::ReadVariables(in, variables, problems);
}

void Require(bool holds) {
    if (!holds)
        std::abort();
}

void Check(const Estimate::Report& report) {
    std::ostringstream text;
    Estimate::WriteText(text, report);
    Estimate::WriteCsv(text, report);
    Require(Estimate::IsUtf8(text.view()));
    std::ostringstream json;
    Estimate::WriteJson(json, report);
    Require(nlohmann::json::accept(json.view()));
    std::int64_t chapters = 0;
    for (const Estimate::Chapter& chapter : report.chapters)
        Estimate::AddTo(chapters, chapter.fen);
    Require(chapters == report.bill.fen);
}

/// What can be said in XML must be priced there as it is in the table.
void CheckDocument(const std::string& input, const Estimate::Variables& variables,
                   const Estimate::Report& report) {
    std::istringstream in(input);
    Estimate::Project project;
    Estimate::Problems problems;
    Estimate::Columns columns(Estimate::BillColumn::Specs);
    Estimate::ProjectCollector collector(project, Estimate::ProjectForm::Document);
    Estimate::ReadBillRows(in, columns,
                           [&](const Estimate::BillRow& row) { collector.Take(row, columns, problems); });
    if (!problems.found.empty())
        return;
    const std::unique_ptr<XMLNode> root = Estimate::TreeOf(project);
    Estimate::Bill bill;
    const Estimate::Columns none(Estimate::BillColumn::Specs);
    Estimate::BillBuilder builder(none, variables, bill, problems);
    Estimate::VisitBill(*root, [&](const Estimate::BillRow& row) { builder.Take(row); });
    builder.Finish();
    Require(bill.fen == report.bill.fen);
    Require(bill.items.size() == report.bill.items.size());
    Require(bill.quotas.size() == report.bill.quotas.size());
    Require(problems.badRows == report.problems.front().badRows);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string input(reinterpret_cast<const char*>(data), size);
    Estimate::Variables variables;
    TakeVariables(input, variables);
    // Bytes without a heading row would never reach the pricing.
    if (input.starts_with('!'))
        input.replace(0, 1, "code,name,features,unit,formula,price\n");
    std::istringstream in(input);
    Estimate::Report report;
    Estimate::Problems& problems = report.problems.emplace_back();
    const Estimate::Message refusal = Estimate::ReadBill(in, variables, report.bill, problems);
    if (!refusal.empty())
        return 0;
    Estimate::Summarize(report);
    Check(report);
    CheckDocument(input, variables, report);
    return 0;
}
