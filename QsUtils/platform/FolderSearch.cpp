// A name looked for in a tree of folders.
#include <algorithm>
#include <atomic>
#include <cstddef>
#include <exception>
#include <mutex>
#include <new>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "QsUtils/platform/AbandonedVersions.h"
#include "QsUtils/platform/EntryNames.h"
#include "QsUtils/platform/FolderCursor.h"
#include "QsUtils/platform/FolderTrees.h"
#include "QsUtils/platform/HelperThread.h"
#include "QsUtils/platform/TailProgress.h"

namespace QsPlatform {

namespace {

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

bool IsVisitedFirst(const Subfolder& a, const Subfolder& b) {
    return StandsBefore(a.name, b.name);
}

/// A folder on the way down.
struct Level {
    std::vector<Subfolder> subfolders;  // those still to be searched; the next one at the end
    std::size_t progress = 0;
    bool isFoundHere = false;  // and stands, unless a subfolder holds a find
};

/// What is looked for.
struct Question {
    Question(const CString& in, const CString& what, const CString& tailText)
        : folder(in), name(what), nativeName(EncodeName(what.View())), tail(tailText) {}

    CString folder;
    CString name;
    NativeName nativeName;
    TailProgress tail;
};

/// The subfolders of the first folder, shared out between two searches: one takes them from the front, in
/// their order, and its first find is the result; the other one takes them from the end.
class Share {
public:
    static constexpr std::size_t None = static_cast<std::size_t>(-1);

    void Fill(std::vector<Subfolder> subfolders) {
        m_subfolders = std::move(subfolders);
        m_end = m_subfolders.size();
    }
    const Subfolder& At(std::size_t index) const { return m_subfolders[index]; }
    std::size_t TakeFirst() {
        const std::lock_guard lock(m_mutex);
        return m_begin < m_end ? m_begin++ : None;
    }
    std::size_t TakeLast() {
        const std::lock_guard lock(m_mutex);
        return m_begin < m_end ? --m_end : None;
    }

private:
    std::mutex m_mutex;
    std::vector<Subfolder> m_subfolders;  // in their order; constant once it is filled
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
};

class Search {
public:
    explicit Search(const Question& question) : m_question(question) { Restart(); }

    bool IsOpen() const { return m_cursor->IsOpen(); }
    std::size_t FoldersRead() const { return m_visits.size(); }

    /// Reads the first folder.
    Level ReadTop() {
        Level top = Read(m_question.tail.Advance(0, m_question.folder.View()));
        std::reverse(top.subfolders.begin(), top.subfolders.end());
        return top;
    }

    /// Searches one subfolder of the first folder. `onFolder` is called after each folder that is read, and
    /// ends the search with false.
    template <typename OnFolder>
    CString SearchSubfolder(const Subfolder& subfolder, std::size_t progress, OnFolder onFolder) {
        std::vector<Level> levels;
        if (!IsOpen())
            Restart();  // the way up was lost
        if (!IsOpen() || !Enter(levels, subfolder, progress))
            return {};
        while (!levels.empty() && m_cursor->IsOpen() && onFolder()) {
            Level& level = levels.back();
            if (!level.subfolders.empty()) {
                const Subfolder next = std::move(level.subfolders.back());
                level.subfolders.pop_back();
                Enter(levels, next, level.progress);
            } else if (level.isFoundHere) {
                return FoundPath();
            } else {
                levels.pop_back();
                m_cursor->Leave();
            }
        }
        return {};
    }

    /// Goes back to the first folder from wherever it is, and forgets which folders hold nothing.
    void Restart() {
        m_visits.clear();
        m_cursor.emplace(m_question.folder);
        if (m_cursor->IsOpen())
            m_visits.insert({m_cursor->Identity(), m_question.tail.Advance(0, m_question.folder.View())});
    }

    CString FoundPath() const {
        std::u16string path(m_question.folder.View());
        for (std::size_t depth = 1; depth <= m_cursor->Depth(); ++depth) {
            path += DecodeName(m_cursor->NameOnWay(depth));
            path += u'\\';
        }
        path += m_question.name.View();
        return CString(std::move(path));
    }

private:
    /// Goes down, unless that folder held nothing before or is being searched.
    bool Enter(std::vector<Level>& levels, const Subfolder& subfolder, std::size_t above) {
        const TailProgress& tail = m_question.tail;
        const std::size_t progress = tail.Advance(tail.Advance(above, subfolder.name), u"\\");
        if (!m_cursor->Enter(subfolder.native, true))
            return false;
        if (!m_visits.insert({m_cursor->Identity(), progress}).second) {
            m_cursor->Leave();
            return false;
        }
        levels.push_back(Read(progress));
        return true;
    }

