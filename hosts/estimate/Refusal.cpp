#include "Refusal.h"

namespace Estimate {

bool Refuse(const Streams& streams, const std::string& reason) {
    streams.err << "estimate: " << reason << '\n';
    return false;
}

InputFile OpenOrRefuse(const std::string& path, const Streams& streams) {
    InputFile file = OpenInput(path, streams.in);
    if (file.stream == nullptr)
        Refuse(streams, "the file can't be read: " + path);
    return file;
}

}  // namespace Estimate
