// The one reader of the small configuration files, and what it keeps of them.
#pragma once

#include <list>
#include <map>

#include "QsUtils/config/ExtraCostType.h"
#include "QsUtils/config/InputHistory.h"
#include "QsUtils/config/MarkFile.h"
#include "QsUtils/config/ProjectOverview.h"
#include "QsUtils/platform/Mutex.h"
#include "QsUtils/text/CString.h"

/// Reads each file when a call first asks for it, and keeps what it read until it is destroyed. `IQsUtils1`
/// documents the operations of the same names; any thread may call them, and so may a companion while it is
/// asked for a library on behalf of one of them. No file is asked for at its making.
class CExtraCostRead {
public:
    CExtraCostRead() = default;
    CExtraCostRead(const CExtraCostRead&) = delete;
    CExtraCostRead& operator=(const CExtraCostRead&) = delete;
    /// Frees the blocks of `SetExtraCostData` and the fields of the offered overview.
    virtual ~CExtraCostRead();

    bool InitOverHeight(const CString& libraryFile, const CString& family);
    const std::list<CString>* GetOverHeightList(const CString& libraryFile, const CString& family);
    const std::map<CString, CString>* GetExtraCostTypeList(const CString& libraryFile, const CString& family);
    eExtraCost_CoefficientType GetExtraCostCalType(const CString& libraryFile, const CString& typeName,
                                                   const CString& family);
    /// `IQsUtils::FindPath` with a memory; see `IQsUtils1`. Other calls don't wait for the search.
    void FindPath(CString& path, const CString& folder, const CString& fileName, const CString& tail);
    void SetExtraCostData(const CString& key, void* data);
    void* GetExtraCostDataByKey(const CString& key);

    void GetProjOverViewInfo(std::list<QS_ProjectOverView::stuColInfo*>& fields);

    void WriteHistory(const CString& section, const CString& value);
    void GetHistory(const CString& section, std::list<CString>& history);

    void GetMarkMap(const CString& folder, bool billMode, const CString& group,
                    std::map<CString, CString>& marks);
    void GetMarkList(const CString& folder, bool billMode, const CString& group, std::list<CString>& names);

private:
    CString FindExtraCostFile(const CString& libraryFile, const CString& family);
    template <typename T>
    const T* FindKept(const std::map<CString, T>& kept, const CString& libraryFile);
    template <typename T>
    const T* FindOrRead(const std::map<CString, T>& kept, const CString& libraryFile, const CString& family);
    const QsConfig::MarkList* LoadedMarks(const CString& folder, bool billMode, const CString& group);

    std::list<CString> m_listLoadedEcFile;                             // the files that have been taken up
    std::map<CString, std::list<CString>> m_mapOverHeight;             // by the names of library files
    std::map<CString, std::map<CString, CString>> m_mapExtraCostType;  // by the names of library files
    std::map<CString, CString> m_mapFilePath;                          // by the names of files
    std::map<CString, CString> m_mapFindPath;                          // by what was searched for
    std::map<CString, void*> m_mapExtraCostData;
    std::list<QS_ProjectOverView::stuColInfo*> m_listProjOverView;
    QsConfig::HistoryMap m_mapHistory;
    QsConfig::MarkList m_listMesureItem;
    QsConfig::MarkList m_listFeeTax;
    QsConfig::MarkList m_listFeeSummary;
    QsConfig::MarkList m_listOtherItemSummary;
    QsConfig::MarkList m_listOtherItemPJTemPrice;

    // Held while a file is read: whoever else asks for its entries waits for them.
    QsPlatform::Mutex m_lock;
};
