// Random catalogues, written to disk and asked through the module, against the tables that they were written
// from.
#include <map>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "companion/Text.h"
#include "tests/companion/LoadedCompanion.h"
#include "tests/support/Rounds.h"

namespace {

struct PlainLibrary {
    std::wstring name;
    std::wstring shown;
    std::wstring file;
    std::wstring key;
    std::vector<std::wstring> tags;
    std::vector<std::wstring> itemTags;
};

struct PlainSection {
    std::wstring owner;
    std::wstring provider;
    std::vector<PlainLibrary> libraries[2];
};

struct PlainCatalogue {
    std::map<std::wstring, std::map<std::wstring, PlainSection>> families;
    std::map<std::wstring, std::wstring> items;
    std::map<std::wstring, std::map<std::wstring, std::wstring>> bills;
};

class Generator {
public:
    explicit Generator(unsigned seed) : m_random(seed) {}

    PlainCatalogue Make() {
        PlainCatalogue catalogue;
        for (int i = Count(6); i > 0; --i)
            catalogue.items[Name()] = Word();
        for (int i = Count(4); i > 0; --i) {
            const std::wstring family = Name();
            for (int k = Count(4); k > 0; --k)
                catalogue.families[family][Name()] = MakeSection(catalogue);
            if (catalogue.families.count(family) > 0 && Count(2) > 0)
                catalogue.bills[family][Name()] = Word();
        }
        return catalogue;
    }

private:
    int Count(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }

    std::wstring Word() {
        static constexpr const wchar_t* parts[] = {L"建", L"装", L"2012", L"a", L"B", L"&",   L"<",
                                                   L"\"", L"'",  L" x",   L"😀", L".", L"定额"};
        std::wstring word;
        for (int i = Count(4) + 1; i > 0; --i)
            word += parts[m_random() % std::size(parts)];
        return word + L"z";
    }
    /// One that hasn't been given before, and that every system takes for a file.
    std::wstring Name() {
        std::wstring name;
        for (const wchar_t unit : Word())
            name += unit == L'<' || unit == L'"' ? L'_' : unit;
        return name + std::to_wstring(m_next++);
    }
    std::vector<std::wstring> Words(int limit) {
        std::vector<std::wstring> words;
        for (int i = Count(limit); i > 0; --i)
            words.emplace_back(Companion::Trimmed(Word()));
        return words;
    }

    PlainSection MakeSection(const PlainCatalogue& catalogue) {
        PlainSection section;
        section.provider = Name();
        section.owner = Count(2) > 0 ? section.provider : Word();
        for (std::vector<PlainLibrary>& libraries : section.libraries) {
            for (int i = Count(5); i > 0; --i) {
                PlainLibrary library{Name(),   {}, Name(), Count(2) > 0 ? Name() : std::wstring(),
                                     Words(4), {}};
                library.shown = Count(2) > 0 ? library.name : Word();
                for (const auto& item : catalogue.items) {
                    if (Count(2) > 0)
                        library.itemTags.emplace_back(Companion::Trimmed(item.second));
                }
                libraries.push_back(std::move(library));
            }
        }
        return section;
    }

