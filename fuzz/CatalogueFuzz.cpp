// A catalogue of any bytes: the main file, a section's and that of the enterprise bills, whichever the bytes
// begin with. What is read must hang together, and every complaint must name a line that the file has.
#include <algorithm>
#include <cstdlib>
#include <string>

#include "tests/companion/MemoryDisk.h"

namespace {

void Require(bool holds) {
    if (!holds)
        std::abort();
}

constexpr const char* Main =
    "<Catalogue><Item Name=\"i\" Tag=\"T\"/><Family Name=\"f\" EnterpriseBills=\"b.xml\">"
    "<Section Name=\"s\"/></Family></Catalogue>";

void RequireWhole(Companion::Section& section) {
    for (Companion::LibraryTable& table : section.kinds) {
        for (const auto& [name, library] : table.byName) {
            Require(!name.empty() && library.entry.Name == name);
            Require(library.key.empty() || table.byKey.at(library.key) == &library);
        }
        Require(table.byKey.size() <= table.byName.size());
    }
}

void RequireWhole(Companion::Catalogue& catalogue) {
    for (std::int32_t kind = -1; kind <= Companion::Folders::KindCount; ++kind) {
        const std::wstring path = catalogue.folders.Path(kind, L"f", L"s", L"i");
        Require(path.empty() || (path.ends_with(L'\\') && Companion::RootLength(path) > 0));
        Require(path.find(L"\\..\\") == std::wstring::npos);
    }
    for (auto& [family, content] : catalogue.families) {
        for (auto& [section, libraries] : content.sections)
            RequireWhole(libraries);
        for (const auto& [name, bill] : content.bills)
            Require(bill.record.Name == name && !(bill.file.FileName.empty() && bill.record.Text.empty()));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const std::string bytes(reinterpret_cast<const char*>(data + 1), size - 1);
    MemoryDisk disk;
    disk.Add(L"Library\\f\\s\\");
    disk.Add(L"LibVisitor\\Catalogue.xml", data[0] % 3 == 0 ? bytes : Main);
    disk.Add(L"LibVisitor\\f\\s.xml", data[0] % 3 == 1 ? bytes : "<Section Provider=\"p\"/>");
    disk.Add(L"LibVisitor\\b.xml", data[0] % 3 == 2 ? bytes : "<EnterpriseBills/>");
    Companion::Faults faults;
    const auto catalogue = Companion::ReadCatalogue(disk, MemoryDisk::Path(L"LibVisitor\\"), faults);
    if (catalogue != nullptr) {
        Companion::CheckFiles(disk, *catalogue, faults);
        RequireWhole(*catalogue);
    }
    const auto breaks = static_cast<std::size_t>(
        std::count_if(bytes.begin(), bytes.end(), [](char unit) { return unit == '\n' || unit == '\r'; }));
    for (const Companion::Fault& fault : faults.List())
        Require(fault.line <= breaks + 1 && !fault.text.empty());
    return 0;
}
