// The backup as it is described, step by step, over files that are kept in memory.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/platform/PlainProfile.h"

/// Entries by their paths, with slashes and without one at the end.
class PlainFiles {
public:
    struct Entry {
        bool isFolder = false;
        bool isReadOnly = false;
        std::string bytes;

        friend bool operator==(const Entry&, const Entry&) = default;
    };

    std::map<std::string, Entry> entries;

    bool IsFolder(const std::string& path) const { return Has(path) && entries.at(path).isFolder; }
    bool IsFile(const std::string& path) const { return Has(path) && !entries.at(path).isFolder; }
    bool Has(const std::string& path) const { return entries.count(path) != 0; }

    std::vector<std::string> NamesIn(const std::string& folder) const {
        std::vector<std::string> names;
        for (const auto& [path, entry] : entries)
            if (path.starts_with(folder + "/") && path.find('/', folder.size() + 1) == std::string::npos)
                names.push_back(path.substr(folder.size() + 1));
        return names;
    }

    bool CreateFolder(const std::string& path) {
        if (Has(path) || !IsFolder(path.substr(0, path.rfind('/'))))
            return false;
        entries[path].isFolder = true;
        return true;
    }

    bool DeleteDirectory(const std::string& path) {
        for (const std::string& name : NamesIn(path)) {
            const std::string below = path + "/" + name;
            if (IsFolder(below))
                DeleteDirectory(below);
            else if (!entries[below].isReadOnly)
                entries.erase(below);
        }
        return IsFolder(path) && NamesIn(path).empty() && entries.erase(path) == 1;
    }

    void CopyOneFile(const std::string& source, const std::string& target) {
        if (!IsFile(source) || !IsFolder(target.substr(0, target.rfind('/'))) || IsFolder(target) ||
            (Has(target) && entries[target].isReadOnly))
            return;
        entries[target] = entries[source];
    }

    void CopyFolderAllFiles(const std::string& source, const std::string& target, bool clearTarget) {
        if (clearTarget) {
            DeleteDirectory(target);
            CreateFolder(target);
        }
        for (const std::string& name : NamesIn(source)) {
            const std::string from = source + "/" + name;
            const std::string to = target + "/" + name;
            if (IsFolder(from)) {
                CreateFolder(to);
                CopyFolderAllFiles(from, to, true);
            }
            entries[from].isReadOnly = false;
            CopyOneFile(from, to);
        }
    }
};

class PlainBackUp {
public:
    /// The project's path without its extension, and its folder in the backup.
    PlainBackUp(PlainFiles& files, std::string stem, std::string backUp)
        : m_files(files), m_stem(std::move(stem)), m_backUp(std::move(backUp)) {}

    void Open() {
        Make();
        m_files.CopyOneFile(m_stem + ".mdb", m_backUp + "/BackUpDataBase.mdb");
        m_files.CopyFolderAllFiles(m_stem, m_backUp + "/BackUpGraphicFile", true);
        Write(u"RunVer", u"1");
        Write(u"BackUpVer", u"1");
    }

    void Save() {
        Make();
        m_files.CopyOneFile(m_backUp + "/BackUpDataBase.mdb", m_stem + ".mdb");
        const std::u16string run = Read(u"RunVer");
        if (run != Read(u"BackUpVer")) {
            m_files.CopyFolderAllFiles(m_stem, m_backUp + "/BackUpGraphicFile", true);
            Write(u"BackUpVer", run);
        }
    }

    void Change() {
        Make();
        // The texts of the tests begin with small numbers or with none.
        const std::u16string run = Read(u"RunVer");
        const std::string narrow(run.begin(), run.end());
        const std::string next = std::to_string(std::atoi(narrow.c_str()) + 1);
        Write(u"RunVer", std::u16string(next.begin(), next.end()));
    }

    void Discard() {
        Make();
        const std::u16string backUp = Read(u"BackUpVer");
        if (Read(u"RunVer") != backUp) {
            m_files.CopyFolderAllFiles(m_backUp + "/BackUpGraphicFile", m_stem, true);
            Write(u"RunVer", backUp);
        }
    }

private:
    void Make() { m_files.CreateFolder(m_backUp); }

    std::u16string Read(const std::u16string& key) const {
        const std::string path = m_backUp + "/FileVer.ini";
        return PlainProfile::Text(m_files.IsFile(path) ? m_files.entries.at(path).bytes : std::string(),
                                  u"GraphicFileInfo", key, u"1", 128);
    }

    void Write(const std::u16string& key, const std::u16string& value) {
        PlainFiles::Entry& file = m_files.entries[m_backUp + "/FileVer.ini"];
        if (!file.isFolder && !file.isReadOnly)
            file.bytes = PlainProfile::Set(file.bytes, u"GraphicFileInfo", key, value);
    }

    PlainFiles& m_files;
    std::string m_stem;
    std::string m_backUp;
};
