// The module's exports: one catalogue, read at the first initialisation and kept until the module leaves.
#include <atomic>
#include <exception>
#include <filesystem>
#include <memory>
#include <thread>

#include "QsUtils/directory/LibraryVisitor.h"

#include "companion/Catalogue.h"
#include "companion/CatalogueCheck.h"
#include "companion/CatalogueReader.h"
#include "companion/Disk.h"
#include "companion/Faults.h"
#include "companion/System.h"

namespace {

using Companion::Catalogue;

enum Phase : int { NotBegun, Loading, Loaded };

// A lock would leave memory behind with every load of the module on some systems, so there is none.
std::atomic<int> thePhase{NotBegun};
std::unique_ptr<Catalogue> theCatalogue;

/// Null before the initialisation, and when there is no catalogue.
Catalogue* LoadedCatalogue() noexcept {
    return thePhase.load(std::memory_order_acquire) == Loaded ? theCatalogue.get() : nullptr;
}

void Load(const wchar_t* folder) {
    using namespace Companion;
    Faults faults;
    const std::wstring absolute = LibraryForm(std::filesystem::absolute(NativePath(folder)));
    const SystemDisk disk;
    // No form of the library's for a folder's name: the catalogue isn't looked for anywhere else.
    std::unique_ptr<Catalogue> catalogue = absolute.empty() ? nullptr : ReadCatalogue(disk, absolute, faults);
    if (catalogue != nullptr)
        CheckFiles(disk, *catalogue, faults);
    Publish(faults, catalogue == nullptr ? std::wstring() : catalogue->report);
    theCatalogue = std::move(catalogue);
}

Companion::Family* FindFamily(const wchar_t* name) {
    Catalogue* const catalogue = LoadedCatalogue();
    if (catalogue == nullptr || name == nullptr)
        return nullptr;
    const auto found = catalogue->families.find(name);
    return found == catalogue->families.end() ? nullptr : &found->second;
}

Companion::Section* FindSection(const wchar_t* family, const wchar_t* name) {
    Companion::Family* const parent = FindFamily(family);
    if (parent == nullptr || name == nullptr)
        return nullptr;
    const auto found = parent->sections.find(name);
    return found == parent->sections.end() ? nullptr : &found->second;
}

/// The result of `find`; null when there is no memory for asking, since no exception may leave the module.
template <typename Find>
auto FoundOrNull(Find find) noexcept -> decltype(find()) {
    try {
        return find();
    } catch (const std::exception&) {
        return nullptr;
    }
}

}  // namespace

extern "C" {

// Declared by the contract's types, so that a difference is an error.
COMPANION_EXPORT LibraryCompanion::InitializationSupportProduct InitializationSupportProduct;
COMPANION_EXPORT LibraryCompanion::GetLibraryDirectoryVisitor GetLibraryDirectoryVisitor;
COMPANION_EXPORT LibraryCompanion::GetLibraryGlobalConfigVisitor GetLibraryGlobalConfigVisitor;
COMPANION_EXPORT LibraryCompanion::GetBillLibraryConfigVisitor GetBillLibraryConfigVisitor;
COMPANION_EXPORT LibraryCompanion::GetEnterpriseBillLibraryConfigVisitor
    GetEnterpriseBillLibraryConfigVisitor;
COMPANION_EXPORT LibraryCompanion::GetLibrarySeries GetLibrarySeries;

void InitializationSupportProduct(const wchar_t* folder, std::int32_t) {
    if (folder == nullptr)
        return;
    int phase = NotBegun;
    if (!thePhase.compare_exchange_strong(phase, Loading, std::memory_order_acquire)) {
        while (thePhase.load(std::memory_order_acquire) == Loading)
            std::this_thread::yield();
        return;
    }
    try {
        Load(folder);
    } catch (const std::exception&) {
        theCatalogue.reset();  // out of memory, or no current folder to start from: as without a catalogue
    }
    thePhase.store(Loaded, std::memory_order_release);
}

ILibraryDirectoryVisitor* GetLibraryDirectoryVisitor() {
    Catalogue* const catalogue = LoadedCatalogue();
    return catalogue == nullptr ? nullptr : &catalogue->visitor;
}

ILibraryGlobalConfigVisitor* GetLibraryGlobalConfigVisitor(const wchar_t* family, const wchar_t* section) {
    return FoundOrNull([&]() -> ILibraryGlobalConfigVisitor* {
        Companion::Section* const found = FindSection(family, section);
        return found == nullptr ? nullptr : &found->visitor;
    });
}

IBillLibraryConfigVisitor* GetBillLibraryConfigVisitor(const wchar_t* family, const wchar_t* section,
                                                       const wchar_t* library) {
    return FoundOrNull([&]() -> IBillLibraryConfigVisitor* {
        Companion::Section* const parent = FindSection(family, section);
        if (parent == nullptr || library == nullptr)
            return nullptr;
        auto& libraries = parent->kinds[LibraryKind_Bill].byName;
        const auto found = libraries.find(library);
        return found == libraries.end() ? nullptr : &found->second.visitor;
    });
}

IEnterpriseBillLibraryConfigVisitor* GetEnterpriseBillLibraryConfigVisitor(const wchar_t* family) {
    return FoundOrNull([&]() -> IEnterpriseBillLibraryConfigVisitor* {
        Companion::Family* const found = FindFamily(family);
        return found == nullptr || found->billsFile.empty() ? nullptr : &found->visitor;
    });
}

std::int32_t GetLibrarySeries() {
    Catalogue* const catalogue = LoadedCatalogue();
    return catalogue == nullptr ? -1 : catalogue->series;
}

}  // extern "C"
