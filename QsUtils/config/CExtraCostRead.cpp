#include "QsUtils/config/CExtraCostRead.h"

#include <algorithm>
#include <mutex>
#include <new>
#include <optional>
#include <set>
#include <utility>

#include "QsUtils/config/ExtraCostFile.h"
#include "QsUtils/config/OverviewFile.h"
#include "QsUtils/directory/DirectoryManager.h"
#include "QsUtils/library/LibraryManager.h"
#include "QsUtils/platform/ExecutableFolder.h"
#include "QsUtils/platform/FolderEntries.h"
#include "QsUtils/text/Files.h"

using QS_ProjectOverView::stuColInfo;
using QsConfig::MarkList;

namespace {

CString FileBeside(const char16_t* name) {
    return QsPlatform::ExecutableFolder() + name;
}

CString MarkFilePath(const CString& folder) {
    CString path = DirectoryManager::GetProjectDirectoryManager()->GetBidTenderFileTemplateDirectory() +
                   folder + u"\\MarkConfig.xml";
    return QsPlatform::IsEntryFound(path) ? path : FileBeside(u"\\Config\\MarkConfig.xml");
}

}  // namespace

CExtraCostRead::~CExtraCostRead() {
    // A host may have put one block under several keys.
    std::set<void*> blocks;
    for (const auto& [key, data] : m_mapExtraCostData)
        blocks.insert(data);
    for (void* block : blocks)
        ::operator delete(block);
    for (const stuColInfo* field : m_listProjOverView)
        delete field;
}

// --- Extra costs

/// The file that goes with a library. A companion is asked for it that may ask this reader in turn, so
/// nothing is locked meanwhile.
CString CExtraCostRead::FindExtraCostFile(const CString& libraryFile, const CString& family) {
    if (libraryFile.IsEmpty())
        return CString();
    {
        const std::lock_guard lock(m_lock);
        const auto found = m_mapFilePath.find(libraryFile);
        if (found != m_mapFilePath.end())
            return QsConfig::ExtraCostPath(found->second);
    }
    return QsConfig::ExtraCostPath(
        LibraryManager::GetLibraryManager()->FindSubLibraryFile(family, CString(), CString(), libraryFile));
}

bool CExtraCostRead::InitOverHeight(const CString& libraryFile, const CString& family) {
    const CString path = FindExtraCostFile(libraryFile, family);
    if (path.IsEmpty())
        return false;
    const std::lock_guard lock(m_lock);
    // Taken up once, so that a second library that leads to the same file gets no entries of its own.
    if (std::find(m_listLoadedEcFile.begin(), m_listLoadedEcFile.end(), path) != m_listLoadedEcFile.end())
        return true;
    if (!QsPlatform::IsEntryFound(path))
        return false;
    m_listLoadedEcFile.push_back(path);
    if (std::optional<QsConfig::ExtraCosts> costs = QsConfig::ReadExtraCosts(path)) {
        m_mapOverHeight[libraryFile] = std::move(costs->overHeight);
        m_mapExtraCostType[libraryFile] = std::move(costs->types);
    }
    return true;
}

template <typename T>
const T* CExtraCostRead::FindKept(const std::map<CString, T>& kept, const CString& libraryFile) {
    const std::lock_guard lock(m_lock);
    const auto found = kept.find(libraryFile);
    return found == kept.end() ? nullptr : &found->second;
}

template <typename T>
const T* CExtraCostRead::FindOrRead(const std::map<CString, T>& kept, const CString& libraryFile,
                                    const CString& family) {
    // A library whose file was taken up by another one is asked for once more without a family; that can give
    // no other answer when it is repeated.
    for (const CString& each : {family, CString()}) {
        if (const T* const found = FindKept(kept, libraryFile))
            return found;
        if (!InitOverHeight(libraryFile, each))
            return nullptr;
    }
    return FindKept(kept, libraryFile);
}

const std::list<CString>* CExtraCostRead::GetOverHeightList(const CString& libraryFile,
                                                            const CString& family) {
    return FindOrRead(m_mapOverHeight, libraryFile, family);
}

const std::map<CString, CString>* CExtraCostRead::GetExtraCostTypeList(const CString& libraryFile,
                                                                       const CString& family) {
    return FindOrRead(m_mapExtraCostType, libraryFile, family);
}

