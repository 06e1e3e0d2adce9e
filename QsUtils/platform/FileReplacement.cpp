// What a replacement is on every system; how a file is begun, written and put in place stands in the systems'
// folders.
#include "QsUtils/platform/FileReplacement.h"

#include <exception>

namespace QsPlatform {

FileReplacement::FileReplacement(const CString& path) noexcept {
    try {
        if (!Begin(path))
            Discard();
    } catch (const std::exception&) {
        Fail(FileFailure::Other);  // out of memory
    }
}

FileReplacement::~FileReplacement() {
    Discard();
}

bool FileReplacement::Fail(FileFailure failure) noexcept {
    if (m_failure == FileFailure::None)
        m_failure = failure;
    Discard();
    return false;
}

}  // namespace QsPlatform
