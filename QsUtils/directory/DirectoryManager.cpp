#include "QsUtils/directory/DirectoryManager.h"

#include "QsUtils/platform/ExecutableFolder.h"

namespace DirectoryManager {

// Out of line, so that the type information of each interface has one home and a host's casts meet it.
ICommonDirectory::~ICommonDirectory() = default;
IProjectDirectory::~IProjectDirectory() = default;
ILibraryDirectory::~ILibraryDirectory() = default;

bool UseInstallation(const CString& folder) {
    return QsPlatform::SetExecutableFolder(folder);
}

}  // namespace DirectoryManager
