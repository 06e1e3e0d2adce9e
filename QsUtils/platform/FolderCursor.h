// A way through a tree of folders: contract. What walks a tree stands on it, and is one on all systems.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// A name as it stands on disk, whether or not it is a text.
using NativeName = std::filesystem::path::string_type;
using NativeView = std::basic_string_view<NativeName::value_type>;

std::u16string DecodeName(NativeView name);
NativeName EncodeName(std::u16string_view name);

/// Tells a folder from all others, by whatever way it is reached.
struct FolderIdentity {
    std::uint64_t device = 0;
    std::uint64_t number = 0;

    friend bool operator==(const FolderIdentity&, const FolderIdentity&) = default;
};

struct TreeEntry {
    enum class Kind { File, Folder, Link, Device };

    NativeView name;
    Kind kind = Kind::File;
    bool leadsToFolder = false;  ///< where the system tells it without a further look; ask the cursor
};

/// An open folder in which entries are named; it may be kept while the cursor goes on.
class HeldFolder;

/// Stands in a folder, reads it, and goes down and up. It keeps few folders open, however deep it is, and no
/// path has a limit. Another process may change the tree meanwhile: what is lost then isn't found, and the
/// way up never leads elsewhere than the way down. For one thread at a time; raises nothing but memory
/// exhaustion.
class FolderCursor {
public:
    /// Stands in the folder at `path`, a path in the library's form; links are followed. Not open when there
    /// is no such folder or it can't be read.
    explicit FolderCursor(const CString& path);
    FolderCursor(const FolderCursor&) = delete;
    FolderCursor& operator=(const FolderCursor&) = delete;
    ~FolderCursor();

    bool IsOpen() const noexcept;
    /// The folder it stands in.
    FolderIdentity Identity() const noexcept;
    /// How far below the first folder it stands, and the names on the way down to there, from 1 on.
    std::size_t Depth() const noexcept;
    const NativeName& NameOnWay(std::size_t depth) const;

    /// Goes down; into a link to a folder only with `followsLinks`. False, and it stays where it is, when
    /// that can't be done.
    bool Enter(const NativeName& name, bool followsLinks);
    /// Goes up by one. False when the way up is lost, and then it isn't open any more.
    bool Leave();

    /// The next entry, in the system's order and without "." and ".."; its name is valid until the next call.
    /// Null at the end. Reading begins anew with `Enter` and with `Rewind`, and is over with `Leave`.
    const TreeEntry* Next();
    void Rewind();
    /// Whether an entry is a folder or a link that leads to one.
    bool LeadsToFolder(const TreeEntry& entry) const;

    /// Whether the folder in which it stands has an entry of this name, be it a link that leads nowhere.
    bool Has(const NativeName& name) const;

    // --- Entries of the folder it stands in. False when it can't be done.

    /// Removes a file that isn't marked as read-only, or a link of any kind, which isn't followed.
    bool Remove(const TreeEntry& entry);
    /// Also a link to a folder, which isn't followed.
    bool RemoveEmptyFolder(const NativeName& name);
    /// `lacksRoom`, if given, tells whether it failed because there was no room.
    bool MakeFolder(const NativeName& name, bool* lacksRoom = nullptr);

    std::shared_ptr<const HeldFolder> Hold() const;

private:
    struct State;
    std::unique_ptr<State> m_state;
};

}  // namespace QsPlatform