    /// Looks through the folder in which the cursor stands.
    Level Read(std::size_t progress) {
        Level level;
        level.progress = progress;
        bool isHere = false;
        while (const TreeEntry* const entry = m_cursor->Next()) {
            isHere = isHere || (entry->name == m_question.nativeName && m_question.tail.IsMet(progress));
            if (entry->kind == TreeEntry::Kind::File || !m_cursor->LeadsToFolder(*entry))
                continue;
            std::u16string subfolder = DecodeName(entry->name);
            if (!IsVersionName(subfolder))  // whose files needn't be whole
                level.subfolders.push_back({std::move(subfolder), NativeName(entry->name)});
        }
        if (isHere)
            WeighFind(level);
        std::sort(level.subfolders.rbegin(), level.subfolders.rend(), IsVisitedFirst);
        return level;
    }

    /// A find stands when the entry behind it is a file or there is none; what is behind it then isn't
    /// searched.
    void WeighFind(Level& level) {
        const std::u16string_view name = m_question.name.View();
        std::optional<std::u16string> behind;
        bool isFolderBehind = false;
        m_cursor->Rewind();
        while (const TreeEntry* const entry = m_cursor->Next()) {
            std::u16string other = DecodeName(entry->name);
            if (!StandsBefore(name, other) || (behind && !StandsBefore(other, *behind)))
                continue;
            behind = std::move(other);
            isFolderBehind = m_cursor->LeadsToFolder(*entry);
        }
        level.isFoundHere = !isFolderBehind;
        if (level.isFoundHere)
            std::erase_if(level.subfolders,
                          [name](const Subfolder& each) { return StandsBefore(name, each.name); });
    }

    const Question& m_question;
    std::optional<FolderCursor> m_cursor;
    std::unordered_set<Visit, VisitHash> m_visits;
};

/// The search from the end, on a thread of its own. Most of a search is the kernel's, reading folders; a
/// second processor halves it.
class Helper {
public:
    Helper(const Question& question, Share& share, std::size_t progress)
        : m_question(question), m_share(share), m_progress(progress) {}
    Helper(const Helper&) = delete;
    Helper& operator=(const Helper&) = delete;
    ~Helper() { Stop(); }

    void Start() {
        if (!m_isTried && HasSecondProcessor())
            m_thread.Start([](void* helper) { static_cast<Helper*>(helper)->Work(); }, this);
        m_isTried = true;
    }
    void Stop() noexcept {
        m_isStopped.store(true, std::memory_order_relaxed);
        m_thread.Join();
    }
    /// Waits, and gives the find that comes first, or nothing.
    CString Wait() {
        m_thread.Join();
        if (m_hasFailed)
            throw std::bad_alloc();
        return m_found;
    }

private:
    void Work() noexcept {
        try {
            Search search(m_question);
            const auto goesOn = [this] { return !m_isStopped.load(std::memory_order_relaxed); };
            while (goesOn()) {
                const std::size_t index = m_share.TakeLast();
                if (index == Share::None)
                    return;
                CString found = search.SearchSubfolder(m_share.At(index), m_progress, goesOn);
                if (found.IsEmpty())
                    continue;
                m_found = std::move(found);  // of one that comes before all others until now
                search.Restart();
            }
        } catch (const std::exception&) {
            m_hasFailed = true;  // out of memory
        }
    }

    const Question& m_question;
    Share& m_share;
    std::size_t m_progress;
    std::atomic<bool> m_isStopped{false};
    bool m_isTried = false;
    bool m_hasFailed = false;
    CString m_found;
    HelperThread m_thread;  // the last one: it is waited for before the others go
};

/// A search that reads fewer folders is over before a thread has begun.
constexpr std::size_t FoldersWithoutHelp = 40;

}  // namespace

CString FindInTree(const CString& folder, const CString& name, const CString& tail) {
    const Question question(folder, name, tail);
    Search search(question);
    if (!search.IsOpen())
        return {};
    Level top = search.ReadTop();
    Share share;
    share.Fill(std::move(top.subfolders));
    Helper helper(question, share, top.progress);
    const auto onFolder = [&] {
        if (search.FoldersRead() >= FoldersWithoutHelp)
            helper.Start();
        return true;
    };
    for (std::size_t index = share.TakeFirst(); index != Share::None; index = share.TakeFirst()) {
        CString found = search.SearchSubfolder(share.At(index), top.progress, onFolder);
        if (!found.IsEmpty()) {
            helper.Stop();
            return found;
        }
    }
    CString found = helper.Wait();
    return found.IsEmpty() && top.isFoundHere ? folder + name : found;
}

}  // namespace QsPlatform
