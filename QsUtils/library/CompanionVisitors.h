// What the companion module exports, looked up anew at each use.
#pragma once

#include <cstdint>
#include <vector>

#include "QsUtils/directory/LibraryVisitor.h"
#include "QsUtils/text/CString.h"

namespace QsLibrary {

// The visitors are the companion's: they are used at once, under `QsDirectory::CompanionLock`, and never
// kept. Each is null when there is no companion, when it lacks the export, and when it says so.

ILibraryGlobalConfigVisitor* SectionVisitor(const CString& family, const CString& section);
IBillLibraryConfigVisitor* BillVisitor(const CString& family, const CString& section, const CString& library);
IEnterpriseBillLibraryConfigVisitor* EnterpriseBillVisitor(const CString& family);

/// The companion's series; -1 when there is none.
std::int32_t LibrarySeries();

/// The section's entries of a kind without null pointers, ascending by the code units of their keys on every
/// system. They are the companion's as well.
std::vector<const LibraryEntry*> EntriesOf(ILibraryGlobalConfigVisitor& section, LibraryKind kind);

/// Whether the entry is offered to users.
bool IsOffered(const LibraryEntry& entry);

/// The rule of a bill library, its defaults where the visitor says nothing.
BillLibraryRule RuleOf(IBillLibraryConfigVisitor& library);

/// The text by which a companion names the product itself.
inline constexpr const char16_t* OwnProvider = u"墨衡";

}  // namespace QsLibrary
