// A companion whose answers stand in the test: the module forwards every call of its exports to a script.
#pragma once

#include <cstdint>

#include "QsUtils/directory/LibraryVisitor.h"

class CompanionScript {
public:
    virtual ~CompanionScript() = default;
    virtual void Initialise(const wchar_t* folder, std::int32_t product) = 0;
    /// The two operations of the directory visitor, which the library keeps and which is the module's own.
    virtual std::wstring GetLibraryPath(const LibraryPathQuery& query) = 0;
    virtual std::wstring GetLibraryTag(const std::wstring& name) = 0;
    virtual ILibraryGlobalConfigVisitor* SectionVisitor(const wchar_t* family, const wchar_t* section) = 0;
    virtual IBillLibraryConfigVisitor* BillVisitor(const wchar_t* family, const wchar_t* section,
                                                   const wchar_t* library) = 0;
    virtual IEnterpriseBillLibraryConfigVisitor* EnterpriseVisitor(const wchar_t* family) = 0;
    virtual std::int32_t Series() = 0;
};

extern "C" {

/// The script, which stays the caller's, from now on.
void UseCompanionScript(CompanionScript* script);
}
