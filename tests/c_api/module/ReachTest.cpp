// Hosts in C come to everything that the module exports, by functions that it exports as well.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "tests/c_api/CFunctions.h"
#include "tests/c_api/Reach.h"
#include "tests/module/ExportedNames.h"
#include "tests/support/ExportedSymbols.h"
#include "tests/support/SharedModule.h"

namespace {

using Names = std::set<std::string>;

Names CFunctions() {
    return Names(std::begin(cFunctions), std::end(cFunctions));
}

/// The names in the files of a folder with that ending.
Names WordsIn(const std::filesystem::path& folder, const std::string& ending) {
    static constexpr char letters[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";
    Names names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != ending)
            continue;
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string text(std::istreambuf_iterator<char>(file), {});
        for (std::size_t at = text.find_first_of(letters); at != std::string::npos;) {
            const std::size_t end = std::min(text.find_first_not_of(letters, at), text.size());
            names.insert(text.substr(at, end - at));
            at = text.find_first_of(letters, end);
        }
    }
    return names;
}

TEST(CApiReach, EveryExportHasItsFunctionOrAReason) {
    Names told;
    for (const Reach& entry : reach) {
        EXPECT_TRUE(told.insert(entry.exported).second) << entry.exported << " stands twice";
        EXPECT_NE(entry.function == nullptr, entry.reason == nullptr) << entry.exported;
    }
    EXPECT_EQ(told, Names(std::begin(exportedNames), std::end(exportedNames)));
}

TEST(CApiReach, EveryFunctionOfTheTableIsInTheModule) {
    const SharedModule module(QSUTILS_MODULE);
    for (const Reach& entry : reach) {
        if (entry.function != nullptr) {
            EXPECT_NE(module.Function<void()>(entry.function), nullptr) << entry.function;
        }
    }
}

TEST(CApiReach, TheModuleExportsTheFunctionsOfTheList) {
    Names exported;
    for (const ExportedSymbol& symbol : ExportedSymbols(QSUTILS_MODULE)) {
        if (symbol.name.starts_with("Qs") && symbol.name.find_first_of(":(") == std::string::npos)
            exported.insert(symbol.name);
    }
    EXPECT_EQ(exported, CFunctions());
}

TEST(CApiReach, TheHeadersDeclareTheFunctionsOfTheList) {
    const Names words = WordsIn(QSUTILS_C_API, ".h");
    for (const std::string& name : CFunctions())
        EXPECT_TRUE(words.contains(name)) << name;
}

// So that none is there that nobody has tried.
TEST(CApiReach, TheProgramInCCallsEveryFunction) {
    const Names words = WordsIn(C_API_PROGRAM, ".c");
    for (const std::string& name : CFunctions())
        EXPECT_TRUE(words.contains(name)) << name;
}

}  // namespace
