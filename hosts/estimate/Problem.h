// What is wrong with an input, and where.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "Message.h"
#include "Place.h"

namespace Estimate {

enum class Severity {
    Warning,  ///< the row is priced, but its writer should look at it
    Error,    ///< the row can't be priced
};

struct Problem {
    Severity severity = Severity::Error;
    Place place;
    std::size_t column = 0;       ///< the field's number from 1; 0 where fields have none or the row is meant
    std::optional<Text> heading;  ///< what the field is called in this program
    Message reason;
};

/// The problems of one file, in the order in which they were found.
struct Problems {
    Message file;
    std::vector<Problem> found;
    std::size_t badRows = 0;  ///< rows that aren't priced
};

/// "bill.csv:12:5: error: formula: …", as compilers write it, or "project.xml: item 3, quota 2: error: …",
/// in a language.
std::string ProblemText(const Message& file, const Problem& problem, Language language);

/// What stands in front of a reason: "error: " or "warning: ".
Message SeverityPrefix(Severity severity);

}  // namespace Estimate
