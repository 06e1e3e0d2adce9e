// The walk that finds templates, beside a plain recursive one.
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/platform/FolderEntries.h"
#include "QsUtils/ui/TemplateFiles.h"

#include "tests/support/Rounds.h"
#include "tests/support/SmallStack.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using QsUi::FindTemplateFiles;
using QsUi::TemplateFile;

/// Step by step: all entries in order, a folder at once where it comes up.
void PlainScan(const CString& folder, const CString& extension, std::vector<std::u16string>& found) {
    for (const QsPlatform::FolderEntry& entry : QsPlatform::FindEntries(folder + u"*.*")) {
        const CString path = folder + entry.name;
        if (entry.isFolder && !entry.isDots)
            PlainScan(path + u"\\", extension, found);
        else if (!entry.isFolder && path.Right(extension.GetLength()) == extension)
            found.emplace_back(path.View());
    }
}

std::vector<std::u16string> PathsOf(const std::vector<TemplateFile>& files) {
    std::vector<std::u16string> paths;
    for (const TemplateFile& file : files)
        paths.emplace_back(file.path.View());
    return paths;
}

std::vector<std::u16string> TitlesOf(const std::vector<TemplateFile>& files) {
    std::vector<std::u16string> titles;
    for (const TemplateFile& file : files)
        titles.emplace_back(file.title.View());
    return titles;
}

TEST(TemplateFiles, TheEndOfTheNameCountsInItsExactCase) {
    const TemporaryFolder root;
    for (const char* name : {"a.fyt", "b.FYT", "c.zfyt", "d.fyt.bak", "e", ".fyt", "f.g.fyt", "h.fyt_"})
        root.Write(name, "");
    const CString folder = root.Text("") + (root.Text("").Right(1) == u"\\" ? u"" : u"\\");
    EXPECT_EQ(TitlesOf(FindTemplateFiles(folder, u".fyt")), (std::vector<std::u16string>{u"", u"a", u"f.g"}));
    EXPECT_EQ(TitlesOf(FindTemplateFiles(folder, u".zfyt")), (std::vector<std::u16string>{u"c"}));
}

TEST(TemplateFiles, AFolderIsSearchedWhereItComesUp) {
    const TemporaryFolder root;
    for (const char* name : {"b/deep/er/x.fyt", "a.fyt", "c.fyt", "B2/y.fyt", "empty.fyt/in.fyt"})
        root.Write(name, "");
    const CString folder = root.Text("x").Left(root.Text("x").GetLength() - 1);
    std::vector<std::u16string> plain;
    PlainScan(folder, u".fyt", plain);
    const std::vector<TemplateFile> files = FindTemplateFiles(folder, u".fyt");
    EXPECT_EQ(PathsOf(files), plain);
    EXPECT_EQ(TitlesOf(files), (std::vector<std::u16string>{u"a", u"x", u"y", u"c", u"in"}));
}

TEST(TemplateFiles, WithoutAFolderThereIsNone) {
    const TemporaryFolder root;
    root.Write("a.fyt", "");
    EXPECT_TRUE(FindTemplateFiles(root.Text("none") + u"\\", u".fyt").empty());
    EXPECT_TRUE(FindTemplateFiles(root.Text("a.fyt") + u"\\", u".fyt").empty());
}

TEST(TemplateFiles, ARelativeFolderBeginsInTheCurrentOne) {
    const TemporaryFolder root;
    root.Write("sub/a.fyt", "");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(root.Path());
    const std::vector<TemplateFile> inSub = FindTemplateFiles(u"sub\\", u".fyt");
    const std::vector<TemplateFile> inCurrent = FindTemplateFiles(u"", u".fyt");
    const CString current = FromNativePath(std::filesystem::current_path());
    std::filesystem::current_path(before);
    EXPECT_EQ(PathsOf(inSub),
              (std::vector<std::u16string>{std::u16string((current + u"\\sub\\a.fyt").View())}));
    EXPECT_EQ(PathsOf(inCurrent), PathsOf(inSub));
}

TEST(TemplateFiles, RandomTreesAreWalkedAsAPlainRecursionWalksThem) {
    std::mt19937 random(131);
    const std::vector<std::string> names = {"a", "B", "b", "_", "模", "板", "z.fyt", "A.fyt", "x.FYT", "c.f"};
    for (int round = 0; round < Rounds(60); ++round) {
        const TemporaryFolder root;
        for (int file = 0; file < 30; ++file) {
            std::string path = "t/";
            for (auto depth = random() % 4; depth > 0; --depth)
                path += "d" + names[random() % 6] + "/";
            root.Write(path + names[random() % names.size()] + (random() % 2 != 0 ? ".fyt" : ""), "");
        }
        const CString folder = root.Text("t") + u"\\";
        std::vector<std::u16string> plain;
        PlainScan(folder, u".fyt", plain);
        EXPECT_EQ(PathsOf(FindTemplateFiles(folder, u".fyt")), plain);
    }
}

}  // namespace
