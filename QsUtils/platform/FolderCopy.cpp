// What is in a folder copied into another one.
#include <cstddef>
#include <exception>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include "QsUtils/platform/AbandonedVersions.h"
#include "QsUtils/platform/CopyCrew.h"
#include "QsUtils/platform/FolderCopying.h"
#include "QsUtils/platform/FolderCursor.h"
#include "QsUtils/platform/FolderDeletion.h"
#include "QsUtils/platform/FolderTrees.h"

namespace QsPlatform {

namespace {

/// Files that one thread copies together.
constexpr std::size_t BatchSize = 64;

struct IdentityHash {
    std::size_t operator()(const FolderIdentity& folder) const noexcept {
        return static_cast<std::size_t>(folder.number * 31 + folder.device);
    }
};

/// A folder that is filled under another name; it gets its own one when the last of those who fill it lets
/// go.
class UnseenFolder {
public:
    UnseenFolder(const CString& targetPath, std::shared_ptr<const HeldFolder> parent, NativeName unseen,
                 NativeName name)
        : m_targetPath(targetPath),
          m_parent(std::move(parent)),
          m_unseen(std::move(unseen)),
          m_name(std::move(name)) {}
    UnseenFolder(const UnseenFolder&) = delete;
    UnseenFolder& operator=(const UnseenFolder&) = delete;
    ~UnseenFolder() {
        try {
            if (!RenameFolder(*m_parent, m_unseen, m_name))  // somebody else has taken it
                RemoveFolderTree(m_targetPath + u'\\' + CString(DecodeName(m_unseen)));
        } catch (const std::exception&) {
            return;  // out of memory
        }
    }

private:
    CString m_targetPath;
    std::shared_ptr<const HeldFolder> m_parent;
    NativeName m_unseen;
    NativeName m_name;
};

class Copy {
public:
    Copy(const CString& source, const CString& target, bool isTargetUnseen)
        : m_source(source),
          m_target(target),
          m_targetPath(target),
          m_isTargetUnseen(isTargetUnseen),
          m_crew(isTargetUnseen) {}

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
        m_crew.Finish();
        return HasRoom();
    }

private:
    bool HasRoom() const { return m_hasRoom && m_crew.HasRoom(); }

    /// What nobody sees is of no use unless it is whole.
    bool IsOver() const { return m_isTargetUnseen && !HasRoom(); }

    bool IsUnseen() const { return m_isTargetUnseen || m_unseen != nullptr; }

    /// Copies the files of the folder that the source's cursor has come to.
    void Begin() {
        ++m_onWay[m_source.Identity()];
        if (m_lost == 0)
            ++m_onWay[m_target.Identity()];
        std::vector<CopiedFile> files;
        std::vector<NativeName> folders;
        while (const TreeEntry* const entry = m_source.Next()) {
            if (m_source.LeadsToFolder(*entry)) {
                folders.emplace_back(entry->name);
                continue;
            }
            files.push_back({NativeName(entry->name), entry->kind == TreeEntry::Kind::Link});
            if (files.size() == BatchSize)
                CopyFiles(std::exchange(files, {}));
        }
        CopyFiles(std::move(files));
        m_left.push_back(std::move(folders));
    }

    void CopyFiles(std::vector<CopiedFile> files) {
        if (m_lost > 0) {
            for (const CopiedFile& file : files)
                MakeEntryWritable(*m_source.Hold(), file.name);
        } else if (!files.empty()) {
            m_crew.Copy({m_source.Hold(), m_target.Hold(), std::move(files), IsUnseen(), m_unseen});
        }
    }

    /// Makes a subfolder anew and goes down into it, on both sides.
    void Enter(const NativeName& name) {
        const NativeName made = m_lost == 0 ? MakeAnew(name) : NativeName();
        if (!m_source.Enter(name, true)) {
            MakeEntryWritable(*m_source.Hold(), name);
            ShowTarget();
            return;
        }
        if (!MayBeCopied()) {
            LeaveSource();
            ShowTarget();
            return;
        }
        // The marks of the source are taken off also where nothing can be copied to.
        if (m_lost > 0 || !m_target.Enter(made, false)) {
            m_hasRoom &= !m_isTargetUnseen;  // in a new folder nothing else stands in the way
            ++m_lost;
        }
        Begin();
    }

    /// Gives the name under which the subfolder stands for the time being.
    NativeName MakeAnew(const NativeName& name) {
        // Nothing stands in a folder that has just been made.
        if (!IsUnseen() && m_target.Has(name)) {
            m_crew.Finish();  // what is removed may be what is still to be copied
            RemoveSubfolder(m_target, name);
            m_lost = m_target.IsOpen() ? 0 : m_left.size();
        }
        if (m_lost > 0)
            return {};
        if (!IsUnseen() && FillsFoldersUnseen() && !m_target.Has(name)) {
            NativeName unseen = UnseenName();
            if (m_target.MakeFolder(unseen)) {
                m_unseen = std::make_shared<const UnseenFolder>(m_targetPath, m_target.Hold(), unseen, name);
                m_unseenDepth = m_target.Depth();
                return unseen;
            }
        }
        bool lacksRoom = false;
        m_target.MakeFolder(name, &lacksRoom);
        m_hasRoom &= !lacksRoom;
        return name;
    }

    /// Lets go of an unseen folder when the way is back at where it stands.
    void ShowTarget() {
        if (m_unseen != nullptr && (!m_target.IsOpen() || m_target.Depth() == m_unseenDepth))
            m_unseen.reset();
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
        ShowTarget();
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
    CString m_targetPath;
    bool m_isTargetUnseen;
    bool m_hasRoom = true;                         // for folders
    std::shared_ptr<const UnseenFolder> m_unseen;  // in which the target's cursor stands
    std::size_t m_unseenDepth = 0;                 // of the folder that it stands in
    std::vector<std::vector<NativeName>> m_left;   // subfolders to be copied, by level
    std::size_t m_lost = 0;                        // levels at the end of the way that have no target
    std::unordered_map<FolderIdentity, int, IdentityHash> m_onWay;
    std::unordered_map<FolderIdentity, int, IdentityHash> m_copies;
    CopyCrew m_crew;  // the last one: it copies to the end before the others go
};

}  // namespace

bool CopyFolderContents(const CString& source, const CString& target) {
    RemoveAbandonedVersions(target);
    return Copy(source, target, false).Run();
}

bool CopyToUnseenFolder(const CString& source, const CString& target) {
    return Copy(source, target, true).Run();
}

}  // namespace QsPlatform
