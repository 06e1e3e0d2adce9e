#include "companion/CatalogueCheck.h"

#include <algorithm>
#include <vector>

#include "companion/System.h"
#include "companion/Text.h"

namespace Companion {

namespace {

class Check {
public:
    Check(const Disk& disk, const Catalogue& catalogue, Faults& faults)
        : m_disk(disk), m_catalogue(catalogue), m_faults(faults) {}

    void All() {
        for (const auto& [name, tag] : m_catalogue.itemTags)
            m_itemsOfTag[tag].push_back(name);
        // Below a missing root everything is missing.
        if (!HasFolder(m_catalogue.folders.Path(LibraryPath_Root), m_catalogue.file, m_catalogue.rootLine))
            return;
        for (const auto& [name, family] : m_catalogue.families)
            CheckFamily(name, family);
    }

private:
    using Names = std::vector<std::wstring>;

    bool HasFolder(const std::wstring& folder, const std::wstring& file, std::size_t line) {
        const bool has = m_disk.HasFolder(folder);
        if (!has)
            m_faults.Add(file, line, "there is no folder " + ShownPath(folder));
        return has;
    }

    void CheckFamily(const std::wstring& name, const Family& family) {
        const std::wstring folder = m_catalogue.folders.Path(LibraryPath_Family, name);
        if (HasFolder(folder, m_catalogue.file, family.line)) {
            for (const auto& [section, content] : family.sections) {
                if (HasFolder(folder + section + L"\\", m_catalogue.file, content.line))
                    CheckSection(name, section, content);
            }
        }
        Files files{m_disk, m_faults, family.billsFile,
                    m_catalogue.folders.Path(LibraryPath_EnterpriseBill, name)};
        for (const auto& each : family.bills) {
            if (!each.second.file.FileName.empty())
                files.Look(each.second.file.FileName, each.second.line);
        }
    }

    void CheckSection(const std::wstring& family, const std::wstring& name, const Section& section) {
        const Folders& folders = m_catalogue.folders;
        Files bills{m_disk, m_faults, section.file,
                    folders.Path(LibraryPath_BillRoot, family, name) + section.provider + L"\\"};
        // Without a provider bill libraries have no folder, and that has been reported.
        for (const auto& each : section.kinds[LibraryKind_Bill].byName) {
            if (!section.provider.empty())
                bills.Look(each.second.entry.LibraryFile, each.second.line);
        }
        Files quotas{m_disk, m_faults, section.file, folders.Path(LibraryPath_Quota, family, name)};
        for (const auto& each : section.kinds[LibraryKind_Quota].byName)
            quotas.Look(each.second.entry.DataFile, each.second.line);
        for (const LibraryTable& table : section.kinds)
            CheckItems(family, name, section, table);
    }

    /// A library shows up below an item that has its tag, as long as that item has a folder in the section.
    void CheckItems(const std::wstring& family, const std::wstring& name, const Section& section,
                    const LibraryTable& table) {
        std::set<std::wstring> seen;
        const auto has = [&](const std::wstring& item) {
            return m_disk.HasFolder(m_catalogue.folders.Path(LibraryPath_SubLibrary, family, name, item));
        };
        for (const auto& [library, content] : table.byName) {
            for (const std::wstring& tag : content.entry.ItemTags) {
                if (!seen.insert(tag).second)
                    continue;
                const Names& items = m_itemsOfTag[tag];
                if (std::none_of(items.begin(), items.end(), has))
                    m_faults.Add(
                        section.file, content.line,
                        "no item of the tag \"" + ToUtf8(tag) + "\" has a folder in " +
                            ShownPath(m_catalogue.folders.Path(LibraryPath_SubLibraryRoot, family, name)));
            }
        }
    }

    /// The files of one folder; a missing folder is reported once.
    struct Files {
        const Disk& disk;
        Faults& faults;
        const std::wstring& catalogueFile;
        std::wstring folder;
        bool isChecked = false;
        bool isThere = false;

        void Look(const std::wstring& name, std::size_t line) {
            if (!isChecked) {
                isChecked = true;
                isThere = disk.HasFolder(folder);
                if (!isThere)
                    faults.Add(catalogueFile, line, "there is no folder " + ShownPath(folder));
            }
            if (isThere && !disk.HasFile(folder + name))
                faults.Add(catalogueFile, line, "there is no file " + ShownPath(folder + name));
        }
    };

    const Disk& m_disk;
    const Catalogue& m_catalogue;
    Faults& m_faults;
    std::map<std::wstring, Names> m_itemsOfTag;
};

}  // namespace

void CheckFiles(const Disk& disk, const Catalogue& catalogue, Faults& faults) {
    Check(disk, catalogue, faults).All();
}

}  // namespace Companion
