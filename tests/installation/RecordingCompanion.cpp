// A companion that writes every call to standard output as a line of the probe's answers, with ">" in front.
// Built several times: each WITHOUT_... leaves an export away, and with ASKS_BACK it calls the library while
// it is asked for a path. Its environment says what it answers:
//   COMPANION_ROOT   the folder in front of all paths, in the library's form; without it all paths are empty
//   COMPANION_NULL   its directory visitor is null
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "QsUtils/directory/LibraryVisitor.h"

#include "tests/support/Escapes.h"

#ifdef ASKS_BACK
#include <QsUtils/QsUtils.h>
#endif

namespace {

/// Units of the plane that test texts are from.
std::u16string Units(std::wstring_view text) {
    return std::u16string(text.begin(), text.end());
}

void Record(const std::wstring& call) {
    std::puts(Escaped(u"> " + Units(call)).c_str());
    std::fflush(stdout);
}

std::wstring Fields(std::initializer_list<std::wstring_view> fields) {
    std::wstring text;
    for (const std::wstring_view each : fields)
        text.append(L"[").append(each).append(L"]");
    return text;
}

std::wstring Environment(const char* name) {
    const char* const value = std::getenv(name);
    const std::string_view text = value == nullptr ? "" : value;
    return std::wstring(text.begin(), text.end());
}

#ifdef ASKS_BACK
/// Asks the one reader that may be waiting for this companion's answer, once for each call from outside.
void AskBack() {
    static bool isAsking = false;
    if (isAsking)
        return;
    isAsking = true;
    IQsUtils1::WriteHistory(u"companion", u"written");
    std::list<CString> history;
    IQsUtils1::GetHistory(u"companion", history);
    IQsUtils1::SetExtraCostData(u"companion", nullptr);
    CString path = u"untouched";
    IQsUtils1::FindPath(path, u"no such folder\\", u"k.mdb", u"");
    const std::list<CString>* const options = IQsUtils1::GetOverHeightList(u"k.mdb", u"F");
    Record(L"asked back: " + (history.empty() ? std::wstring(L"none") : history.front().ToWide()) + L" " +
           Fields({path.ToWide()}) + L" " + std::to_wstring(options == nullptr ? 0 : options->size()));
    isAsking = false;
}
#else
void AskBack() {}
#endif

struct DirectoryVisitor final : ILibraryDirectoryVisitor {
    void Reserved0() override { Record(L"Reserved0"); }
    void Reserved1() override { Record(L"Reserved1"); }
    std::wstring GetLibraryPath(const LibraryPathQuery& query) override {
        Record(L"GetLibraryPath " + std::to_wstring(query.PathKind) + L" " +
               Fields({query.Family, query.Section, query.Item, query.Reserved}));
        AskBack();
        const std::wstring root = Environment("COMPANION_ROOT");
        return root.empty() ? root : root + std::to_wstring(query.PathKind) + L"\\";
    }
    void Reserved3() override { Record(L"Reserved3"); }
    std::wstring GetLibraryTag(const std::wstring& name) override {
        Record(L"GetLibraryTag " + Fields({name}));
        return L"tag of " + name;
    }
};

struct SectionVisitor final : ILibraryGlobalConfigVisitor {
    LibraryEntry bill{L"Bill", L"bill.qdk", L"", {L"ZJ"}, {}};
    LibraryEntry quota{L"Quota", L"quota for users", L"quota.dek", {L"ZJ"}, {L"tag of item"}};

