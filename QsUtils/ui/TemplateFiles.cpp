#include "QsUtils/ui/TemplateFiles.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "QsUtils/platform/EntryNames.h"
#include "QsUtils/platform/FolderCursor.h"
#include "QsUtils/platform/Folders.h"
#include "QsUtils/platform/UserFolders.h"

namespace QsUi {

namespace {

using QsPlatform::FolderCursor;
using QsPlatform::FolderIdentity;
using QsPlatform::TreeEntry;

struct IdentityHash {
    std::size_t operator()(const FolderIdentity& folder) const noexcept {
        return static_cast<std::size_t>(folder.number * 31 + folder.device);
    }
};

struct Visits {
    int count = 0;
    bool isOnWay = false;
};

struct Entry {
    std::u16string name;
    QsPlatform::NativeName folder;  // empty for a file
};

/// A folder on the way down.
struct Level {
    std::vector<Entry> entries;  // what is still to come; the next one at the end
    std::size_t pathLength = 0;
    FolderIdentity identity;
};

/// With a backslash at its end; empty when the current folder isn't known.
std::u16string FullFolder(const CString& folder) {
    const CString full = folder.IsEmpty() ? QsPlatform::CurrentFolder() : QsPlatform::AbsolutePath(folder);
    std::u16string path(full.View());
    if (!path.empty() && !path.ends_with(u'\\'))
        path += u'\\';
    return path;
}

class TemplateWalk {
public:
    TemplateWalk(const CString& folder, const CString& extension)
        : m_path(FullFolder(folder)), m_extension(extension.View()), m_cursor(CString(m_path)) {}

    std::vector<TemplateFile> Files() {
        if (m_cursor.IsOpen())
            Begin();
        while (!m_levels.empty() && m_cursor.IsOpen()) {
            std::vector<Entry>& entries = m_levels.back().entries;
            if (entries.empty()) {
                Leave();
                continue;
            }
            const Entry entry = std::move(entries.back());
            entries.pop_back();
            if (entry.folder.empty())
                AddFile(entry.name);
            else
                Enter(entry);
        }
        return std::move(m_files);
    }

private:
    /// Reads the folder in which the cursor stands. A file of another kind isn't even kept.
    void Begin() {
        Level level;
        level.pathLength = m_path.size();
        level.identity = m_cursor.Identity();
        Visits& visits = m_visits[level.identity];
        visits.isOnWay = true;
        ++visits.count;
        while (const TreeEntry* const entry = m_cursor.Next()) {
            const bool isFolder = entry->kind != TreeEntry::Kind::File && m_cursor.LeadsToFolder(*entry);
            std::u16string name = QsPlatform::DecodeName(entry->name);
            if (isFolder)
                level.entries.push_back({std::move(name), QsPlatform::NativeName(entry->name)});
            else if (name.ends_with(m_extension))
                level.entries.push_back({std::move(name), {}});
        }
        std::sort(level.entries.begin(), level.entries.end(),
                  [](const Entry& a, const Entry& b) { return QsPlatform::StandsBefore(b.name, a.name); });
        m_levels.push_back(std::move(level));
    }

    void Enter(const Entry& folder) {
        if (!m_cursor.Enter(folder.folder, true))
            return;
        const Visits& visits = m_visits[m_cursor.Identity()];
        if (visits.isOnWay || visits.count == MostVisitsOfFolder) {
            m_cursor.Leave();
            return;
        }
        m_path += folder.name;
        m_path += u'\\';
        Begin();
    }

    void Leave() {
        m_visits[m_levels.back().identity].isOnWay = false;
        m_levels.pop_back();
        if (m_levels.empty())
            return;
        m_path.resize(m_levels.back().pathLength);
        m_cursor.Leave();
    }

    void AddFile(std::u16string_view name) {
        const CString title(name.substr(0, name.rfind(u'.')));
        m_files.push_back({CString(m_path + std::u16string(name)), title});
    }

    std::u16string m_path;  // of the folder in which the cursor stands
    std::u16string_view m_extension;
    FolderCursor m_cursor;
    std::vector<Level> m_levels;
    std::unordered_map<FolderIdentity, Visits, IdentityHash> m_visits;
    std::vector<TemplateFile> m_files;
};

}  // namespace

std::vector<TemplateFile> FindTemplateFiles(const CString& folder, const CString& extension) {
    return TemplateWalk(folder, extension).Files();
}

}  // namespace QsUi
