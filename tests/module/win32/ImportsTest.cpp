// What the module needs around it: a product carries nothing along but the module itself.
#include <string>

#include <windows.h>
#include <gtest/gtest.h>

namespace {

std::wstring FolderOf(HMODULE module) {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(::GetModuleFileNameW(module, path.data(), MAX_PATH));
    path.resize(path.find_last_of(L'\\'));
    return path;
}

std::wstring SystemFolder() {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(::GetSystemDirectoryW(path.data(), MAX_PATH));
    return path;
}

TEST(ModuleImports, AllComesFromTheSystem) {
    const HMODULE module = ::LoadLibraryA(QSUTILS_MODULE);
    ASSERT_NE(module, nullptr);
    const auto* const base = reinterpret_cast<const std::byte*>(module);
    const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* const image = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const DWORD place = image->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    int count = 0;
    for (const auto* entry = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + place); entry->Name != 0;
         ++entry) {
        const auto* const name = reinterpret_cast<const char*>(base + entry->Name);
        EXPECT_EQ(::lstrcmpiW(FolderOf(::GetModuleHandleA(name)).c_str(), SystemFolder().c_str()), 0) << name;
        ++count;
    }
    EXPECT_GT(count, 0);
    ::FreeLibrary(module);
}

}  // namespace
