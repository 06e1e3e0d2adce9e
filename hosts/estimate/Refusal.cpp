#include "Refusal.h"

#include "Problem.h"

namespace Estimate {

bool Refuse(const Streams& streams, const Message& reason) {
    streams.err << "estimate: " << reason.In(streams.language) << '\n';
    return false;
}

void Warn(const Streams& streams, const Message& warning) {
    streams.err << "estimate: " << SeverityPrefix(Severity::Warning).In(streams.language)
                << warning.In(streams.language) << '\n';
}

InputFile OpenOrRefuse(const std::string& path, const Streams& streams) {
    InputFile file = OpenInput(path, streams.in);
    if (file.stream == nullptr)
        Refuse(streams, Say<Text::FileUnreadable>(path));
    return file;
}

}  // namespace Estimate
