// What a catalogue says, as the visitors answer from it.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "QsUtils/directory/LibraryVisitor.h"

#include "companion/Folders.h"
#include "companion/Visitors.h"

namespace Companion {

// Everything stays where it was made: visitors and the records that they hand out point into it.

/// What a catalogue says of a rule; the caller's defaults stand for the rest.
struct RuleText {
    std::optional<std::int32_t> count1;
    std::optional<std::int32_t> count2;
    std::optional<bool> flag1;
    std::optional<bool> flag2;
};

struct Library {
    LibraryEntry entry;
    std::wstring key;              ///< empty when there is none
    std::optional<RuleText> rule;  ///< of a bill library
    BillVisitor visitor{*this};
    std::size_t line = 0;  ///< in the section's file

    Library() = default;
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
};

/// The libraries of one kind in a section.
struct LibraryTable {
    std::map<std::wstring, Library> byName;
    std::map<std::wstring, Library*> byKey;
};

struct Section {
    std::wstring owner;
    std::wstring provider;
    LibraryTable kinds[2];
    SectionVisitor visitor{*this};
    std::wstring file;
    std::size_t line = 0;  ///< in the catalogue's main file

    Section() = default;
    Section(const Section&) = delete;
    Section& operator=(const Section&) = delete;
    /// Null for a kind that there isn't.
    LibraryTable* Kind(std::int32_t kind) noexcept { return kind == 0 || kind == 1 ? &kinds[kind] : nullptr; }
};

struct EnterpriseBill {
    EnterpriseBillFile file;  ///< without a name where there is only a text
    EnterpriseBillRecord record;
    std::size_t line = 0;  ///< in the family's file of enterprise bills
};

struct Family {
    std::map<std::wstring, Section> sections;
    std::map<std::wstring, EnterpriseBill> bills;
    FamilyVisitor visitor{*this};
    std::wstring billsFile;  ///< empty when the family has no such file
    std::size_t line = 0;    ///< in the catalogue's main file

    Family() = default;
    Family(const Family&) = delete;
    Family& operator=(const Family&) = delete;
};

struct Catalogue {
    std::int32_t series = 0;
    Folders folders;
    std::map<std::wstring, std::wstring> itemTags;  ///< by the item's name
    std::set<std::wstring> tags;                    ///< of all items
    std::map<std::wstring, Family> families;
    DirectoryVisitor visitor{*this};
    std::wstring file;
    std::size_t rootLine = 0;  ///< where the root folder is named
    std::wstring report;       ///< the file for what is wrong; empty for standard error

    Catalogue() = default;
    Catalogue(const Catalogue&) = delete;
    Catalogue& operator=(const Catalogue&) = delete;
};

}  // namespace Companion
