// A disk that holds what a test says, for the reader of catalogues.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "companion/CatalogueCheck.h"
#include "companion/CatalogueReader.h"
#include "companion/Disk.h"
#include "companion/Faults.h"
#include "companion/System.h"

class MemoryDisk final : public Companion::Disk {
public:
    /// The root of an absolute path on this system, in the library's form.
    static std::wstring Root() { return Companion::LibraryForm(std::filesystem::current_path().root_path()); }
    /// A path below `app`, where the tests have everything.
    static std::wstring Path(std::wstring_view below) { return Root() + L"app\\" + std::wstring(below); }

    /// Adds a file below `app`; the folders on the way come into being.
    MemoryDisk& Add(std::wstring_view below, std::string bytes = {}) {
        const std::wstring path = Path(below);
        for (std::size_t at = path.find(L'\\'); at != std::wstring::npos; at = path.find(L'\\', at + 1))
            m_folders.insert(path.substr(0, at + 1));
        if (!path.ends_with(L'\\'))
            m_files[path] = std::move(bytes);
        return *this;
    }
    void Remove(std::wstring_view below) { m_files.erase(Path(below)); }

    std::optional<std::string> Read(const std::wstring& path) const override {
        const auto found = m_files.find(path);
        return found == m_files.end() ? std::nullopt : std::optional(found->second);
    }
    bool HasFile(const std::wstring& path) const override { return m_files.count(path) > 0; }
    bool HasFolder(const std::wstring& path) const override { return m_folders.count(path) > 0; }

private:
    std::map<std::wstring, std::string> m_files;
    std::set<std::wstring> m_folders;
};

/// What became of a catalogue in `app\LibVisitor`.
struct ReadingResult {
    std::unique_ptr<Companion::Catalogue> catalogue;
    /// Each as "file:line: text", the files without the folder of the catalogue in front; other paths in
    /// texts begin with "app/".
    std::string faults;
};

inline std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

inline ReadingResult ReadFrom(const MemoryDisk& disk) {
    ReadingResult result;
    Companion::Faults faults;
    result.catalogue = Companion::ReadCatalogue(disk, MemoryDisk::Path(L"LibVisitor\\"), faults);
    if (result.catalogue != nullptr)
        Companion::CheckFiles(disk, *result.catalogue, faults);
    std::string lines = Companion::FaultLines(faults);
    lines = Replaced(lines, Companion::ShownPath(MemoryDisk::Path(L"LibVisitor\\")), "");
    lines = Replaced(lines, Companion::ShownPath(MemoryDisk::Path(L"")), "app/");
    for (char& unit : lines)
        unit = unit == '\\' ? '/' : unit;
    result.faults = lines;
    return result;
}
