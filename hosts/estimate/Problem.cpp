#include "Problem.h"

namespace Estimate {

std::string ProblemText(const Message& file, const Problem& problem, Language language) {
    std::string text = file.In(language) + ":";
    if (problem.place.line > 0)
        text += std::to_string(problem.place.line) + ":";
    else if (const Message place = PlaceText(problem.place); !place.empty())
        text += " " + place.In(language) + ":";
    if (problem.column > 0)
        text += std::to_string(problem.column) + ":";
    text += " " + SeverityPrefix(problem.severity).In(language);
    if (problem.heading)
        text += Say<Text::HeadingPrefix>(*problem.heading).In(language);
    return text + problem.reason.In(language);
}

Message SeverityPrefix(Severity severity) {
    return severity == Severity::Error ? Say<Text::ErrorPrefix>() : Say<Text::WarningPrefix>();
}

}  // namespace Estimate
