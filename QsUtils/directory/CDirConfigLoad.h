// One section of DirectoryConfig.xml, which states where the folders of an installation lie.
#pragma once

#include <map>

#include "QsUtils/platform/RecursiveMutex.h"
#include "QsUtils/text/CString.h"

namespace DirectoryManager {

/// Reads its section at the first lookup and keeps it. Any thread may call anything; an override of
/// `LoadDirectoryConfig` is called by one thread at a time and may look codes up itself.
class CDirConfigLoad {
public:
    CDirConfigLoad() = default;
    CDirConfigLoad(const CDirConfigLoad&) = delete;
    CDirConfigLoad& operator=(const CDirConfigLoad&) = delete;
    virtual ~CDirConfigLoad();
    /// Adds the items of the section to the map, unless it holds some already. A file that is missing or
    /// isn't well-formed, or lacks the section, adds nothing.
    virtual void LoadDirectoryConfig();

    /// The relative path of a code with one backslash at its end; empty when the section lacks the code.
    CString GetDirectoryRelativePath(const CString& code);

protected:
    std::map<CString, CString> m_mapDirectory;  // the relative paths by code
    CString m_strSectionPath;                   // "root/section"; only the section's name is looked for
    bool m_bLoaded = false;

private:
    void LoadOnce();

    bool m_bLoading = false;
    QsPlatform::RecursiveMutex m_lock;
};

}  // namespace DirectoryManager
