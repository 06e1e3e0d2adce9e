// What the module exports: all that hosts bind to is there, and nothing else.
#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "tests/c_api/CFunctions.h"
#include "tests/module/ExportedNames.h"
#include "tests/support/ExportedSymbols.h"

namespace {

void ReplaceAll(std::string& text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

// Standard types under the names by which they are written in a header.
std::string ShortName(std::string name) {
    static const std::pair<const char*, const char*> rules[] = {
        {"[abi:cxx11]", ""},
        {"std::__cxx11::", "std::"},
        {"std::basic_string<wchar_t, std::char_traits<wchar_t>, std::allocator<wchar_t> >", "std::wstring"},
        {"std::basic_string<char, std::char_traits<char>, std::allocator<char> >", "std::string"},
        {", std::allocator<CString> >", ">"},
        {", std::allocator<CThreadTask*> >", ">"},
        {"unsigned long long", "std::uint64_t"},
        {"unsigned long", "std::uint64_t"},
        {"unsigned int", "std::uint32_t"},
        {", std::allocator<std::pair<CString, void*> > >", ">"},
        {", std::less<int>, std::allocator<std::pair<int const, CString> > >", ">"},
        {", std::less<CString>, std::allocator<std::pair<CString const, CString> > >", ">"},
        {", std::allocator<QS_ProjectOverView::stuColInfo*> >", ">"},
    };
    for (const auto& [from, to] : rules)
        ReplaceAll(name, from, to);
    return name;
}

std::vector<ExportedSymbol> DefinedSymbols() {
    std::vector<ExportedSymbol> symbols = ExportedSymbols(QSUTILS_MODULE);
    for (ExportedSymbol& symbol : symbols)
        symbol.name = ShortName(std::move(symbol.name));
    return symbols;
}

TEST(ModuleExports, AllThatHostsBindToIsThere) {
    std::set<std::string> names;
    for (const ExportedSymbol& symbol : DefinedSymbols())
        names.insert(symbol.name);
    for (const char* expected : exportedNames)
        EXPECT_TRUE(names.contains(expected)) << expected;
    for (const std::string& expected : SystemNamesOfModule())
        EXPECT_TRUE(names.contains(expected)) << expected;
}

TEST(ModuleExports, NothingElseLeavesTheModule) {
    static const std::string exportedClasses[] = {"CAtlException",
                                                  "CCodeParser",
                                                  "CQSThreadManager",
                                                  "CSAutoLock",
                                                  "CSLock",
                                                  "CString",
                                                  "DirectoryManager::ICommonDirectory",
                                                  "DirectoryManager::ILibraryDirectory",
                                                  "DirectoryManager::IProjectDirectory",
                                                  "CThreadTask",
                                                  "CTimeCostTracker",
                                                  "ExpressionAnalyse::IExpressionAnalyse",
                                                  "ExpressionAnalyse::IExpressionNode",
                                                  "IQsUtils",
                                                  "IQsUtils1",
                                                  "ITaskResultNotify",
                                                  "LibraryManager::ILibraryManager",
                                                  "NS_XMLACCESS::IXmlAccessTool",
                                                  "QS_ProjectOverView::CProjectOverViewFactory",
                                                  "XMLNode"};
    std::set<std::string> expected(std::begin(exportedNames), std::end(exportedNames));
    expected.insert(std::begin(cFunctions), std::end(cFunctions));
    expected.merge(SystemNamesOfModule());
    const auto isMember = [](const std::string& name) {
        return std::any_of(std::begin(exportedClasses), std::end(exportedClasses),
                           [&](const std::string& one) {
                               return name.starts_with(one + "::") || name == "vtable for " + one ||
                                      name == "typeinfo for " + one || name == "typeinfo name for " + one;
                           });
    };
    const std::vector<ExportedSymbol> symbols = DefinedSymbols();
    EXPECT_FALSE(symbols.empty());
    for (const ExportedSymbol& symbol : symbols)
        EXPECT_TRUE(isMember(symbol.name) || expected.contains(symbol.name)) << symbol.name;
}

std::set<std::string> ListedSymbols() {
    std::ifstream list(EXPORT_LIST);
    std::set<std::string> symbols;
    for (std::string line; std::getline(list, line);)
        symbols.insert(line);
    return symbols;
}

// The names alone don't tell of overloads, tables and the variants of constructors, and hosts are linked with
// all of them.
TEST(ModuleExports, TheBoundaryIsTheListedOne) {
    std::set<std::string> listed = ListedSymbols();
    ASSERT_FALSE(listed.empty());
    for (const ExportedSymbol& symbol : ExportedSymbols(QSUTILS_MODULE))
        EXPECT_EQ(listed.erase(symbol.symbol), 1u) << symbol.name << " is new; see scripts/list-exports";
    for (const std::string& symbol : listed)
        ADD_FAILURE() << Demangled(symbol) << " is gone; see scripts/list-exports";
}

// One such symbol, bound once for the whole process, would keep the module mapped for ever.
TEST(ModuleExports, NoSymbolIsUnique) {
    for (const ExportedSymbol& symbol : DefinedSymbols())
        EXPECT_FALSE(symbol.isUnique) << symbol.name;
}

}  // namespace
