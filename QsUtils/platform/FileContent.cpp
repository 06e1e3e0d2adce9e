#include "QsUtils/platform/FileContent.h"

#include <algorithm>
#include <utility>

#include "QsUtils/platform/FileStream.h"

namespace QsPlatform {

namespace {

/// At first asked of a file whose size the system doesn't tell.
constexpr std::size_t FirstPart = 4096;

FileFailure ReadToEnd(FileStream& file, std::size_t limit, std::string& bytes) {
    if (file.Failure() != FileFailure::None)
        return file.Failure();
    if (file.Size() > limit)
        return FileFailure::TooLarge;
    // One byte more than the file has, so that its end is met without growing.
    bytes.resize(std::max(static_cast<std::size_t>(file.Size()) + 1, FirstPart));
    std::size_t used = 0;
    while (const std::size_t count = file.Read(bytes.data() + used, bytes.size() - used)) {
        used += count;
        if (used > limit)
            return FileFailure::TooLarge;
        if (used == bytes.size())
            bytes.resize(used * 2);
    }
    bytes.resize(used);
    return file.Failure();
}

}  // namespace

std::optional<std::string> ReadWholeFile(const CString& path, FileFailure* failure, std::size_t limit) {
    FileStream file(path);
    std::string bytes;
    const FileFailure outcome = ReadToEnd(file, limit, bytes);
    if (failure != nullptr)
        *failure = outcome;
    if (outcome != FileFailure::None)
        return std::nullopt;
    return std::optional<std::string>(std::move(bytes));
}

}  // namespace QsPlatform
