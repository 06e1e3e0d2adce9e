// Random days of a project: its files and its backup beside a plain model of both.
#include <filesystem>
#include <iterator>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/frame/IQsUtils.h"

#include "tests/backup/BackedUpProject.h"
#include "tests/backup/PlainBackUp.h"
#include "tests/backup/faults/FaultPoints.h"
#include "tests/support/Rounds.h"

namespace {

namespace fs = std::filesystem;

/// Two projects of one name in two folders, and the backup that they share, on the disk and in the model.
class Days {
public:
    explicit Days(unsigned seed) : m_random(seed) {
        for (const char* root : {"a", "b"}) {
            fs::create_directory(OnDisk(root));
            m_files.entries[root].isFolder = true;
        }
        m_files.entries["tempfile"].isFolder = true;
    }

    void Step() {
        if (Chance(2)) {
            Edit();
            return;
        }
        const std::string root = Chance(3) ? "b" : "a";
        PlainBackUp model(m_files, root + "/p", "tempfile/backup");
        const CString project = m_project.Folder().Text(root) + u"\\" + Name() + u".gcs";
        switch (m_random() % 4) {
            case 0:
                model.Open();
                return IQsUtils::InitBackUpInfo(project);
            case 1:
                model.Save();
                return IQsUtils::OnBackUpSaveFile(project);
            case 2:
                model.Change();
                return IQsUtils::UpdateGraphicFileVer(project);
            default:
                model.Discard();
                return IQsUtils::OnNotSaveGraphicFile(project);
        }
    }

    std::string Difference() const {
        PlainFiles found;
        for (const char* root : {"a", "b"})
            Scan(OnDisk(root), root, found);
        found.entries["tempfile"].isFolder = true;
        if (fs::exists(m_project.BackUp()))
            Scan(m_project.BackUp(), "tempfile/backup", found);
        std::string text;
        for (const auto& [path, entry] : found.entries)
            if (!m_files.Has(path) || m_files.entries.at(path) != entry)
                text += "on disk: " + TextOf(path, entry);
        for (const auto& [path, entry] : m_files.entries)
            if (!found.Has(path) || found.entries.at(path) != entry)
                text += "in the model: " + TextOf(path, entry);
        return text;
    }

    /// So that nothing stays behind.
    void TakeMarksOff() const {
        for (const auto& [path, entry] : m_files.entries)
            if (entry.isReadOnly)
                Mark(path, false);
    }

private:
    bool Chance(unsigned oneOf) { return m_random() % oneOf == 0; }
    template <std::size_t n>
    std::string OneOf(const char* const (&texts)[n]) {
        return texts[m_random() % n];
    }
    CString Name() const { return FromNativePath(m_project.Graphics().filename()); }

    /// The model has short names for what stands where the library puts it.
    fs::path OnDisk(const std::string& path) const {
        const std::string backUp = "tempfile/backup";
        if (path.starts_with(backUp))
            return path == backUp ? m_project.BackUp() : m_project.BackUp() / path.substr(backUp.size() + 1);
        std::string real = path;
        if (path.size() > 2 && path[2] == 'p')
            real.replace(2, 1, m_project.Graphics().filename().string());
        return m_project.Folder().File(real);
    }

    std::string ModelName(const std::string& name) const {
        const std::string real = m_project.Graphics().filename().string();
        return name.starts_with(real) ? "p" + name.substr(real.size()) : name;
    }

    void Scan(const fs::path& folder, const std::string& path, PlainFiles& found) const {
        found.entries[path].isFolder = true;
        for (const auto& entry : fs::directory_iterator(folder)) {
            const std::string below = path + "/" + ModelName(entry.path().filename().string());
            if (entry.is_directory()) {
                Scan(entry.path(), below, found);
                continue;
            }
            PlainFiles::Entry& file = found.entries[below];
            file.bytes = BytesOf(entry.path());
            file.isReadOnly = (entry.status().permissions() & fs::perms::owner_write) == fs::perms::none;
        }
    }

    static std::string TextOf(const std::string& path, const PlainFiles::Entry& entry) {
        return path + (entry.isFolder ? "/" : " = " + entry.bytes) +
               (entry.isReadOnly ? " (read-only)\n" : "\n");
    }

    void Mark(const std::string& path, bool isReadOnly) const {
        fs::permissions(OnDisk(path), fs::perms::owner_write,
                        isReadOnly ? fs::perm_options::remove : fs::perm_options::add);
    }

