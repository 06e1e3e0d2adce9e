#include "QsUtils/platform/FolderCursor.h"

#include <cerrno>
#include <cstddef>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "QsUtils/platform/Utf8.h"
#include "QsUtils/platform/posix/DirectoryReader.h"
#include "QsUtils/platform/posix/FolderPath.h"
#include "QsUtils/platform/posix/HeldFolder.h"

namespace QsPlatform {

namespace {

/// Folders open at a time, the innermost ones; those above are found again by the way up.
constexpr std::size_t MostOpen = 24;

struct OpenFolder {
    NativeName name;
    FolderIdentity identity;
    std::shared_ptr<const HeldFolder> held;  // none for one that is closed meanwhile
    bool isByLink = false;
};

FolderIdentity IdentityOf(const struct stat& status) noexcept {
    return {status.st_dev, status.st_ino};
}

/// Opens a folder for reading, or only as a place to name entries in.
OpenFolder Open(int base, const char* name, int flags) {
    OpenFolder folder;
    FileDescriptor opened(::openat(base, name, flags | O_DIRECTORY | O_CLOEXEC));
    struct stat status {};
    if (!opened.IsOpen() || ::fstat(opened.Number(), &status) != 0)
        return folder;
    folder.identity = IdentityOf(status);
    folder.held = std::make_shared<const HeldFolder>(std::move(opened));
    return folder;
}

TreeEntry::Kind KindOf(unsigned char type) noexcept {
    switch (type) {
        case DT_DIR:
            return TreeEntry::Kind::Folder;
        case DT_LNK:
            return TreeEntry::Kind::Link;
        case DT_REG:
            return TreeEntry::Kind::File;
        default:
            return TreeEntry::Kind::Device;
    }
}

}  // namespace

std::u16string DecodeName(NativeView name) {
    return DecodeUtf8(name);
}

NativeName EncodeName(std::u16string_view name) {
    return EncodeUtf8(name);
}

struct FolderCursor::State {
    State() : buffer(new char[DirectoryReader::BufferSize]), reader(-1, buffer.get()) {}

    int Folder() const noexcept { return way.back().held->Number(); }
    void BeginReading() noexcept { reader = DirectoryReader(Folder(), buffer.get()); }
    bool Reopen();

    std::vector<OpenFolder> way;  // empty when it isn't open
    std::unique_ptr<char[]> buffer;
    DirectoryReader reader;
    TreeEntry entry;
};

FolderCursor::FolderCursor(const CString& path) : m_state(std::make_unique<State>()) {
    const FolderPath folder(path);
    if (!folder.IsGood())
        return;
    OpenFolder top = Open(folder.Base(), folder.Rest(), O_RDONLY);
    if (top.held == nullptr)
        return;
    m_state->way.push_back(std::move(top));
    m_state->BeginReading();
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
    std::vector<OpenFolder>& way = m_state->way;
    OpenFolder folder = Open(m_state->Folder(), name.c_str(), O_RDONLY | O_NOFOLLOW);
    if (folder.held == nullptr && followsLinks) {
        folder = Open(m_state->Folder(), name.c_str(), O_RDONLY);
        folder.isByLink = true;
    }
    if (folder.held == nullptr)
        return false;
    folder.name = name;
    way.push_back(std::move(folder));
    if (way.size() > MostOpen + 1)
        way[way.size() - 1 - MostOpen].held.reset();  // never the first one
    m_state->BeginReading();
    return true;
}

/// Goes from the first folder down to the last one again.
bool FolderCursor::State::Reopen() {
    std::shared_ptr<const HeldFolder> from = way.front().held;
    for (std::size_t depth = 1; depth < way.size(); ++depth) {
        const OpenFolder next =
            Open(from->Number(), way[depth].name.c_str(), O_PATH | (way[depth].isByLink ? 0 : O_NOFOLLOW));
        if (next.held == nullptr || next.identity != way[depth].identity)
            return false;
        from = next.held;
    }
    way.back().held = from;
    return true;
}

bool FolderCursor::Leave() {
    std::vector<OpenFolder>& way = m_state->way;
    const OpenFolder left = std::move(way.back());
    way.pop_back();
    if (way.empty() || way.back().held != nullptr)
        return !way.empty();
    // What is above a folder that was reached by a link isn't where we came from.
    if (!left.isByLink) {
        OpenFolder above = Open(left.held->Number(), "..", O_PATH);
        if (above.held != nullptr && above.identity == way.back().identity)
            way.back().held = std::move(above.held);
    }
    if (way.back().held == nullptr && !m_state->Reopen())
        way.clear();
    return !way.empty();
}

const TreeEntry* FolderCursor::Next() {
    const dirent64* found = m_state->reader.Next();
    while (found != nullptr && IsDots(found->d_name))
        found = m_state->reader.Next();
    if (found == nullptr)
        return nullptr;
    TreeEntry& entry = m_state->entry;
    entry.name = found->d_name;
    unsigned char type = found->d_type;
    struct stat status {};
    if (type == DT_UNKNOWN && ::fstatat(m_state->Folder(), found->d_name, &status, AT_SYMLINK_NOFOLLOW) == 0)
        type = static_cast<unsigned char>(IFTODT(status.st_mode));
    entry.kind = KindOf(type);
    return &entry;
}

void FolderCursor::Rewind() {
    ::lseek(m_state->Folder(), 0, SEEK_SET);
    m_state->BeginReading();
}

bool FolderCursor::LeadsToFolder(const TreeEntry& entry) const {
    struct stat status {};
    return entry.kind == TreeEntry::Kind::Folder ||
           (entry.kind == TreeEntry::Kind::Link &&
            ::fstatat(m_state->Folder(), entry.name.data(), &status, 0) == 0 && S_ISDIR(status.st_mode));
}

bool FolderCursor::Has(const NativeName& name) const {
    struct stat status {};
    return ::fstatat(m_state->Folder(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0;
}

bool FolderCursor::Remove(const TreeEntry& entry) {
    struct stat status {};
    if (::fstatat(m_state->Folder(), entry.name.data(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return false;
    return (S_ISLNK(status.st_mode) || (status.st_mode & S_IWUSR) != 0) &&
           ::unlinkat(m_state->Folder(), entry.name.data(), 0) == 0;
}

bool FolderCursor::RemoveEmptyFolder(const NativeName& name) {
    const int folder = m_state->Folder();
    if (::unlinkat(folder, name.c_str(), AT_REMOVEDIR) == 0)
        return true;
    struct stat status {};
    return ::fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(status.st_mode) &&
           ::fstatat(folder, name.c_str(), &status, 0) == 0 && S_ISDIR(status.st_mode) &&
           ::unlinkat(folder, name.c_str(), 0) == 0;
}

bool FolderCursor::MakeFolder(const NativeName& name, bool* lacksRoom) {
    const bool isMade = ::mkdirat(m_state->Folder(), name.c_str(), 0777) == 0;
    if (lacksRoom != nullptr)
        *lacksRoom = !isMade && IsWantOfRoom(errno);
    return isMade;
}

std::shared_ptr<const HeldFolder> FolderCursor::Hold() const {
    return m_state->way.back().held;
}

}  // namespace QsPlatform
