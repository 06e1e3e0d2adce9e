// The interfaces of the contract, each over a part of the catalogue. A visitor changes nothing, so any number
// of threads may ask it.
#pragma once

#include "QsUtils/directory/LibraryVisitor.h"

namespace Companion {

struct Catalogue;
struct Section;
struct Library;
struct Family;

class DirectoryVisitor final : public ILibraryDirectoryVisitor {
public:
    explicit DirectoryVisitor(const Catalogue& catalogue) noexcept : m_catalogue(catalogue) {}
    void Reserved0() override {}
    void Reserved1() override {}
    std::wstring GetLibraryPath(const LibraryPathQuery& query) noexcept override;
    void Reserved3() override {}
    std::wstring GetLibraryTag(const std::wstring& name) noexcept override;

private:
    const Catalogue& m_catalogue;
};

class SectionVisitor final : public ILibraryGlobalConfigVisitor {
public:
    explicit SectionVisitor(Section& section) noexcept : m_section(section) {}
    void Reserved0() override {}
    void Reserved1() override {}
    void Reserved2() override {}
    std::wstring GetLibraryOwner() noexcept override;
    std::wstring GetLibraryProvider() noexcept override;
    void Reserved5() override {}
    void Reserved6() override {}
    void Reserved7() override {}
    void Reserved8() override {}
    void Reserved9() override {}
    void Reserved10() override {}
    LibraryEntry* FindEntryByKey(const std::wstring& key, std::int32_t kind) noexcept override;
    LibraryEntry* FindEntryByName(const std::wstring& name, std::int32_t kind) noexcept override;
    void GetLibraryEntries(std::map<std::wstring, LibraryEntry*>& entries,
                           std::int32_t kind) noexcept override;

private:
    Section& m_section;
};

class BillVisitor final : public IBillLibraryConfigVisitor {
public:
    explicit BillVisitor(const Library& library) noexcept : m_library(library) {}
    void Reserved0() override {}
    void Reserved1() override {}
    /// Whether the catalogue has a rule for the library.
    bool GetRule(BillLibraryRule& rule) noexcept override;

private:
    const Library& m_library;
};

class FamilyVisitor final : public IEnterpriseBillLibraryConfigVisitor {
public:
    explicit FamilyVisitor(Family& family) noexcept : m_family(family) {}
    void Reserved0() override {}
    void Reserved1() override {}
    void Reserved2() override {}
    void Reserved3() override {}
    void Reserved4() override {}
    EnterpriseBillFile* FindBillFile(const std::wstring& name) noexcept override;
    EnterpriseBillRecord* FindBillRecord(const std::wstring& name) noexcept override;

private:
    Family& m_family;
};

}  // namespace Companion
