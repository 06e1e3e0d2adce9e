// The dynamic symbol table of the module: all that hosts bind to is there, and nothing else.
#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <set>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "tests/module/ExportedNames.h"

namespace {

struct Symbol {
    char type;
    std::string name;
};

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
        {", std::allocator<std::pair<CString, void*> > >", ">"},
        {", std::less<int>, std::allocator<std::pair<int const, CString> > >", ">"},
    };
    for (const auto& [from, to] : rules)
        ReplaceAll(name, from, to);
    return name;
}

// Each line is: address, blank, type, blank, name.
std::vector<Symbol> DefinedSymbols() {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> listing(
        popen("nm -DC --defined-only '" QSUTILS_MODULE "'", "r"), pclose);
    std::vector<Symbol> symbols;
    std::array<char, 4096> line{};
    while (listing && std::fgets(line.data(), static_cast<int>(line.size()), listing.get()) != nullptr) {
        std::string text = line.data();
        text.erase(text.find_last_not_of('\n') + 1);
        const std::size_t first = text.find(' ');
        if (first != std::string::npos && text.size() > first + 3)
            symbols.push_back({text[first + 1], ShortName(text.substr(first + 3))});
    }
    return symbols;
}

TEST(ModuleExports, AllThatHostsBindToIsThere) {
    std::set<std::string> names;
    for (const Symbol& symbol : DefinedSymbols())
        names.insert(symbol.name);
    for (const char* expected : exportedNames)
        EXPECT_TRUE(names.contains(expected)) << expected;
}

TEST(ModuleExports, NothingElseLeavesTheModule) {
    static const std::string exportedClasses[] = {"CAtlException",
                                                  "CCodeParser",
                                                  "CString",
                                                  "ExpressionAnalyse::IExpressionAnalyse",
                                                  "ExpressionAnalyse::IExpressionNode",
                                                  "IQsUtils",
                                                  "IQsUtils1",
                                                  "NS_XMLACCESS::IXmlAccessTool",
                                                  "XMLNode"};
    const std::set<std::string> expected(std::begin(exportedNames), std::end(exportedNames));
    const auto isMember = [](const std::string& name) {
        return std::any_of(std::begin(exportedClasses), std::end(exportedClasses),
                           [&](const std::string& one) {
                               return name.starts_with(one + "::") || name == "vtable for " + one ||
                                      name == "typeinfo for " + one || name == "typeinfo name for " + one;
                           });
    };
    const std::vector<Symbol> symbols = DefinedSymbols();
    EXPECT_FALSE(symbols.empty());
    for (const Symbol& symbol : symbols)
        EXPECT_TRUE(isMember(symbol.name) || expected.contains(symbol.name)) << symbol.name;
}

// One such symbol, bound once for the whole process, would keep the module mapped for ever.
TEST(ModuleExports, NoSymbolIsUnique) {
    for (const Symbol& symbol : DefinedSymbols())
        EXPECT_NE(symbol.type, 'u') << symbol.name;
}

}  // namespace
