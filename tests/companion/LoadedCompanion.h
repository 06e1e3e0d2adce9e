// The built companion, loaded by its file as the library does it, over a catalogue that a test writes.
#pragma once

#include <string>

#include "QsUtils/directory/LibraryVisitor.h"

#include "companion/System.h"
#include "tests/support/SharedModule.h"
#include "tests/support/TemporaryFolder.h"

class LoadedCompanion {
public:
    LoadedCompanion() : m_module(COMPANION_MODULE) {}

    void Initialize(const TemporaryFolder& folder) const {
        const std::wstring text = Companion::LibraryForm(folder.Path()) + L"\\LibVisitor\\";
        Initialize(text.c_str());
    }
    void Initialize(const wchar_t* folder) const {
        Function<LibraryCompanion::InitializationSupportProduct>("InitializationSupportProduct")(folder, 1);
    }
    ILibraryDirectoryVisitor* Directories() const {
        return Function<LibraryCompanion::GetLibraryDirectoryVisitor>("GetLibraryDirectoryVisitor")();
    }
    ILibraryGlobalConfigVisitor* Section(const wchar_t* family, const wchar_t* section) const {
        return Function<LibraryCompanion::GetLibraryGlobalConfigVisitor>("GetLibraryGlobalConfigVisitor")(
            family, section);
    }
    IBillLibraryConfigVisitor* Bill(const wchar_t* family, const wchar_t* section,
                                    const wchar_t* library) const {
        return Function<LibraryCompanion::GetBillLibraryConfigVisitor>("GetBillLibraryConfigVisitor")(
            family, section, library);
    }
    IEnterpriseBillLibraryConfigVisitor* EnterpriseBills(const wchar_t* family) const {
        return Function<LibraryCompanion::GetEnterpriseBillLibraryConfigVisitor>(
            "GetEnterpriseBillLibraryConfigVisitor")(family);
    }
    std::int32_t Series() const { return Function<LibraryCompanion::GetLibrarySeries>("GetLibrarySeries")(); }

private:
    template <typename F>
    F* Function(const char* name) const {
        return m_module.Function<F>(name);
    }

    SharedModule m_module;
};
