// The companion of the benchmark's installation: every section has the same four quota libraries.
#include <cstdint>
#include <string>

#include "QsUtils/directory/LibraryVisitor.h"

namespace {

std::wstring root;

struct DirectoryVisitor final : ILibraryDirectoryVisitor {
    void Reserved0() override {}
    void Reserved1() override {}
    std::wstring GetLibraryPath(const LibraryPathQuery& query) override {
        const std::wstring section = root + query.Family + L"\\" + query.Section + L"\\";
        switch (query.PathKind) {
            case LibraryPath_Root:
                return root;
            case LibraryPath_Family:
                return root + query.Family + L"\\";
            case LibraryPath_Quota:
                return section;
            case LibraryPath_SubLibraryRoot:
                return section + L"items\\";
            default:
                return {};
        }
    }
    void Reserved3() override {}
    std::wstring GetLibraryTag(const std::wstring& name) override { return name; }
};

struct SectionVisitor final : ILibraryGlobalConfigVisitor {
    LibraryEntry entries[4] = {{L"1", L"1", L"1.dek", {L"ZJ"}, {L"item1"}},
                               {L"2", L"2", L"2.dek", {L"ZJ"}, {L"item1", L"item2"}},
                               {L"3", L"3", L"3.dek", {}, {L"item1"}},
                               {L"4", L"4", L"missing.dek", {L"ZJ"}, {L"item2"}}};

    void Reserved0() override {}
    void Reserved1() override {}
    void Reserved2() override {}
    std::wstring GetLibraryOwner() override { return L"owner"; }
    std::wstring GetLibraryProvider() override { return L"provider"; }
    void Reserved5() override {}
    void Reserved6() override {}
    void Reserved7() override {}
    void Reserved8() override {}
    void Reserved9() override {}
    void Reserved10() override {}
    LibraryEntry* FindEntryByKey(const std::wstring&, std::int32_t) override { return nullptr; }
    LibraryEntry* FindEntryByName(const std::wstring&, std::int32_t) override { return nullptr; }
    void GetLibraryEntries(std::map<std::wstring, LibraryEntry*>& map, std::int32_t) override {
        for (LibraryEntry& entry : entries)
            map[entry.Name] = &entry;
    }
};

DirectoryVisitor directories;
SectionVisitor sections;

}  // namespace

#define EXPORTED extern "C" __attribute__((visibility("default")))

EXPORTED void InitializationSupportProduct(const wchar_t* folder, std::int32_t) {
    root = std::wstring(folder) + L"libraries\\";
}

EXPORTED ILibraryDirectoryVisitor* GetLibraryDirectoryVisitor() {
    return &directories;
}

EXPORTED ILibraryGlobalConfigVisitor* GetLibraryGlobalConfigVisitor(const wchar_t*, const wchar_t*) {
    return &sections;
}