eExtraCost_CoefficientType CExtraCostRead::GetExtraCostCalType(const CString& libraryFile,
                                                               const CString& typeName,
                                                               const CString& family) {
    const std::map<CString, CString>* const types = FindOrRead(m_mapExtraCostType, libraryFile, family);
    if (types == nullptr)
        return eExtraCost_Unknown;
    // The entries are filled anew when a search has found the library in another place.
    const std::lock_guard lock(m_lock);
    const auto found = types->find(typeName);
    return found == types->end() ? eExtraCost_Unknown : QsConfig::CoefficientTypeOf(found->second);
}

void CExtraCostRead::FindPath(CString& path, const CString& folder, const CString& fileName,
                              const CString& tail) {
    CString key = folder + u'@' + fileName + u'@' + tail;
    {
        const std::lock_guard lock(m_lock);
        const auto known = m_mapFindPath.find(key);
        if (known != m_mapFindPath.end()) {
            path = known->second;
            return;
        }
    }
    CString found;
    QsText::FindPath(found, folder, fileName, tail);
    if (!found.IsEmpty()) {
        const std::lock_guard lock(m_lock);
        m_mapFilePath[fileName] = found;
        m_mapFindPath[std::move(key)] = found;
    }
    path = std::move(found);
}

void CExtraCostRead::SetExtraCostData(const CString& key, void* data) {
    const std::lock_guard lock(m_lock);
    m_mapExtraCostData[key] = data;
}

void* CExtraCostRead::GetExtraCostDataByKey(const CString& key) {
    const std::lock_guard lock(m_lock);
    const auto found = m_mapExtraCostData.find(key);
    return found == m_mapExtraCostData.end() ? nullptr : found->second;
}

// --- The overview

void CExtraCostRead::GetProjOverViewInfo(std::list<stuColInfo*>& fields) {
    const std::lock_guard lock(m_lock);
    if (!m_listProjOverView.empty()) {
        fields = m_listProjOverView;
        return;
    }
    // What the caller's list holds already is the caller's, and is not to be freed here.
    QsConfig::ReadOverview(FileBeside(u"\\FieldChoose.cos"), QsConfig::OverviewSource::Offer,
                           m_listProjOverView);
    fields.insert(fields.end(), m_listProjOverView.begin(), m_listProjOverView.end());
}

// --- The history

void CExtraCostRead::WriteHistory(const CString& section, const CString& value) {
    const std::lock_guard lock(m_lock);
    QsConfig::WriteHistory(m_mapHistory, FileBeside(u"\\HistoryInput.ini"), section, value);
}

void CExtraCostRead::GetHistory(const CString& section, std::list<CString>& history) {
    const std::lock_guard lock(m_lock);
    QsConfig::GetHistory(m_mapHistory, FileBeside(u"\\HistoryInput.ini"), section, history);
}

// --- Marks

/// The marks of a group; null for a name that is none.
const MarkList* CExtraCostRead::LoadedMarks(const CString& folder, bool billMode, const CString& group) {
    const QsConfig::MarkLists lists = {&m_listMesureItem, &m_listFeeTax, &m_listFeeSummary,
                                       &m_listOtherItemSummary, &m_listOtherItemPJTemPrice};
    // A group without marks makes every call load the file again, and the other lists grow by theirs. Hosts
    // have come to rest on what that gives.
    if (std::any_of(lists.begin(), lists.end(), [](const MarkList* list) { return list->empty(); }))
        QsConfig::ReadMarks(MarkFilePath(folder), billMode, lists);
    const auto found = std::find(QsConfig::MarkGroups.begin(), QsConfig::MarkGroups.end(), group.View());
    return found == QsConfig::MarkGroups.end()
               ? nullptr
               : lists[static_cast<std::size_t>(found - QsConfig::MarkGroups.begin())];
}

void CExtraCostRead::GetMarkMap(const CString& folder, bool billMode, const CString& group,
                                std::map<CString, CString>& marks) {
    const std::lock_guard lock(m_lock);
    if (const MarkList* const list = LoadedMarks(folder, billMode, group))
        marks.insert(list->begin(), list->end());
}

void CExtraCostRead::GetMarkList(const CString& folder, bool billMode, const CString& group,
                                 std::list<CString>& names) {
    const std::lock_guard lock(m_lock);
    const MarkList* const list = LoadedMarks(folder, billMode, group);
    if (list == nullptr)
        return;
    for (const auto& [code, name] : *list)
        names.push_back(name);
}
