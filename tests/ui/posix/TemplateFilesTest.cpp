// Links and depths that only this system has.
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>

#include "QsUtils/platform/FolderCursor.h"
#include "QsUtils/ui/TemplateFiles.h"

#include "tests/support/SmallStack.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using QsUi::FindTemplateFiles;

TEST(TemplateLinks, ALinkIsFollowedAndNeverRoundInACircle) {
    const TemporaryFolder root;
    root.Write("own/a.fyt", "");
    root.Write("elsewhere/b.fyt", "");
    std::filesystem::create_directory_symlink(root.File("own"), root.File("own/up"));
    std::filesystem::create_directory_symlink(root.File("elsewhere"), root.File("own/link"));
    std::filesystem::create_symlink(root.File("elsewhere/b.fyt"), root.File("own/c.fyt"));
    std::vector<CString> paths;
    for (const auto& file : FindTemplateFiles(root.Text("own") + u"\\", u".fyt"))
        paths.push_back(file.path);
    EXPECT_EQ(paths, (std::vector<CString>{root.Text("own/a.fyt"), root.Text("own/c.fyt"),
                                           root.Text("own/link/b.fyt")}));
}

TEST(TemplateLinks, ManyLinksToOneAnotherCometoAnEnd) {
    constexpr int folders = 12;
    const TemporaryFolder root;
    for (int each = 0; each < folders; ++each) {
        const std::string name = "d" + std::to_string(each);
        root.Write(name + "/x.fyt", "");
        for (int other = 0; other < folders; ++other)
            std::filesystem::create_directory_symlink(root.File("d" + std::to_string(other)),
                                                      root.File(name + "/to" + std::to_string(other)));
    }
    const auto files = FindTemplateFiles(root.Text("d0") + u"\\", u".fyt");
    EXPECT_GE(files.size(), static_cast<std::size_t>(folders));
    EXPECT_LE(files.size(), static_cast<std::size_t>(folders * QsUi::MostVisitsOfFolder));
}

TEST(TemplateLinks, DepthHasNoLimit) {
    constexpr int depth = 3000;
    const TemporaryFolder root;
    std::filesystem::create_directory(root.File("top"));
    {
        const auto name = QsPlatform::EncodeName(u"folder");
        QsPlatform::FolderCursor cursor(root.Text("top"));
        for (int level = 0; level < depth; ++level)
            ASSERT_TRUE(cursor.MakeFolder(name) && cursor.Enter(name, false));
        ASSERT_TRUE(cursor.MakeFolder(QsPlatform::EncodeName(u"last")));
    }
    std::size_t found = 0;
    RunOnSmallStack(256 * 1024, [&] { found = FindTemplateFiles(root.Text("top") + u"\\", u".fyt").size(); });
    EXPECT_EQ(found, 0u);
    std::filesystem::create_directory(root.File("top/z"));
    root.Write("top/z/behind.fyt", "");
    EXPECT_EQ(FindTemplateFiles(root.Text("top") + u"\\", u".fyt").size(), 1u) << "the way back up is found";
}

TEST(TemplateLinks, WhatCantBeReadIsLeftOut) {
    const TemporaryFolder root;
    root.Write("t/a.fyt", "");
    std::filesystem::create_directory_symlink(root.File("nowhere"), root.File("t/broken"));
    std::filesystem::create_symlink(root.File("nowhere"), root.File("t/broken.fyt"));
    const auto files = FindTemplateFiles(root.Text("t") + u"\\", u".fyt");
    ASSERT_EQ(files.size(), 2u) << "a link that leads nowhere is a file of its name";
    EXPECT_EQ(files[1].title, u"broken");
}

}  // namespace
