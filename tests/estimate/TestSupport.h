// What the tests of the host share.
#pragma once

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "BillReader.h"
#include "Commands.h"
#include "CsvRows.h"
#include "EnglishText.h"
#include "Report.h"
#include "Variables.h"

struct ProgramRun {
    int status = -1;
    std::string out;
    std::string err;
};

inline ProgramRun RunEstimate(const std::vector<std::string>& arguments, const std::string& input = {},
                              Estimate::Language language = Estimate::Language::English) {
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream err;
    const Estimate::Streams streams{in, out, err, false, language};
    ProgramRun run;
    run.status = Estimate::Run(arguments, streams);
    run.out = out.str();
    run.err = err.str();
    return run;
}

struct PricedBill {
    Estimate::Bill bill;
    Estimate::Problems problems;
    Estimate::Message refusal;

    /// "line:column:reason" of the only problem; the count of problems when there isn't just one.
    std::string OnlyProblem() const {
        if (problems.found.size() != 1)
            return std::to_string(problems.found.size()) + " problems";
        const Estimate::Problem& problem = problems.found.front();
        return std::to_string(problem.place.line) + ":" + std::to_string(problem.column) + ":" +
               problem.reason.In(Estimate::Language::English);
    }
};

inline PricedBill PriceBill(const std::string& csv, const std::string& variableTable = {}) {
    PricedBill priced;
    Estimate::Variables variables;
    Estimate::Problems ignored;
    if (!variableTable.empty()) {
        std::istringstream in(variableTable);
        Estimate::ReadVariables(in, variables, ignored);
    }
    std::istringstream in(csv);
    priced.refusal = Estimate::ReadBill(in, variables, priced.bill, priced.problems);
    return priced;
}

inline constexpr const char* Headings = "code,name,features,unit,formula,price\n";

inline bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

/// The fields of each row, the headings among them.
inline std::vector<std::vector<std::string>> CsvRowsOf(const std::string& csv) {
    std::istringstream in(csv);
    std::vector<std::vector<std::string>> rows;
    Estimate::ReadCsv(in, Estimate::Encoding::Utf8, [&](const Estimate::CsvRow& row) {
        rows.emplace_back(row.fields.begin(), row.fields.end());
    });
    return rows;
}

inline std::string ReadWhole(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}
