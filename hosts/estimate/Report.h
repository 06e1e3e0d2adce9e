// The priced bill for readers and for programs.
#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "Bill.h"
#include "ExtraCosts.h"
#include "Problem.h"
#include "Summary.h"

namespace Estimate {

struct Report {
    std::string name;  ///< the project's; empty when it has none
    Bill bill;
    std::vector<Chapter> chapters;
    std::vector<IndicatorSum> indicators;
    std::vector<Resource> resources;
    std::optional<ExtraCosts> extraCosts;
    std::int64_t quotaFen = 0;       ///< the sum of the quota items' amounts
    double area = 0;                 ///< of the building's floors in m2, for costs per m2; 0 when not given
    bool features = false;           ///< whether the text shows the features of bill items
    std::vector<Problems> problems;  ///< one entry a file that was read
};

/// Sums up a sorted bill.
void Summarize(Report& report);

/// The bill's sum with the extra costs, if there are any.
std::int64_t TotalFen(const Report& report);
/// The total in capitals.
std::string CapitalText(std::int64_t fen);
/// An amount per square metre of floor, in fen; 0 without an area.
std::int64_t FenPerArea(std::int64_t fen, double area);
/// A sum of quantities with the decimals of its unit.
std::string QuantityText(double quantity, std::string_view unit);

/// A table for reading, in UTF-8, its columns lined up for terminals that show Chinese characters two cells
/// wide.
void WriteText(std::ostream& out, const Report& report);
/// One JSON object; amounts, prices and quantities are numbers.
void WriteJson(std::ostream& out, const Report& report);
/// One CSV table whose first column tells what a row is: bill, quota, chapter, section, indicator, resource,
/// extra cost, extra costs, total, capital, problem; the last column holds a resource's digest and a
/// problem's text. UTF-8, fields in quotes, lines end with CR LF.
void WriteCsv(std::ostream& out, const Report& report);

}  // namespace Estimate
