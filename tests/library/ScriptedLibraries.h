// Cost libraries as a test states them: what the companion knows, and what it was asked.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/library/CompanionScript.h"

/// What a companion knows of a section.
struct ScriptedSection {
    std::wstring owner;
    std::wstring provider;
    /// By the keys of the map that the companion fills; nothing is a null pointer.
    std::map<std::wstring, std::optional<LibraryEntry>> bills;
    std::map<std::wstring, std::optional<LibraryEntry>> quotas;
    /// The keys of quota libraries that aren't names, each with a key of `quotas`.
    std::map<std::wstring, std::wstring> quotaKeys;
    /// By the names of bill libraries; nothing is a visitor that leaves the rule alone.
    std::map<std::wstring, std::optional<BillLibraryRule>> rules;
};

struct ScriptedFamily {
    std::map<std::wstring, ScriptedSection> sections;
    std::map<std::wstring, EnterpriseBillFile> enterpriseFiles;
    std::map<std::wstring, EnterpriseBillRecord> enterpriseRecords;
};

/// Answers the companion's calls, and writes them down without a space between the fields in brackets.
/// Visitors are the same few objects for all sections, as a companion may have it.
class ScriptedLibraries final : public CompanionScript,
                                public ILibraryGlobalConfigVisitor,
                                public IBillLibraryConfigVisitor,
                                public IEnterpriseBillLibraryConfigVisitor {
public:
    /// Where the libraries lie, with a backslash at the end: `families` below it is the root.
    explicit ScriptedLibraries(std::wstring base) : m_base(std::move(base)) {}

    std::map<std::wstring, ScriptedFamily> families;
    std::map<std::wstring, std::wstring> tags;  ///< by item name; empty for others
    /// The queries that have no folder, as "kind[family][section][item]".
    std::set<std::wstring> noFolders;
    std::int32_t series = 0;
    std::vector<std::wstring> calls;

    /// The folder of a query.
    std::wstring PathOf(int kind, const std::wstring& family, const std::wstring& section,
                        const std::wstring& item) const;

    void Initialise(const wchar_t* folder, std::int32_t product) override;
    ILibraryGlobalConfigVisitor* SectionVisitor(const wchar_t* family, const wchar_t* section) override;
    IBillLibraryConfigVisitor* BillVisitor(const wchar_t* family, const wchar_t* section,
                                           const wchar_t* library) override;
    IEnterpriseBillLibraryConfigVisitor* EnterpriseVisitor(const wchar_t* family) override;
    std::int32_t Series() override;

    std::wstring GetLibraryPath(const LibraryPathQuery& query) override;
    std::wstring GetLibraryTag(const std::wstring& name) override;
    std::wstring GetLibraryOwner() override;
    std::wstring GetLibraryProvider() override;
    LibraryEntry* FindEntryByKey(const std::wstring& key, std::int32_t kind) override;
    LibraryEntry* FindEntryByName(const std::wstring& name, std::int32_t kind) override;
    void GetLibraryEntries(std::map<std::wstring, LibraryEntry*>& entries, std::int32_t kind) override;
    bool GetRule(BillLibraryRule& rule) override;
    EnterpriseBillFile* FindBillFile(const std::wstring& name) override;
    EnterpriseBillRecord* FindBillRecord(const std::wstring& name) override;

    void Reserved0() override { Reserved(); }
    void Reserved1() override { Reserved(); }
    void Reserved2() override { Reserved(); }
    void Reserved3() override { Reserved(); }
    void Reserved4() override { Reserved(); }
    void Reserved5() override { Reserved(); }
    void Reserved6() override { Reserved(); }
    void Reserved7() override { Reserved(); }
    void Reserved8() override { Reserved(); }
    void Reserved9() override { Reserved(); }
    void Reserved10() override { Reserved(); }

private:
    using Entries = std::map<std::wstring, std::optional<LibraryEntry>>;

    void Record(std::wstring call) { calls.push_back(std::move(call)); }
    void Reserved() { Record(L"reserved"); }
    Entries& Of(std::int32_t kind) { return kind == LibraryKind_Bill ? m_section->bills : m_section->quotas; }

    std::wstring m_base;
    ScriptedSection* m_section = nullptr;
    ScriptedFamily* m_family = nullptr;
    std::optional<BillLibraryRule>* m_rule = nullptr;
};
