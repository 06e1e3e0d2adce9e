// A name looked for in a tree of folders.
#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "QsUtils/platform/EntryNames.h"
#include "QsUtils/platform/FolderCursor.h"
#include "QsUtils/platform/FolderTrees.h"

namespace QsPlatform {

namespace {

/// How much of "\tail\" the units of a path end in, unit by unit (Knuth, Morris and Pratt, 1977); once it has
/// been met whole it stays so.
class TailProgress {
public:
    explicit TailProgress(const CString& tail) {
        if (tail.IsEmpty())
            return;
        m_wanted = u'\\' + std::u16string(tail.View()) + u'\\';
        m_borders.resize(m_wanted.size(), 0);
        for (std::size_t i = 1; i < m_wanted.size(); ++i)
            m_borders[i] = Behind(m_borders[i - 1], m_wanted[i]);
    }

    std::size_t Advance(std::size_t progress, std::u16string_view units) const {
        for (const char16_t unit : units) {
            if (IsMet(progress))
                break;
            progress = Behind(progress, unit);
        }
        return progress;
    }
    bool IsMet(std::size_t progress) const noexcept { return progress == m_wanted.size(); }

private:
    std::size_t Behind(std::size_t progress, char16_t unit) const {
        while (progress > 0 && m_wanted[progress] != unit)
            progress = m_borders[progress - 1];
        return m_wanted[progress] == unit ? progress + 1 : 0;
    }

    std::u16string m_wanted;
    std::vector<std::size_t> m_borders;
};

/// What tells one visit of a folder from another.
struct Visit {
    FolderIdentity folder;
    std::size_t progress;

    friend bool operator==(const Visit&, const Visit&) = default;
};

struct VisitHash {
    std::size_t operator()(const Visit& visit) const noexcept {
        return static_cast<std::size_t>((visit.folder.number * 31 + visit.folder.device) * 31 +
                                        visit.progress);
    }
};

struct Subfolder {
    std::u16string name;
    NativeName native;
};

bool ComesFirst(const Subfolder& a, const Subfolder& b) {
    return StandsBefore(a.name, b.name);
}

/// A folder on the way down.
struct Level {
    std::vector<Subfolder> subfolders;  // those still to be searched; the next one at the end
    std::size_t progress = 0;
    bool isFoundHere = false;  // and stands, unless a subfolder holds a find
};

class Search {
public:
    Search(const CString& folder, const CString& name, const CString& tail)
        : m_cursor(folder),
          m_folder(folder),
          m_name(name),
          m_nativeName(EncodeName(name.View())),
          m_tail(tail) {}

    CString Run() {
        if (!m_cursor.IsOpen())
            return {};
        Begin(m_tail.Advance(0, m_folder.View()));
        while (!m_levels.empty() && m_cursor.IsOpen()) {
            Level& level = m_levels.back();
            if (!level.subfolders.empty()) {
                const Subfolder next = std::move(level.subfolders.back());
                level.subfolders.pop_back();
                if (m_cursor.Enter(next.native, true))
                    Begin(m_tail.Advance(m_tail.Advance(level.progress, next.name), u"\\"));
            } else if (level.isFoundHere) {
                return FoundPath();
            } else {
                m_levels.pop_back();
                m_cursor.Leave();
            }
        }
        return {};
    }

private:
    /// Looks through the folder that the cursor has come to.
    void Begin(std::size_t progress) {
        Level& level = m_levels.emplace_back();
        level.progress = progress;
        if (!m_visits.insert({m_cursor.Identity(), progress}).second)
            return;  // it held nothing, or is being searched
        bool isHere = false;
        while (const TreeEntry* const entry = m_cursor.Next()) {
            isHere = isHere || (entry->name == m_nativeName && m_tail.IsMet(progress));
            if (entry->kind != TreeEntry::Kind::File && m_cursor.LeadsToFolder(*entry))
                level.subfolders.push_back({DecodeName(entry->name), NativeName(entry->name)});
        }
        if (isHere)
            WeighFind(level);
        std::sort(level.subfolders.rbegin(), level.subfolders.rend(), ComesFirst);
    }

    /// A find stands when the entry behind it is a file or there is none; what is behind it then isn't
    /// searched.
    void WeighFind(Level& level) {
        std::optional<std::u16string> behind;
        bool isFolderBehind = false;
        m_cursor.Rewind();
        while (const TreeEntry* const entry = m_cursor.Next()) {
            std::u16string name = DecodeName(entry->name);
            if (!StandsBefore(m_name.View(), name) || (behind && !StandsBefore(name, *behind)))
                continue;
            behind = std::move(name);
            isFolderBehind = m_cursor.LeadsToFolder(*entry);
        }
        level.isFoundHere = !isFolderBehind;
        if (level.isFoundHere)
            std::erase_if(level.subfolders,
                          [this](const Subfolder& each) { return StandsBefore(m_name.View(), each.name); });
    }

    CString FoundPath() const {
        std::u16string path(m_folder.View());
        for (std::size_t depth = 1; depth <= m_cursor.Depth(); ++depth) {
            path += DecodeName(m_cursor.NameOnWay(depth));
            path += u'\\';
        }
        path += m_name.View();
        return CString(std::move(path));
    }

    FolderCursor m_cursor;
    CString m_folder;
    CString m_name;
    NativeName m_nativeName;
    TailProgress m_tail;
    std::vector<Level> m_levels;
    std::unordered_set<Visit, VisitHash> m_visits;
};

}  // namespace

CString FindInTree(const CString& folder, const CString& name, const CString& tail) {
    return Search(folder, name, tail).Run();
}

}  // namespace QsPlatform
