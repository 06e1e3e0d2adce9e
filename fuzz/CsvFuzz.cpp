// Any bytes as a bill: reading, pricing and all three reports.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include <nlohmann/json.hpp>

#include "BillReader.h"
#include "Report.h"
#include "Utf8.h"

namespace {

/// The part of the input in front of the first "~" is the table of variables.
std::string TakeVariables(std::string& input, Estimate::Variables& variables) {
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
    const std::string refusal = Estimate::ReadBill(in, variables, report.bill, problems);
    if (!refusal.empty())
        return 0;
    Estimate::Summarize(report);
    Check(report);
    return 0;
}