    std::mt19937 m_random;
    unsigned m_next = 0;
};

std::string XmlEscaped(const std::wstring& text) {
    std::string escaped;
    for (const char unit : Companion::ToUtf8(text)) {
        if (unit == '&')
            escaped += "&amp;";
        else if (unit == '<')
            escaped += "&lt;";
        else if (unit == '"')
            escaped += "&quot;";
        else
            escaped += unit;
    }
    return escaped;
}

std::string Attribute(const char* name, const std::wstring& value) {
    return value.empty() ? std::string() : std::string(" ") + name + "=\"" + XmlEscaped(value) + "\"";
}

std::wstring Joined(const std::vector<std::wstring>& words) {
    std::wstring joined;
    for (const std::wstring& word : words)
        joined += (joined.empty() ? L"" : L"; ") + word;
    return joined;
}

std::string SectionFile(const PlainSection& section) {
    std::string text = "<Section" + Attribute("Provider", section.provider) +
                       (section.owner == section.provider ? "" : Attribute("Owner", section.owner)) + ">\n";
    for (int kind = 0; kind < 2; ++kind) {
        for (const PlainLibrary& library : section.libraries[kind]) {
            text += (kind == 0 ? "<Bill" : "<Quota") + Attribute("Name", library.name) +
                    Attribute("File", library.file) + Attribute("Key", library.key) +
                    Attribute("Tags", Joined(library.tags)) + Attribute("ItemTags", Joined(library.itemTags));
            if (kind == 1 && library.shown != library.name)
                text += Attribute("Title", library.shown);
            text += "/>\n";
        }
    }
    return text + "</Section>\n";
}

void Write(const PlainCatalogue& catalogue, const TemporaryFolder& folder) {
    std::string main = "<Catalogue Report=\"report.txt\">\n";
    for (const auto& [name, tag] : catalogue.items)
        main += "<Item" + Attribute("Name", name) + Attribute("Tag", std::wstring(Companion::Trimmed(tag))) +
                "/>\n";
    int files = 0;
    for (const auto& [family, sections] : catalogue.families) {
        const bool hasBills = catalogue.bills.count(family) > 0;
        const std::string billsFile = "bills" + std::to_string(files++) + ".xml";
        main += "<Family" + Attribute("Name", family) +
                (hasBills ? " EnterpriseBills=\"" + billsFile + "\"" : "") + ">\n";
        for (const auto& [name, section] : sections) {
            const std::string file = "sections/" + std::to_string(files++) + ".xml";
            main += "<Section" + Attribute("Name", name) + " File=\"" + file + "\"/>\n";
            folder.Write("LibVisitor/" + file, SectionFile(section));
        }
        main += "</Family>\n";
        if (hasBills) {
            std::string bills = "<EnterpriseBills>\n";
            for (const auto& [name, text] : catalogue.bills.at(family))
                bills += "<Bill" + Attribute("Name", name) + ">\n " + XmlEscaped(text) + "\n</Bill>\n";
            folder.Write("LibVisitor/" + billsFile, bills + "</EnterpriseBills>\n");
        }
    }
    folder.Write("LibVisitor/Catalogue.xml", main + "</Catalogue>\n");
}

void ExpectLibraries(const std::vector<PlainLibrary>& libraries, ILibraryGlobalConfigVisitor& visitor,
                     std::int32_t kind) {
    std::map<std::wstring, LibraryEntry*> entries;
    visitor.GetLibraryEntries(entries, kind);
    ASSERT_EQ(entries.size(), libraries.size());
    for (const PlainLibrary& library : libraries) {
        LibraryEntry* const entry = visitor.FindEntryByName(library.name, kind);
        ASSERT_NE(entry, nullptr);
        EXPECT_EQ(entries[library.name], entry);
        EXPECT_EQ(entry->Name, library.name);
        EXPECT_EQ(entry->LibraryFile, kind == 0 ? library.file : library.shown);
        EXPECT_EQ(entry->DataFile, kind == 0 ? std::wstring() : library.file);
        EXPECT_EQ(entry->Tags, library.tags);
        EXPECT_EQ(entry->ItemTags, library.itemTags);
        EXPECT_EQ(visitor.FindEntryByKey(library.key, kind), library.key.empty() ? nullptr : entry);
        EXPECT_EQ(visitor.FindEntryByName(library.name, 1 - kind), nullptr);
    }
}

void ExpectAnswers(const PlainCatalogue& catalogue, const LoadedCompanion& companion) {
    for (const auto& [name, tag] : catalogue.items)
        EXPECT_EQ(companion.Directories()->GetLibraryTag(name), std::wstring(Companion::Trimmed(tag)));
    for (const auto& [family, sections] : catalogue.families) {
        for (const auto& [name, section] : sections) {
            ILibraryGlobalConfigVisitor* const visitor = companion.Section(family.c_str(), name.c_str());
            ASSERT_NE(visitor, nullptr);
            EXPECT_EQ(visitor->GetLibraryOwner(), section.owner);
            EXPECT_EQ(visitor->GetLibraryProvider(), section.provider);
            for (std::int32_t kind = 0; kind < 2; ++kind)
                ExpectLibraries(section.libraries[kind], *visitor, kind);
        }
        const auto bills = catalogue.bills.find(family);
        ASSERT_EQ(companion.EnterpriseBills(family.c_str()) != nullptr, bills != catalogue.bills.end());
        if (bills == catalogue.bills.end())
            continue;
        for (const auto& [name, text] : bills->second)
            EXPECT_EQ(companion.EnterpriseBills(family.c_str())->FindBillRecord(name)->Text,
                      std::wstring(Companion::Trimmed(text)));
    }
}

}  // namespace

TEST(RandomCatalogues, AnswerAsTheTablesSay) {
    for (int round = 0; round < Rounds(200) && !testing::Test::HasFatalFailure(); ++round) {
        const PlainCatalogue catalogue = Generator(static_cast<unsigned>(round)).Make();
        const TemporaryFolder folder;
        Write(catalogue, folder);
        const LoadedCompanion companion;
        companion.Initialize(folder);
        ASSERT_NE(companion.Directories(), nullptr) << round;
        ExpectAnswers(catalogue, companion);
        // There are no library files: that, and nothing else, is wrong.
        std::istringstream report(folder.Read("LibVisitor/report.txt"));
        for (std::string line; std::getline(report, line);)
            EXPECT_NE(line.find("there is no folder"), std::string::npos) << line;
    }
}
