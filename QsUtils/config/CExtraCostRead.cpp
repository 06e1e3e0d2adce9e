#include "QsUtils/config/CExtraCostRead.h"

#include <utility>

#include "QsUtils/text/Files.h"

void CExtraCostRead::FindPath(CString& strPath, const CString& strFolder, const CString& strFileName,
                              const CString& strTail) {
    CString key;
    key.Preallocate(strFolder.GetLength() + strFileName.GetLength() + strTail.GetLength() + 2);
    key += strFolder;
    key += u'@';
    key += strFileName;
    key += u'@';
    key += strTail;
    if (const auto known = m_mapFindPath.find(key); known != m_mapFindPath.end()) {
        strPath = known->second;
        return;
    }
    CString found;
    QsText::FindPath(found, strFolder, strFileName, strTail);
    if (!found.IsEmpty()) {
        m_mapFilePath[strFileName] = found;
        m_mapFindPath[std::move(key)] = found;
    }
    strPath = std::move(found);
}