    void Reserved0() override { Record(L"Reserved0"); }
    void Reserved1() override { Record(L"Reserved1"); }
    void Reserved2() override { Record(L"Reserved2"); }
    std::wstring GetLibraryOwner() override {
        Record(L"GetLibraryOwner");
        return L"Owner";
    }
    std::wstring GetLibraryProvider() override {
        Record(L"GetLibraryProvider");
        return L"Provider";
    }
    void Reserved5() override { Record(L"Reserved5"); }
    void Reserved6() override { Record(L"Reserved6"); }
    void Reserved7() override { Record(L"Reserved7"); }
    void Reserved8() override { Record(L"Reserved8"); }
    void Reserved9() override { Record(L"Reserved9"); }
    void Reserved10() override { Record(L"Reserved10"); }
    LibraryEntry* FindEntryByKey(const std::wstring& key, std::int32_t kind) override {
        Record(L"FindEntryByKey " + std::to_wstring(kind) + L" " + Fields({key}));
        return key == L"key" ? &quota : nullptr;
    }
    LibraryEntry* FindEntryByName(const std::wstring& name, std::int32_t kind) override {
        Record(L"FindEntryByName " + std::to_wstring(kind) + L" " + Fields({name}));
        return name == quota.Name ? &quota : nullptr;
    }
    void GetLibraryEntries(std::map<std::wstring, LibraryEntry*>& entries, std::int32_t kind) override {
        Record(L"GetLibraryEntries " + std::to_wstring(kind));
        entries[L"null"] = nullptr;
        entries[L"one"] = kind == LibraryKind_Bill ? &bill : &quota;
    }
};

struct BillVisitor final : IBillLibraryConfigVisitor {
    void Reserved0() override { Record(L"Reserved0"); }
    void Reserved1() override { Record(L"Reserved1"); }
    bool GetRule(BillLibraryRule& rule) override {
        Record(L"GetRule");
        rule.bFlag1 = true;
        return false;
    }
};

struct EnterpriseVisitor final : IEnterpriseBillLibraryConfigVisitor {
    EnterpriseBillFile file{L"enterprise.qyk"};
    EnterpriseBillRecord record{L"its name", L"its text"};

    void Reserved0() override { Record(L"Reserved0"); }
    void Reserved1() override { Record(L"Reserved1"); }
    void Reserved2() override { Record(L"Reserved2"); }
    void Reserved3() override { Record(L"Reserved3"); }
    void Reserved4() override { Record(L"Reserved4"); }
    EnterpriseBillFile* FindBillFile(const std::wstring& name) override {
        Record(L"FindBillFile " + Fields({name}));
        return name == L"none" ? nullptr : &file;
    }
    EnterpriseBillRecord* FindBillRecord(const std::wstring& name) override {
        Record(L"FindBillRecord " + Fields({name}));
        return name == L"none" ? nullptr : &record;
    }
};

DirectoryVisitor directories;
SectionVisitor sections;
BillVisitor bills;
EnterpriseVisitor enterprises;

const struct Presence {
    ~Presence() { Record(L"the companion ends"); }
} presence;

}  // namespace

#define EXPORTED extern "C" TEST_EXPORT

#ifndef WITHOUT_InitializationSupportProduct
EXPORTED void InitializationSupportProduct(const wchar_t* folder, std::int32_t product) {
    Record(L"InitializationSupportProduct " + std::to_wstring(product) + L" " + Fields({folder}));
}
#endif

#ifndef WITHOUT_GetLibraryDirectoryVisitor
EXPORTED ILibraryDirectoryVisitor* GetLibraryDirectoryVisitor() {
    Record(L"GetLibraryDirectoryVisitor");
    return Environment("COMPANION_NULL").empty() ? &directories : nullptr;
}
#endif

#ifndef WITHOUT_GetLibraryGlobalConfigVisitor
EXPORTED ILibraryGlobalConfigVisitor* GetLibraryGlobalConfigVisitor(const wchar_t* family,
                                                                    const wchar_t* section) {
    Record(L"GetLibraryGlobalConfigVisitor " + Fields({family, section}));
    return &sections;
}
#endif

#ifndef WITHOUT_GetBillLibraryConfigVisitor
EXPORTED IBillLibraryConfigVisitor* GetBillLibraryConfigVisitor(const wchar_t* family, const wchar_t* section,
                                                                const wchar_t* library) {
    Record(L"GetBillLibraryConfigVisitor " + Fields({family, section, library}));
    return &bills;
}
#endif

#ifndef WITHOUT_GetEnterpriseBillLibraryConfigVisitor
EXPORTED IEnterpriseBillLibraryConfigVisitor* GetEnterpriseBillLibraryConfigVisitor(const wchar_t* family) {
    Record(L"GetEnterpriseBillLibraryConfigVisitor " + Fields({family}));
    return &enterprises;
}
#endif

#ifndef WITHOUT_GetLibrarySeries
EXPORTED std::int32_t GetLibrarySeries() {
    Record(L"GetLibrarySeries");
    return 1203;
}
#endif
