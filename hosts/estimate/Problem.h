// What is wrong with an input, and where.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "Place.h"

namespace Estimate {

enum class Severity {
    Warning,  ///< the row is priced, but its writer should look at it
    Error,    ///< the row can't be priced
};

struct Problem {
    Severity severity = Severity::Error;
    Place place;
    std::size_t column = 0;    ///< the field's number from 1; 0 where fields have none or the row is meant
    std::string_view heading;  ///< what the field is called in this program; static
    std::string reason;
};

/// The problems of one file, in the order in which they were found.
struct Problems {
    std::string file;
    std::vector<Problem> found;
    std::size_t badRows = 0;  ///< rows that aren't priced
};

/// "bill.csv:12:5: error: formula: …", as compilers write it, or "project.xml: item 3, quota 2: error: …".
std::string ProblemText(const std::string& file, const Problem& problem);

}  // namespace Estimate
