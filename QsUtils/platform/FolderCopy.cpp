// What is in a folder copied into another one.
#include <cstddef>
#include <unordered_map>
#include <utility>
#include <vector>

#include "QsUtils/platform/FolderCopying.h"
#include "QsUtils/platform/FolderCursor.h"
#include "QsUtils/platform/FolderDeletion.h"
#include "QsUtils/platform/FolderTrees.h"

namespace QsPlatform {

namespace {

struct IdentityHash {
    std::size_t operator()(const FolderIdentity& folder) const noexcept {
        return static_cast<std::size_t>(folder.number * 31 + folder.device);
    }
};

class Copy {
public:
    Copy(const CString& source, const CString& target, bool isUnseen)
        : m_source(source), m_target(target), m_isUnseen(isUnseen) {}

    /// Whether there was room for all of it.
    bool Run() {
        if (!m_source.IsOpen())
            return true;
        m_lost = m_target.IsOpen() ? 0 : 1;
        Begin();
        while (!m_left.empty() && m_source.IsOpen() && !IsOver()) {
            if (m_left.back().empty()) {
                Leave();
            } else {
                const NativeName name = std::move(m_left.back().back());
                m_left.back().pop_back();
                Enter(name);
            }
        }
        return m_hasRoom;
    }

private:
    bool IsOver() const { return m_isUnseen && !m_hasRoom; }

    /// Copies the files of the folder that the source's cursor has come to.
    void Begin() {
        ++m_onWay[m_source.Identity()];
        if (m_lost == 0)
            ++m_onWay[m_target.Identity()];
        std::vector<CopiedFile> files;
        std::vector<NativeName>& folders = m_left.emplace_back();
        while (const TreeEntry* const entry = m_source.Next()) {
            if (m_source.LeadsToFolder(*entry))
                folders.emplace_back(entry->name);
            else
                files.push_back({NativeName(entry->name), entry->kind == TreeEntry::Kind::Link});
        }
        for (const CopiedFile& file : files) {
            if (IsOver())
                return;
            if (m_lost == 0)
                m_hasRoom &= m_copier.Copy(*m_source.Hold(), file, *m_target.Hold(), m_isUnseen) !=
                             CopyOutcome::NoRoom;
            else
                MakeEntryWritable(*m_source.Hold(), file.name);
        }
    }

    /// Makes a subfolder anew and goes down into it, on both sides.
    void Enter(const NativeName& name) {
        if (m_lost == 0) {
            if (!m_isUnseen)
                RemoveSubfolder(m_target, name);
            m_lost = m_target.IsOpen() ? 0 : m_left.size();
        }
        bool lacksRoom = false;
        if (m_lost == 0)
            m_target.MakeFolder(name, &lacksRoom);
        m_hasRoom &= !lacksRoom;
        if (!m_source.Enter(name, true)) {
            MakeEntryWritable(*m_source.Hold(), name);
            return;
        }
        if (!MayBeCopied()) {
            LeaveSource();
            return;
        }
        // The marks of the source are taken off also where nothing can be copied to.
        if (m_lost > 0 || !m_target.Enter(name, false)) {
            m_hasRoom &= !m_isUnseen;  // in a new folder nothing else stands in the way
            ++m_lost;
        }
        Begin();
    }

    void Leave() {
        m_left.pop_back();
        --m_onWay[m_source.Identity()];
        if (m_lost == 0)
            --m_onWay[m_target.Identity()];
        if (m_left.empty())
            return;
        LeaveSource();
        if (m_lost > 0)
            --m_lost;
        else if (!m_target.Leave())
            m_lost = m_left.size();
    }

    void LeaveSource() {
        const NativeName name = m_source.NameOnWay(m_source.Depth());
        if (m_source.Leave())
            MakeEntryWritable(*m_source.Hold(), name);
    }

    /// A folder that is on one of the two ways would be copied into itself without an end, and one to which
    /// links lead by links would be copied more often than anything can be.
    bool MayBeCopied() {
        const FolderIdentity folder = m_source.Identity();
        const auto onWay = m_onWay.find(folder);
        return (onWay == m_onWay.end() || onWay->second == 0) && m_copies[folder]++ < MostCopiesOfFolder;
    }

    FolderCursor m_source;
    FolderCursor m_target;
    FileCopier m_copier;
    bool m_isUnseen;
    bool m_hasRoom = true;
    std::vector<std::vector<NativeName>> m_left;  // subfolders to be copied, by level
    std::size_t m_lost = 0;                       // levels at the end of the way that have no target
    std::unordered_map<FolderIdentity, int, IdentityHash> m_onWay;
    std::unordered_map<FolderIdentity, int, IdentityHash> m_copies;
};

}  // namespace

bool CopyFolderContents(const CString& source, const CString& target) {
    return Copy(source, target, false).Run();
}

bool CopyToUnseenFolder(const CString& source, const CString& target) {
    return Copy(source, target, true).Run();
}

}  // namespace QsPlatform
