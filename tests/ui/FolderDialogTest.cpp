// The folder browser's dialog behind a fake browser.
#include <new>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/ui/CFolderDialog.h"

#include "tests/ui/FakeViews.h"

namespace {

using QsUi::FolderBrowserMessage;
using QsUi::ShortenedForStatus;

TEST(FolderDialog, AStatusTextHasAtMostThirtyFiveUnits) {
    const CString exact(u'路', 35);
    EXPECT_EQ(ShortenedForStatus(u""), u"");
    EXPECT_EQ(ShortenedForStatus(exact), exact);
    EXPECT_EQ(ShortenedForStatus(exact + u"x"), exact + u"...");
    EXPECT_EQ(ShortenedForStatus(CString(u'a', 1000)), CString(u'a', 35) + u"...");
    EXPECT_EQ(ShortenedForStatus(CString(u'a', 34) + u"\U00020000").GetLength(), 38) << "units are counted";
}

TEST(FolderDialog, TheBrowserIsAskedWithTheStatedBlock) {
    FakeViews views;
    CFolderDialog dialog(&views, u"\\start");
    EXPECT_EQ(dialog.DoModal(), QsUi::IdCancel);
    EXPECT_EQ(views.browseInfo.title, u"当前选择：");
    EXPECT_EQ(views.browseInfo.flags, 4u);
    EXPECT_EQ(views.browseInfo.displayName, dialog.m_szDisplayName);
    EXPECT_EQ(views.browseInfo.object, &dialog);
    EXPECT_EQ(std::size(dialog.m_szDisplayName), 260u);
    EXPECT_EQ(std::size(dialog.m_szPath), 260u);
}

TEST(FolderDialog, TheInitialFolderIsSelectedAndShownShortened) {
    const CString start = u"\\" + CString(u'a', 40);
    FakeViews views;
    CFolderDialog dialog(&views, start);
    views.onBrowse = [&] { EXPECT_EQ(dialog.m_hWnd, &views); };
    dialog.DoModal();
    EXPECT_EQ(views.selections, (std::vector<std::u16string>{std::u16string(start.View())}));
    EXPECT_EQ(views.statusTexts,
              (std::vector<std::u16string>{std::u16string((start.Left(35) + u"...").View())}));
}

TEST(FolderDialog, TheStatusFollowsTheSelection) {
    FakeViews views;
    const FakeFolder shortOne{u"\\a\\b"};
    const FakeFolder longOne{std::u16string(36, u'x')};
    const FakeFolder pathless;
    CFolderDialog dialog(&views);
    views.onBrowse = [&] {
        EXPECT_EQ(views.Tell(FolderBrowserMessage::SelChanged, &shortOne), 0);
        EXPECT_EQ(dialog.GetSelectedPath(), u"\\a\\b");
        views.Tell(FolderBrowserMessage::SelChanged, &longOne);
        EXPECT_EQ(dialog.GetSelectedPath(), longOne.path);
        views.Tell(FolderBrowserMessage::SelChanged, &pathless);
        EXPECT_EQ(dialog.GetSelectedPath(), u"");
        views.Tell(static_cast<FolderBrowserMessage>(3), &shortOne);
        EXPECT_EQ(dialog.GetSelectedPath(), u"") << "other messages mean nothing";
    };
    dialog.DoModal();
    EXPECT_EQ(views.statusTexts,
              (std::vector<std::u16string>{u"", u"\\a\\b", std::u16string(35, u'x') + u"...", u""}));
}

TEST(FolderDialog, ConfirmingGivesThePathAndFreesTheChoice) {
    FakeViews views;
    const FakeFolder folder{u"\\chosen"};
    views.chosen = &folder;
    CFolderDialog dialog(&views, u"\\start");
    EXPECT_EQ(dialog.DoModal(), QsUi::IdOk);
    EXPECT_EQ(dialog.GetSelectedPath(), u"\\chosen");
    EXPECT_EQ(views.freed, (std::vector<QsUi::FolderItem>{&folder}));
    EXPECT_EQ(QsUi::SelectFolder(&views), u"\\chosen");
}

TEST(FolderDialog, CancellingKeepsTheInitialPath) {
    FakeViews views;
    const FakeFolder folder{u"\\looked at"};
    CFolderDialog dialog(&views, u"\\start");
    views.onBrowse = [&] { views.Tell(FolderBrowserMessage::SelChanged, &folder); };
    EXPECT_EQ(dialog.DoModal(), QsUi::IdCancel);
    EXPECT_EQ(dialog.GetSelectedPath(), u"\\start");
    EXPECT_TRUE(views.freed.empty());
    views.onBrowse = nullptr;
    EXPECT_EQ(QsUi::SelectFolder(&views), u"");
    EXPECT_EQ(views.selections.back(), u"") << "it starts nowhere";
}

TEST(FolderDialog, AChoiceWithoutAPathIsNone) {
    FakeViews views;
    const FakeFolder pathless;
    views.chosen = &pathless;
    EXPECT_EQ(CFolderDialog(&views).DoModal(), QsUi::IdCancel);
    EXPECT_EQ(views.freed.size(), 1u) << "it is given back all the same";
    EXPECT_EQ(QsUi::SelectFolder(&views), u"");
}

TEST(FolderDialog, ThePathsOfTheLongestLengthFit) {
    FakeViews views;
    const FakeFolder longest{std::u16string(259, u'x')};
    const FakeFolder tooLong{std::u16string(260, u'x')};
    views.chosen = &longest;
    EXPECT_EQ(QsUi::SelectFolder(&views), longest.path);
    views.chosen = &tooLong;
    EXPECT_EQ(QsUi::SelectFolder(&views), u"");
}

TEST(FolderDialog, TheWindowIsThatOfTheLastCallAndNoneAfterwards) {
    FakeViews views;
    CFolderDialog dialog(&views);
    views.onBrowse = [&] {
        dialog.m_hWnd = nullptr;
        views.Tell(static_cast<FolderBrowserMessage>(4), nullptr);
        EXPECT_EQ(dialog.m_hWnd, &views) << "whatever the message";
    };
    dialog.DoModal();
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST(FolderDialog, TheChoiceCountsAndNotWhatWasLookedAt) {
    FakeViews views;
    const FakeFolder looked{u"\\looked at"};
    const FakeFolder folder{u"\\chosen"};
    views.chosen = &folder;
    CFolderDialog dialog(&views);
    views.onBrowse = [&] { views.Tell(FolderBrowserMessage::SelChanged, &looked); };
    EXPECT_EQ(dialog.DoModal(), QsUi::IdOk);
    EXPECT_EQ(dialog.GetSelectedPath(), u"\\chosen");
}

TEST(FolderDialog, WithoutMemoryTheBrowserGoesOn) {
    struct Failing : CFolderDialog {
        using CFolderDialog::CFolderDialog;
        void OnInitialized() override { throw std::bad_alloc(); }
        void OnSelChanged(QsUi::FolderItem) override { throw std::bad_alloc(); }
    };
    FakeViews views;
    const FakeFolder folder{u"\\chosen"};
    views.chosen = &folder;
    Failing dialog(&views);
    views.onBrowse = [&] { EXPECT_EQ(views.Tell(FolderBrowserMessage::SelChanged, &folder), 0); };
    EXPECT_EQ(dialog.DoModal(), QsUi::IdOk);
    EXPECT_EQ(dialog.GetSelectedPath(), u"\\chosen");
}

TEST(FolderDialog, WithoutViewsItAnswersAsIfCancelled) {
    CFolderDialog dialog(nullptr, u"\\start");
    EXPECT_EQ(dialog.DoModal(), QsUi::IdCancel);
    EXPECT_EQ(dialog.GetSelectedPath(), u"\\start");
    EXPECT_EQ(QsUi::SelectFolder(nullptr), u"");
}

TEST(FolderDialog, ItsOperationsAreVirtual) {
    struct Overriding : CFolderDialog {
        using CFolderDialog::CFolderDialog;
        void OnInitialized() override { ++initialized; }
        void OnSelChanged(QsUi::FolderItem) override { ++changed; }
        int initialized = 0;
        int changed = 0;
    };
    FakeViews views;
    const FakeFolder folder{u"\\x"};
    Overriding dialog(&views);
    views.onBrowse = [&] { views.Tell(FolderBrowserMessage::SelChanged, &folder); };
    dialog.DoModal();
    EXPECT_EQ(dialog.initialized, 1);
    EXPECT_EQ(dialog.changed, 1);
    EXPECT_TRUE(views.statusTexts.empty());
}

}  // namespace
