#include "Problem.h"

namespace Estimate {

std::string ProblemText(const std::string& file, const Problem& problem) {
    std::string text = file + ":" + std::to_string(problem.line) + ":";
    if (problem.column > 0)
        text += std::to_string(problem.column) + ":";
    text += problem.severity == Severity::Error ? " error: " : " warning: ";
    if (!problem.heading.empty())
        text.append(problem.heading).append(": ");
    return text + problem.reason;
}

}  // namespace Estimate
