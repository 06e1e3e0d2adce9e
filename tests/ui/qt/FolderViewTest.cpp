// The folder browser's view with a user made of code.
#include <QDir>
#include <QLabel>
#include <QTest>
#include <QTreeView>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/ui/CFolderDialog.h"
#include "QsUtils/ui/qt/module/QtViews.h"

#include "tests/support/TemporaryFolder.h"
#include "tests/ui/qt/Robot.h"

namespace {

QsQt::QtViews folderViews;

int UseView(CFolderDialog& dialog, const std::function<void(QWidget*)>& act) {
    Robot::When([] { return Robot::WindowWith("folders"); }, act);
    return dialog.DoModal();
}

QString CurrentFolder(QWidget* view) {
    return view->findChild<QTreeView*>(QStringLiteral("folders"))->currentIndex().data().toString();
}

TEST(FolderView, TheChosenFolderIsGiven) {
    const TemporaryFolder root;
    root.Write("图集/x", "");
    CFolderDialog dialog(&folderViews);
    EXPECT_EQ(UseView(dialog,
                      [&](QWidget* view) {
                          Robot::GoToFolder(view, root.File("图集").string());
                          EXPECT_EQ(FromNativePath(Robot::StatusText(view)),
                                    QsUi::ShortenedForStatus(root.Text("图集")));
                          Robot::Press(view, Qt::Key_Return);
                      }),
              QsUi::IdOk);
    EXPECT_EQ(dialog.GetSelectedPath(), root.Text("图集"));
    EXPECT_EQ(CString(dialog.m_szDisplayName), u"图集");
}

TEST(FolderView, TheInitialFolderIsSelected) {
    const TemporaryFolder root;
    root.Write("a/b/x", "");
    CFolderDialog dialog(&folderViews, root.Text("a/b"));
    EXPECT_EQ(UseView(dialog,
                      [&](QWidget* view) {
                          EXPECT_EQ(Robot::Utf8(CurrentFolder(view)), "b");
                          Robot::Click(view, "confirm");
                      }),
              QsUi::IdOk);
    EXPECT_EQ(dialog.GetSelectedPath(), root.Text("a/b"));
}

TEST(FolderView, WithoutAnInitialFolderItBeginsAtHome) {
    CFolderDialog dialog(&folderViews);
    EXPECT_EQ(UseView(dialog, [](QWidget* view) { Robot::Click(view, "confirm"); }), QsUi::IdOk);
    EXPECT_EQ(dialog.GetSelectedPath(), FromNativePath(QDir::homePath().toStdString()));
    CFolderDialog astray(&folderViews, u"\\no such folder");
    UseView(astray, [](QWidget* view) { Robot::Press(view, Qt::Key_Escape); });
    EXPECT_EQ(astray.GetSelectedPath(), u"\\no such folder");
}

TEST(FolderView, CancellingGivesNothing) {
    const TemporaryFolder root;
    CFolderDialog dialog(&folderViews, u"\\");
    EXPECT_EQ(UseView(dialog,
                      [&](QWidget* view) {
                          Robot::GoToFolder(view, root.Path().string());
                          Robot::Click(view, "cancel");
                      }),
              QsUi::IdCancel);
    EXPECT_EQ(dialog.GetSelectedPath(), u"\\");
}

TEST(FolderView, FilesArentShownAndFoldersAreOpenedWithTheKeys) {
    const TemporaryFolder root;
    root.Write("sub/x", "");
    root.Write("file", "");
    CFolderDialog dialog(&folderViews, FromNativePath(root.Path()));
    EXPECT_EQ(UseView(dialog,
                      [&](QWidget* view) {
                          QTreeView& tree = *view->findChild<QTreeView*>(QStringLiteral("folders"));
                          QTest::keyClick(&tree, Qt::Key_Right);
                          EXPECT_TRUE(QTest::qWaitFor(
                              [&] { return tree.model()->rowCount(tree.currentIndex()) == 1; }));
                          QTest::keyClick(&tree, Qt::Key_Down);
                          Robot::Press(view, Qt::Key_Return);
                      }),
              QsUi::IdOk);
    EXPECT_EQ(dialog.GetSelectedPath(), root.Text("sub"));
}

TEST(FolderView, APathThatDoesntFitIsNone) {
    const TemporaryFolder root;
    std::string name;
    for (int depth = 0; depth < 5; ++depth)
        name += std::string(60, 'x') + "/";
    root.Write(name + "f", "");
    CFolderDialog dialog(&folderViews, FromNativePath(root.File(name.substr(0, name.size() - 1))));
    EXPECT_EQ(UseView(dialog, [](QWidget* view) { Robot::Click(view, "confirm"); }), QsUi::IdCancel);
}

TEST(FolderView, ThePathsOfTheLongestLengthFit) {
    const TemporaryFolder root;
    const std::size_t above = FromNativePath(root.Path()).View().size() + 1;
    for (const std::size_t length : {std::size_t{259}, std::size_t{260}}) {
        std::string name = std::string(100, 'x') + "/";
        name += std::string(length - above - name.size(), 'y');
        root.Write(name + "/f", "");
        ASSERT_EQ(root.Text(name).View().size(), length);
        CFolderDialog dialog(&folderViews, root.Text(name));
        const int end = UseView(dialog, [](QWidget* view) { Robot::Click(view, "confirm"); });
        EXPECT_EQ(end, length == 259 ? QsUi::IdOk : QsUi::IdCancel);
        EXPECT_EQ(dialog.GetSelectedPath(), length == 259 ? root.Text(name) : CString());
    }
}

TEST(FolderView, CancellingForgetsWhatWasSelected) {
    const TemporaryFolder root;
    root.Write("a/x", "");
    root.Write("b/x", "");
    CFolderDialog dialog(&folderViews, root.Text("a"));
    EXPECT_EQ(UseView(dialog,
                      [&](QWidget* view) {
                          Robot::GoToFolder(view, root.File("b").string());
                          EXPECT_EQ(dialog.GetSelectedPath(), root.Text("b"));
                          Robot::Press(view, Qt::Key_Escape);
                      }),
              QsUi::IdCancel);
    EXPECT_EQ(dialog.GetSelectedPath(), root.Text("a"));
}

TEST(FolderView, AFolderWhoseNameCantBeWrittenHasNoPath) {
    const TemporaryFolder root;
    std::filesystem::create_directory(root.File("a\\b"));
    root.Write("a/b/x", "");
    CFolderDialog dialog(&folderViews, FromNativePath(root.Path()));
    EXPECT_EQ(UseView(dialog,
                      [&](QWidget* view) {
                          Robot::GoToFolder(view, root.File("a\\b").string());
                          EXPECT_EQ(Robot::Utf8(CurrentFolder(view)), "a\\b");
                          EXPECT_EQ(Robot::StatusText(view), "");
                          Robot::Click(view, "confirm");
                      }),
              QsUi::IdCancel);
    EXPECT_EQ(dialog.GetSelectedPath(), u"");
}

TEST(FolderView, AHiddenInitialFolderIsShown) {
    const TemporaryFolder root;
    root.Write(".templates/own/x", "");
    CFolderDialog dialog(&folderViews, root.Text(".templates/own"));
    EXPECT_EQ(UseView(dialog, [](QWidget* view) { Robot::Press(view, Qt::Key_Return); }), QsUi::IdOk);
    EXPECT_EQ(dialog.GetSelectedPath(), root.Text(".templates/own"));
}

TEST(FolderView, TheDialogsOperationsAreCalled) {
    struct Watching : CFolderDialog {
        using CFolderDialog::CFolderDialog;
        void OnInitialized() override {
            calls += "i";
            CFolderDialog::OnInitialized();
        }
        void OnSelChanged(QsUi::FolderItem item) override {
            calls += "s";
            CFolderDialog::OnSelChanged(item);
        }
        std::string calls;
    };
    const TemporaryFolder root;
    root.Write("a/x", "");
    Watching dialog(&folderViews, root.Text("a"));
    UseView(dialog, [&](QWidget* view) {
        EXPECT_EQ(dialog.calls, "is");
        Robot::GoToFolder(view, root.Path().string());
        EXPECT_EQ(dialog.calls, "iss");
        Robot::Press(view, Qt::Key_Escape);
    });
    EXPECT_EQ(dialog.calls, "iss") << "the end tells nothing";
}

TEST(FolderView, ItHasTheStatedTexts) {
    CFolderDialog dialog(&folderViews, u"\\");
    EXPECT_EQ(
        UseView(dialog,
                [](QWidget* view) {
                    bool hasTitle = false;
                    for (const QLabel* const label : view->findChildren<QLabel*>())
                        hasTitle = hasTitle || Robot::Utf8(label->text()) == "当前选择：";
                    EXPECT_TRUE(hasTitle);
                    EXPECT_EQ(Robot::StatusText(view), "\\");
                    EXPECT_FALSE(
                        view->findChild<QTreeView*>(QStringLiteral("folders"))->accessibleName().isEmpty());
                    Robot::Press(view, Qt::Key_Return);
                }),
        QsUi::IdOk);
    EXPECT_EQ(dialog.GetSelectedPath(), u"\\");
}

}  // namespace
