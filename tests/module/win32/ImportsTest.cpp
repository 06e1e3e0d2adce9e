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

/// Whether a folder is the system's own, or in the system's store of modules of several versions, from which
/// the manifest asks for the current controls.
bool IsOfTheSystem(const std::wstring& folder) {
    wchar_t system[MAX_PATH] = {};
    wchar_t store[MAX_PATH] = {};
    ::GetSystemDirectoryW(system, MAX_PATH);
    ::GetWindowsDirectoryW(store, MAX_PATH);
    ::lstrcatW(store, L"\\winsxs\\");
    const int length = ::lstrlenW(store);
    return ::lstrcmpiW(folder.c_str(), system) == 0 ||
           ::lstrcmpiW(folder.substr(0, static_cast<std::size_t>(length)).c_str(), store) == 0;
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
        EXPECT_TRUE(IsOfTheSystem(FolderOf(::GetModuleHandleA(name)))) << name;
        ++count;
    }
    EXPECT_GT(count, 0);
    ::FreeLibrary(module);
}

}  // namespace
