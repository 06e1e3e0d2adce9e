// The configuration reader of the module.
#pragma once

#include <map>

#include "QsUtils/text/CString.h"

/// Remembers what it has read and found until the module ends. For one thread at a time.
class CExtraCostRead {
public:
    virtual ~CExtraCostRead() = default;

    /// `IQsUtils::FindPath` with a memory: what has been found once is not looked for again, whatever has
    /// become of it on the disk; what hasn't been found is.
    void FindPath(CString& strPath, const CString& strFolder, const CString& strFileName,
                  const CString& strTail);

private:
    std::map<CString, CString>
        m_mapFilePath;  // by bare file name, the last find whatever folder it came from
    std::map<CString, CString> m_mapFindPath;  // by folder, name and tail, with "@" between
};
