#include "tests/library/CompanionScript.h"

namespace {

CompanionScript* theScript = nullptr;

struct DirectoryVisitor final : ILibraryDirectoryVisitor {
    void Reserved0() override {}
    void Reserved1() override {}
    std::wstring GetLibraryPath(const LibraryPathQuery& query) override {
        return theScript->GetLibraryPath(query);
    }
    void Reserved3() override {}
    std::wstring GetLibraryTag(const std::wstring& name) override { return theScript->GetLibraryTag(name); }
} theVisitor;

}  // namespace

#define EXPORTED extern "C" TEST_EXPORT

EXPORTED void UseCompanionScript(CompanionScript* script) {
    theScript = script;
}

EXPORTED void InitializationSupportProduct(const wchar_t* folder, std::int32_t product) {
    theScript->Initialise(folder, product);
}

EXPORTED ILibraryDirectoryVisitor* GetLibraryDirectoryVisitor() {
    return &theVisitor;
}

EXPORTED ILibraryGlobalConfigVisitor* GetLibraryGlobalConfigVisitor(const wchar_t* family,
                                                                    const wchar_t* section) {
    return theScript->SectionVisitor(family, section);
}

EXPORTED IBillLibraryConfigVisitor* GetBillLibraryConfigVisitor(const wchar_t* family, const wchar_t* section,
                                                                const wchar_t* library) {
    return theScript->BillVisitor(family, section, library);
}

EXPORTED IEnterpriseBillLibraryConfigVisitor* GetEnterpriseBillLibraryConfigVisitor(const wchar_t* family) {
    return theScript->EnterpriseVisitor(family);
}

EXPORTED std::int32_t GetLibrarySeries() {
    return theScript->Series();
}
