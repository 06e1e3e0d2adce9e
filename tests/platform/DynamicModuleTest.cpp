#include <filesystem>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "QsUtils/platform/DynamicModule.h"
#include "QsUtils/platform/NativePath.h"

#include "tests/support/TemporaryFolder.h"

using QsPlatform::DynamicModule;

namespace {

/// A folder of modules.
class Folder : public TemporaryFolder {
public:
    /// The module under another name; gives the path in the library's form.
    CString Copy(const std::string& name) const {
        std::filesystem::copy_file(QSUTILS_TEST_MODULE, File(name));
        return NameOf(name);
    }
    CString NameOf(const std::string& name) const { return FromNativePath(File(name)); }
};

int Answer(const DynamicModule& module) {
    auto* answer = module.Function<int()>("Answer");
    return answer == nullptr ? -1 : answer();
}

}  // namespace

TEST(DynamicModule, LoadsAndFindsSymbols) {
    const Folder folder;
    const DynamicModule module(folder.Copy("Companion.dll"));
    ASSERT_TRUE(module.IsLoaded());
    EXPECT_EQ(Answer(module), 42);
    EXPECT_NE(module.Symbol("counter"), nullptr);
    EXPECT_EQ(module.Symbol("Missing"), nullptr);
}

TEST(DynamicModule, NamesMayBeChinese) {
    const Folder folder;
    EXPECT_EQ(Answer(DynamicModule(folder.Copy("定额库.dll"))), 42);
}

TEST(DynamicModule, TheSystemsOwnEndingIsTriedWhenTheLiteralNameIsNotThere) {
    const std::filesystem::path own = std::filesystem::path(QSUTILS_TEST_MODULE).extension();
    const Folder folder;
    folder.Copy("Companion" + own.string());
    EXPECT_EQ(Answer(DynamicModule(folder.NameOf("Companion.dll"))), 42);
    EXPECT_FALSE(DynamicModule(folder.NameOf("Companio.dll")).IsLoaded());
}

TEST(DynamicModule, WhatIsNoModuleIsNotLoaded) {
    const Folder folder;
    folder.Write("Text.dll", "no module");
    folder.Write("Empty.dll", "");
    for (const CString& path :
         {folder.NameOf("Text.dll"), folder.NameOf("Empty.dll"), folder.NameOf("Missing.dll"),
          folder.NameOf("."), CString(), CString(u"Missing.dll"), CString(u"\\")}) {
        const DynamicModule module(path);
        EXPECT_FALSE(module.IsLoaded()) << path;
        EXPECT_EQ(module.Symbol("Answer"), nullptr);
    }
}

TEST(DynamicModule, ItLeavesWithItsObject) {
    const Folder folder;
    const CString path = folder.Copy("Companion.dll");
    for (int round = 0; round < 3; ++round) {
        const DynamicModule module(path);
        ASSERT_TRUE(module.IsLoaded());
        EXPECT_EQ(module.Function<int()>("Count")(), 1);
    }
}

TEST(DynamicModule, OneOwnerAtATime) {
    const Folder folder;
    DynamicModule first(folder.Copy("First.dll"));
    DynamicModule second(folder.Copy("Second.dll"));
    ASSERT_TRUE(first.IsLoaded());
    first.Function<int()>("Count")();

    DynamicModule moved(std::move(first));
    EXPECT_FALSE(first.IsLoaded());
    EXPECT_EQ(moved.Function<int()>("Count")(), 2);

    second = std::move(moved);
    EXPECT_FALSE(moved.IsLoaded());
    EXPECT_EQ(second.Function<int()>("Count")(), 3);

    DynamicModule& itself = second;
    second = std::move(itself);
    EXPECT_EQ(second.Function<int()>("Count")(), 4);

    second = DynamicModule();
    EXPECT_FALSE(second.IsLoaded());
    EXPECT_EQ(DynamicModule(folder.NameOf("First.dll")).Function<int()>("Count")(), 1);
}
