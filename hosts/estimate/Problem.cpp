#include "Problem.h"

namespace Estimate {

std::string ProblemText(const std::string& file, const Problem& problem) {
    std::string text = file + ":";
    if (problem.place.line > 0)
        text += std::to_string(problem.place.line) + ":";
    else if (const std::string place = PlaceText(problem.place); !place.empty())
        text += " " + place + ":";
    if (problem.column > 0)
        text += std::to_string(problem.column) + ":";
    text += problem.severity == Severity::Error ? " error: " : " warning: ";
    if (!problem.heading.empty())
        text.append(problem.heading).append(": ");
    return text + problem.reason;
}

}  // namespace Estimate
