#include "QsUtils/directory/CCommonDirectory.h"

#include <mutex>

#include "QsUtils/directory/FolderText.h"
#include "QsUtils/platform/ExecutableFolder.h"
#include "QsUtils/platform/UserFolders.h"

namespace DirectoryManager {

CString CCommonDirectory::GetExeDirectory() {
    const std::lock_guard lock(m_lock);
    if (m_strExeDirectory.IsEmpty())
        m_strExeDirectory = QsPlatform::ExecutableDirectory();
    return m_strExeDirectory;
}

CString CCommonDirectory::GetTempDirectory() {
    const std::lock_guard lock(m_lock);
    // Not asked whether there is one: without it the text is a lone backslash, and stays it.
    if (m_strTempDirectory.IsEmpty())
        m_strTempDirectory = QsDirectory::WithBackslash(QsPlatform::TemporaryFolder());
    return m_strTempDirectory;
}

CString CCommonDirectory::GetCurrentWorkDirectory() {
    const CString folder = QsPlatform::CurrentFolder();
    return folder.IsEmpty() ? folder : QsDirectory::WithBackslash(folder);
}

CString CCommonDirectory::GetDocumentsDirectory() {
    const CString folder = QsPlatform::DocumentsFolder();
    return folder.IsEmpty() ? folder : QsDirectory::WithBackslash(folder);
}

}  // namespace DirectoryManager
