// The folders that the operating system gives.
#pragma once

#include "QsUtils/directory/DirectoryManager.h"
#include "QsUtils/platform/Mutex.h"

namespace DirectoryManager {

class CCommonDirectory : public ICommonDirectory {
public:
    CString GetExeDirectory() override;
    CString GetTempDirectory() override;
    CString GetCurrentWorkDirectory() override;
    CString GetDocumentsDirectory() override;

private:
    CString m_strExeDirectory;   // empty until the system has told it
    CString m_strTempDirectory;  // empty until it has been asked for
    QsPlatform::Mutex m_lock;    // of both
};

}  // namespace DirectoryManager
