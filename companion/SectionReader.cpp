#include "companion/SectionReader.h"

#include <limits>

#include "companion/FirstLines.h"
#include "companion/Text.h"
#include "companion/XmlFile.h"

namespace Companion {

namespace {

class SectionReader {
public:
    SectionReader(const XmlFile& file, const std::set<std::wstring>& itemTags, Section& section)
        : m_file(file), m_itemTags(itemTags), m_section(section) {}

    void ReadAll() {
        const Attributes attributes(m_file, m_file.Root(), {"Owner", "Provider"});
        m_section.provider = attributes.EntryName("Provider").value_or(std::wstring());
        m_section.owner = attributes.Text("Owner").value_or(m_section.provider);
        for (const pugi::xml_node element : m_file.Elements(m_file.Root(), {"Bill", "Quota"})) {
            if (element.name() == std::string_view("Bill"))
                ReadBill(element);
            else
                ReadQuota(element);
        }
    }

private:
    void ReadBill(pugi::xml_node element) {
        const Attributes attributes(m_file, element, {"Name", "File", "Key", "Tags", "ItemTags"});
        const std::vector<pugi::xml_node> rules = m_file.Elements(element, {"Rule"});
        const auto file = attributes.EntryName("File");
        Library* const library = file ? Add(attributes, LibraryKind_Bill) : Refuse(attributes);
        if (library == nullptr)
            return;
        library->entry.LibraryFile = *file;
        for (std::size_t i = 0; i < rules.size(); ++i) {
            if (i == 0)
                library->rule = ReadRule(rules[i]);
            else
                m_file.Report(m_file.LineOf(rules[i]), "a second <Rule> in <Bill>");
        }
    }

    RuleText ReadRule(pugi::xml_node element) const {
        const Attributes attributes(m_file, element, {"Count1", "Count2", "Flag1", "Flag2"});
        m_file.Elements(element, {});
        constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
        return {attributes.Number("Count1", 0, most), attributes.Number("Count2", 0, most),
                attributes.Flag("Flag1"), attributes.Flag("Flag2")};
    }

    void ReadQuota(pugi::xml_node element) {
        const Attributes attributes(m_file, element, {"Name", "Title", "File", "Key", "Tags", "ItemTags"});
        m_file.Elements(element, {});
        const auto file = attributes.EntryName("File");
        Library* const library = file ? Add(attributes, LibraryKind_Quota) : Refuse(attributes);
        if (library == nullptr)
            return;
        library->entry.DataFile = *file;
        const std::wstring title = attributes.Text("Title").value_or(std::wstring());
        library->entry.LibraryFile = title.empty() ? library->entry.Name : title;
    }

    /// What else is wrong with a library that is left out is worth telling at once.
    static Library* Refuse(const Attributes& attributes) {
        attributes.RequiredText("Name");
        return nullptr;
    }

    /// Null when the name can't be used.
    Library* Add(const Attributes& attributes, LibraryKind kind) {
        const auto name = attributes.RequiredText("Name");
        if (!name || !m_names[kind].IsNew(m_file, attributes, "Name", *name))
            return nullptr;
        LibraryTable& table = m_section.kinds[kind];
        Library& library = table.byName[*name];
        library.line = attributes.Line();
        library.entry.Name = *name;
        const std::wstring key = attributes.Text("Key").value_or(std::wstring());
        if (!key.empty() && m_keys[kind].IsNew(m_file, attributes, "Key", key)) {
            library.key = key;
            table.byKey.emplace(key, &library);
        }
        library.entry.Tags = SplitList(attributes.Text("Tags").value_or(std::wstring()));
        library.entry.ItemTags = ItemTags(attributes);
        return &library;
    }

    std::vector<std::wstring> ItemTags(const Attributes& attributes) const {
        std::vector<std::wstring> known;
        for (std::wstring& tag : SplitList(attributes.Text("ItemTags").value_or(std::wstring()))) {
            if (m_itemTags.count(tag) > 0)
                known.push_back(std::move(tag));
            else
                m_file.Report(attributes.LineOf("ItemTags"), "no item has the tag \"" + ToUtf8(tag) + "\"");
        }
        return known;
    }

    const XmlFile& m_file;
    const std::set<std::wstring>& m_itemTags;
    Section& m_section;
    FirstLines m_names[2];
    FirstLines m_keys[2];
};

}  // namespace

bool ReadSection(const Disk& disk, const std::set<std::wstring>& itemTags, Section& section, Faults& faults) {
    const std::unique_ptr<XmlFile> file = XmlFile::Read(disk, section.file, "Section", faults);
    if (file == nullptr)
        return false;
    SectionReader(*file, itemTags, section).ReadAll();
    return true;
}

}  // namespace Companion