    // --- What users and their programs do, on the disk and in the model

    void Write(const std::string& path, const std::string& bytes) {
        const std::string folder = path.substr(0, path.rfind('/'));
        if (!m_files.IsFolder(folder) && m_files.Has(folder))
            return;
        if (!m_files.Has(folder)) {
            MakeFolder(folder);
            if (!m_files.IsFolder(folder))
                return;
        }
        if (m_files.IsFolder(path) || (m_files.Has(path) && m_files.entries[path].isReadOnly))
            return;
        m_files.entries[path].bytes = bytes;
        WriteBytes(OnDisk(path), bytes);
    }

    void MakeFolder(const std::string& path) {
        const std::string above = path.substr(0, path.rfind('/'));
        if (!m_files.Has(above) && above.find('/') != std::string::npos)
            MakeFolder(above);
        if (m_files.CreateFolder(path))
            fs::create_directory(OnDisk(path));
    }

    void Remove(const std::string& path) {
        if (!m_files.Has(path))
            return;
        for (auto entry = m_files.entries.lower_bound(path); entry != m_files.entries.end();) {
            const bool isBelow = entry->first == path || entry->first.starts_with(path + "/");
            if (isBelow && entry->second.isReadOnly)
                Mark(entry->first, false);
            entry = isBelow ? m_files.entries.erase(entry) : std::next(entry);
        }
        fs::remove_all(OnDisk(path));
    }

    void TurnMark(const std::string& path) {
        if (!m_files.IsFile(path))
            return;
        bool& mark = m_files.entries[path].isReadOnly;
        mark = !mark;
        Mark(path, mark);
    }

    void Edit() {
        static constexpr const char* Graphics[] = {"a/p", "a/p", "b/p", "tempfile/backup/BackUpGraphicFile"};
        static constexpr const char* Names[] = {"1.dwg", "2.dwg",     "s",         "s/1.dwg",
                                                "s/t",   "s/t/1.dwg", "u/v/1.dwg", "u"};
        static constexpr const char* DataBases[] = {"a/p.mdb", "b/p.mdb",
                                                    "tempfile/backup/BackUpDataBase.mdb"};
        static constexpr const char* Versions[] = {
            "",
            "[GraphicFileInfo]\r\nRunVer=01\r\nBackUpVer=1\r\n",
            "[GraphicFileInfo]\nRunVer=x\n",
            "[GraphicFileInfo]\r\nBackUpVer=7\r\n",
            "[graphicfileinfo]\r\nrunver = 5\r\n;x\r\nBACKUPVER='5'\r\n",
            "[other]\r\nRunVer=9\r\n",
            "[GraphicFileInfo]\r\nRunVer=\r\nBackUpVer=\"\"\r\n"};
        const std::string graphics = OneOf(Graphics);
        const std::string inside = graphics + "/" + OneOf(Names);
        switch (m_random() % 12) {
            case 0:
                return Remove(Chance(2) ? graphics : inside);
            case 1:
                return Remove(OneOf(DataBases));
            case 2:
                return Write(OneOf(DataBases), "database " + std::to_string(m_random()));
            case 3:
                return Chance(2) ? Remove("tempfile/backup/FileVer.ini")
                                 : Write("tempfile/backup/FileVer.ini", OneOf(Versions));
            case 4:
                return TurnMark(OneOf(DataBases));
            case 5:
            case 6:
                return TurnMark(inside);
            case 7:
                return MakeFolder(inside);
            case 8:
                return Chance(4) ? Remove("tempfile/backup") : TurnMark("tempfile/backup/FileVer.ini");
            default:
                return Write(inside, "drawing " + std::to_string(m_random()));
        }
    }

    std::mt19937 m_random;
    BackedUpProject m_project;
    PlainFiles m_files;
};

TEST(BackUpModel, RandomDaysEndAsDescribed) {
    for (unsigned seed = 0; seed < static_cast<unsigned>(FileRounds(60)); ++seed) {
        Days days(seed);
        for (int step = 0; step < 100; ++step) {
            days.Step();
            const std::string difference = days.Difference();
            if (!difference.empty()) {
                days.TakeMarksOff();
                FAIL() << "seed " << seed << ", step " << step << ":\n" << difference;
            }
        }
        days.TakeMarksOff();
    }
}

}  // namespace
