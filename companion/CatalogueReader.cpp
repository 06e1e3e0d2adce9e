#include "companion/CatalogueReader.h"

#include <algorithm>
#include <limits>

#include "companion/EnterpriseBillReader.h"
#include "companion/FirstLines.h"
#include "companion/Paths.h"
#include "companion/SectionReader.h"
#include "companion/Text.h"
#include "companion/XmlFile.h"

namespace Companion {

namespace {

constexpr const wchar_t* MainFile = L"Catalogue.xml";
constexpr const wchar_t* DefaultRoot = L"..\\Library";
constexpr std::wstring_view XmlEnding = L".xml";

bool HasEnding(std::wstring_view name, std::wstring_view lowerCase) {
    if (name.size() < lowerCase.size())
        return false;
    const auto isSame = [](wchar_t lower, wchar_t unit) {
        return (unit >= L'A' && unit <= L'Z' ? unit + (L'a' - L'A') : unit) == lower;
    };
    return std::equal(lowerCase.begin(), lowerCase.end(), name.end() - lowerCase.size(), isSame);
}

/// A slip of the pen must not cost somebody a catalogue, a library or the companion itself.
bool IsReportName(std::wstring_view name) {
    return HasEnding(name, L".txt") || HasEnding(name, L".log");
}

class CatalogueReader {
public:
    CatalogueReader(const Disk& disk, std::wstring folder, const XmlFile& file, Catalogue& catalogue,
                    Faults& faults)
        : m_disk(disk), m_folder(std::move(folder)), m_file(file), m_catalogue(catalogue), m_faults(faults) {}

    void ReadAll() {
        ReadRoot();
        const std::vector<pugi::xml_node> elements =
            m_file.Elements(m_file.Root(), {"Folder", "Item", "Family"});
        // Sections are checked against the items, wherever those stand in the file.
        for (const pugi::xml_node element : elements) {
            if (element.name() == std::string_view("Folder"))
                ReadFolder(element);
            else if (element.name() == std::string_view("Item"))
                ReadItem(element);
        }
        for (const pugi::xml_node element : elements) {
            if (element.name() == std::string_view("Family"))
                ReadFamily(element);
        }
    }

private:
    void ReadRoot() {
        const Attributes attributes(m_file, m_file.Root(), {"Series", "Root", "Report"});
        constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
        m_catalogue.series = attributes.Number("Series", 0, most).value_or(0);
        const std::wstring root = attributes.Text("Root").value_or(DefaultRoot);
        m_catalogue.folders = Folders(Resolve(m_folder, root));
        m_catalogue.rootLine = attributes.LineOf("Root");
        const std::wstring report = attributes.Text("Report").value_or(std::wstring());
        if (IsReportName(report))
            m_catalogue.report = Resolve(m_folder, report);
        else if (!report.empty())
            m_file.Report(attributes.LineOf("Report"), "the Report is named neither .txt nor .log");
    }

    void ReadFolder(pugi::xml_node element) {
        const Attributes attributes(m_file, element, {"Kind", "Path"});
        m_file.Elements(element, {});
        if (!attributes.RequiredText("Kind"))
            return;
        const auto kind = attributes.Number("Kind", 0, Folders::KindCount - 1);
        const auto path = attributes.Text("Path");
        if (!kind || !m_kinds.IsNew(m_file, attributes, "Kind", std::to_wstring(*kind)))
            return;
        if (!path) {
            m_file.Report(attributes.LineOf("Path"), "<Folder> has no Path");
            return;
        }
        const std::string wrong = m_catalogue.folders.SetPattern(*kind, *path);
        if (!wrong.empty())
            m_file.Report(attributes.LineOf("Path"), "the Path of <Folder>: " + wrong);
    }

    void ReadItem(pugi::xml_node element) {
        const Attributes attributes(m_file, element, {"Name", "Tag"});
        m_file.Elements(element, {});
        const auto name = attributes.EntryName("Name");
        const auto tag = attributes.RequiredText("Tag");
        if (!name || !tag || !m_items.IsNew(m_file, attributes, "Name", *name))
            return;
        m_catalogue.itemTags.emplace(*name, *tag);
        m_catalogue.tags.insert(*tag);
    }

    void ReadFamily(pugi::xml_node element) {
        const Attributes attributes(m_file, element, {"Name", "EnterpriseBills"});
        const std::vector<pugi::xml_node> sections = m_file.Elements(element, {"Section"});
        const auto name = attributes.EntryName("Name");
        if (!name || !m_families.IsNew(m_file, attributes, "Name", *name))
            return;
        Family& family = m_catalogue.families[*name];
        family.line = attributes.Line();
        if (sections.empty())
            m_file.Report(family.line, "the family \"" + ToUtf8(*name) + "\" has no section");
        FirstLines names;
        for (const pugi::xml_node each : sections)
            ReadSectionElement(each, *name, family, names);
        const std::wstring bills = attributes.Text("EnterpriseBills").value_or(std::wstring());
        if (!bills.empty())
            ReadBills(Resolve(m_folder, bills), family);
    }

    void ReadSectionElement(pugi::xml_node element, const std::wstring& familyName, Family& family,
                            FirstLines& names) {
        const Attributes attributes(m_file, element, {"Name", "File"});
        m_file.Elements(element, {});
        const auto name = attributes.EntryName("Name");
        if (!name || !names.IsNew(m_file, attributes, "Name", *name))
            return;
        const std::wstring file =
            attributes.Text("File").value_or(familyName + L"\\" + *name + std::wstring(XmlEnding));
        Section& section = family.sections[*name];
        section.line = attributes.Line();
        section.file = Resolve(m_folder, file);
        if (!ReadSection(m_disk, m_catalogue.tags, section, m_faults))
            family.sections.erase(*name);
    }

    void ReadBills(std::wstring file, Family& family) {
        family.billsFile = std::move(file);
        if (!ReadEnterpriseBills(m_disk, family, m_faults))
            family.billsFile.clear();
    }

    const Disk& m_disk;
    const std::wstring m_folder;
    const XmlFile& m_file;
    Catalogue& m_catalogue;
    Faults& m_faults;
    FirstLines m_kinds;
    FirstLines m_items;
    FirstLines m_families;
};

}  // namespace

std::unique_ptr<Catalogue> ReadCatalogue(const Disk& disk, const std::wstring& folder, Faults& faults) {
    std::wstring path = Resolve(folder, MainFile);
    const std::unique_ptr<XmlFile> file = XmlFile::Read(disk, path, "Catalogue", faults);
    if (file == nullptr)
        return nullptr;
    auto catalogue = std::make_unique<Catalogue>();
    catalogue->file = std::move(path);
    CatalogueReader(disk, folder, *file, *catalogue, faults).ReadAll();
    return catalogue;
}

}  // namespace Companion
