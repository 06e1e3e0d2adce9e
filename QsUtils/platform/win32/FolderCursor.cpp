#include "QsUtils/platform/FolderCursor.h"

#include <cstddef>
#include <utility>
#include <vector>

#include "QsUtils/platform/win32/FileErrors.h"
#include "QsUtils/platform/win32/HeldFolder.h"
#include "QsUtils/platform/win32/LinkTarget.h"
#include "QsUtils/platform/win32/SystemPath.h"
#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

namespace {

struct WayFolder {
    NativeName name;
    FolderIdentity identity;
    std::size_t pathLength = 0;
};

bool ReadIdentity(const std::wstring& path, FolderIdentity& identity) {
    const FileHandle folder(::CreateFileW(path.c_str(), 0,
                                          FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                          OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION information{};
    if (!folder.IsOpen() || !::GetFileInformationByHandle(folder.Get(), &information) ||
        (information.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
        return false;
    identity = {information.dwVolumeSerialNumber,
                std::uint64_t{information.nFileIndexHigh} << 32 | information.nFileIndexLow};
    return true;
}

/// A search through one folder.
class Reading {
public:
    Reading() = default;
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;
    ~Reading() { End(); }

    void Begin(const std::wstring& folder) {
        End();
        m_search = ::FindFirstFileExW((folder + L'*').c_str(), FindExInfoBasic, &m_found,
                                      FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
        m_hasFound = m_search != INVALID_HANDLE_VALUE;
    }
    void End() {
        if (m_search != INVALID_HANDLE_VALUE)
            ::FindClose(std::exchange(m_search, INVALID_HANDLE_VALUE));
        m_hasFound = false;
    }
    const WIN32_FIND_DATAW* Next() {
        if (!m_hasFound)
            return nullptr;
        m_given = m_found;
        m_hasFound = ::FindNextFileW(m_search, &m_found) != 0;
        return &m_given;
    }

private:
    HANDLE m_search = INVALID_HANDLE_VALUE;
    WIN32_FIND_DATAW m_found{};
    WIN32_FIND_DATAW m_given{};
    bool m_hasFound = false;
};

bool IsSelfOrParent(NativeView name) {
    return name == L"." || name == L"..";
}

}  // namespace

std::u16string DecodeName(NativeView name) {
    return std::u16string(name.begin(), name.end());
}

NativeName EncodeName(std::u16string_view name) {
    return NativeName(name.begin(), name.end());
}

struct FolderCursor::State {
    std::vector<WayFolder> way;
    std::wstring path;  // of the folder it stands in
    Reading reading;
    TreeEntry entry;
};

FolderCursor::FolderCursor(const CString& path) : m_state(std::make_unique<State>()) {
    m_state->path = UnlimitedPath(path);
    if (m_state->path.empty())
        return;
    if (m_state->path.back() != L'\\')
        m_state->path += L'\\';
    WayFolder top;
    top.pathLength = m_state->path.size();
    if (!ReadIdentity(m_state->path, top.identity))
        return;
    m_state->way.push_back(std::move(top));
    m_state->reading.Begin(m_state->path);
}

FolderCursor::~FolderCursor() = default;

bool FolderCursor::IsOpen() const noexcept {
    return !m_state->way.empty();
}

FolderIdentity FolderCursor::Identity() const noexcept {
    return m_state->way.back().identity;
}

std::size_t FolderCursor::Depth() const noexcept {
    return m_state->way.size() - 1;
}

const NativeName& FolderCursor::NameOnWay(std::size_t depth) const {
    return m_state->way[depth].name;
}

bool FolderCursor::Enter(const NativeName& name, bool followsLinks) {
    const std::wstring path = m_state->path + name;
    WayFolder folder;
    if ((!followsLinks && IsLinkPath(path)) || !ReadIdentity(path, folder.identity))
        return false;
    m_state->path = path + L'\\';
    folder.name = name;
    folder.pathLength = m_state->path.size();
    m_state->way.push_back(std::move(folder));
    m_state->reading.Begin(m_state->path);
    return true;
}

bool FolderCursor::Leave() {
    m_state->reading.End();
    m_state->way.pop_back();
    if (!m_state->way.empty())
        m_state->path.resize(m_state->way.back().pathLength);
    return !m_state->way.empty();
}

const TreeEntry* FolderCursor::Next() {
    const WIN32_FIND_DATAW* found = m_state->reading.Next();
    while (found != nullptr && IsSelfOrParent(found->cFileName))
        found = m_state->reading.Next();
    if (found == nullptr)
        return nullptr;
    TreeEntry& entry = m_state->entry;
    entry.name = found->cFileName;
    entry.leadsToFolder = (found->dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if ((found->dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 && IsLinkTag(found->dwReserved0))
        entry.kind = TreeEntry::Kind::Link;
    else
        entry.kind = entry.leadsToFolder ? TreeEntry::Kind::Folder : TreeEntry::Kind::File;
    return &entry;
}

void FolderCursor::Rewind() {
    m_state->reading.Begin(m_state->path);
}

bool FolderCursor::LeadsToFolder(const TreeEntry& entry) const {
    return entry.leadsToFolder;
}

bool FolderCursor::Has(const NativeName& name) const {
    return ::GetFileAttributesW((m_state->path + name).c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool FolderCursor::Remove(const TreeEntry& entry) {
    const std::wstring path = m_state->path + std::wstring(entry.name);
    return (entry.leadsToFolder ? ::RemoveDirectoryW(path.c_str()) : ::DeleteFileW(path.c_str())) != 0;
}

bool FolderCursor::RemoveEmptyFolder(const NativeName& name) {
    return ::RemoveDirectoryW((m_state->path + name).c_str()) != 0;
}

bool FolderCursor::MakeFolder(const NativeName& name, bool* lacksRoom) {
    const bool isMade = ::CreateDirectoryW((m_state->path + name).c_str(), nullptr) != 0;
    if (lacksRoom != nullptr)
        *lacksRoom = !isMade && IsWantOfRoom(::GetLastError());
    return isMade;
}

std::shared_ptr<const HeldFolder> FolderCursor::Hold() const {
    return std::make_shared<const HeldFolder>(m_state->path);
}

}  // namespace QsPlatform
