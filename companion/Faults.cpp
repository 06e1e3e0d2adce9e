#include "companion/Faults.h"

#include <cstdio>

#include "companion/System.h"

namespace Companion {

namespace {

bool Replace(const std::wstring& file, const std::string& bytes) {
    std::FILE* const out = OpenToReplace(file);
    if (out == nullptr)
        return false;
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), out) == bytes.size();
    return std::fclose(out) == 0 && written;
}

}  // namespace

std::string FaultLines(const Faults& faults) {
    std::string lines;
    for (const Fault& fault : faults.List()) {
        lines += ShownPath(fault.file);
        if (fault.line > 0)
            lines += ":" + std::to_string(fault.line);
        lines += ": " + fault.text + "\n";
    }
    return lines;
}

void Publish(const Faults& faults, const std::wstring& file) {
    std::string lines = FaultLines(faults);
    // A file without faults is emptied as well: those of the last start would mislead.
    if (!file.empty() && Replace(file, lines))
        return;
    if (lines.empty())
        return;
    if (!file.empty())
        lines += ShownPath(file) + ": the report can't be written here\n";
    WriteToStandardError(lines);
}

}  // namespace Companion
