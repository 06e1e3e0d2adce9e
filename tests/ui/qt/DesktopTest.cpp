// The windowed host on the public header alone, with a user made of code.
#include <QAction>
#include <QApplication>
#include <QScrollBar>
#include <QStatusBar>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <string>

#include <QsUtils/QsUtils.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "BillFile.h"
#include "MainWindow.h"
#include "tests/ui/qt/Robot.h"

namespace {

QWidget* Tip() {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->objectName() == QStringLiteral("texttip"))
            return window;
    }
    return nullptr;
}

bool IsTipShown() {
    return Tip() != nullptr && Tip()->isVisible();
}

class Desktop : public testing::Test {
protected:
    static void SetUpTestSuite() {
        std::filesystem::copy(SAMPLE_INSTALLATION, folder, std::filesystem::copy_options::recursive);
        ASSERT_TRUE(DirectoryManager::UseInstallation(FromNativePath(folder)));
        IQsUtils::SetSoftVersion(u"7.1");
    }
    static void TearDownTestSuite() { std::filesystem::remove_all(folder); }
    void SetUp() override { window.show(); }
    void TearDown() override { texttip::CloseWindowNow(); }

    std::string Status() const { return Robot::Utf8(window.statusBar()->currentMessage()); }
    /// Chooses an entry of the menu, and acts on the dialog that comes.
    void Choose(const char* entry, const char* child, const std::function<void(QWidget*)>& act) {
        Robot::When([child] { return Robot::WindowWith(child); }, act);
        window.Entry(entry)->trigger();
    }
    void MoveTo(int row, int column) {
        ::Desktop::BillTable& table = window.Table();
        QTest::mouseMove(table.viewport(), table.visualItemRect(table.item(row, column)).center());
    }

    static inline const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("qsutils-desktop-" + std::to_string(::getpid()));
    ::Desktop::MainWindow window{::Desktop::ReadBill(QStringLiteral(SAMPLE_BILL))};
};

TEST_F(Desktop, ItShowsTheSampleBill) {
    EXPECT_EQ(window.Table().columnCount(), 6);
    EXPECT_GT(window.Table().rowCount(), 200);
    EXPECT_EQ(Robot::Utf8(window.Table().item(0, 1)->text()), "综合脚手架");
    EXPECT_TRUE(::Desktop::ReadBill(QStringLiteral("/no such file")).columns.isEmpty());
}

TEST_F(Desktop, ALongCellShowsTheTipAndLeavingItHidesIt) {
    MoveTo(1, 1);
    EXPECT_FALSE(IsTipShown()) << "it waits for its delay";
    EXPECT_TRUE(QTest::qWaitFor(IsTipShown));
    const QRect cell = window.Table().visualItemRect(window.Table().item(1, 1));
    EXPECT_EQ(Tip()->geometry().bottom() + 1, window.Table().viewport()->mapToGlobal(cell.topLeft()).y() - 2);
    EXPECT_GT(Tip()->width(), cell.width());
    MoveTo(0, 1);
    EXPECT_FALSE(IsTipShown());
    QTest::qWait(600);
    EXPECT_FALSE(IsTipShown()) << "a short cell has none";
}

TEST_F(Desktop, MovingTheTableHidesTheTip) {
    window.resize(400, 300);
    for (QScrollBar* const bar : {window.Table().horizontalScrollBar(), window.Table().verticalScrollBar()}) {
        window.Table().ShowTip(1, 1);
        EXPECT_TRUE(QTest::qWaitFor(IsTipShown));
        ASSERT_GT(bar->maximum(), 0);
        bar->setValue(bar->maximum());
        EXPECT_FALSE(IsTipShown());
        bar->setValue(0);
    }
}

TEST_F(Desktop, ABillMayBeginWithTheMarkOfASpreadsheet) {
    const QString file = QString::fromStdString((folder / "bill.csv").string());
    std::ofstream(folder / "bill.csv") << "\xEF\xBB\xBF编码,名称\n010101,\"平整, 场地\"\n";
    const ::Desktop::Bill bill = ::Desktop::ReadBill(file);
    EXPECT_EQ(bill.columns, (QStringList{QStringLiteral("编码"), QStringLiteral("名称")}));
    ASSERT_EQ(bill.rows.size(), 1);
    EXPECT_EQ(Robot::Utf8(bill.rows[0][1]), "平整, 场地");
}

TEST_F(Desktop, EveryKindOfTemplateOpensItsPicker) {
    const char* entries[] = {"fee",       "gfsj", "csxm",     "fee-zero", "gfsj-zero",
                             "csxm-zero", "djzc", "report-0", "report-1", "report-2"};
    for (const char* entry : entries) {
        Choose(entry, "templates", [&](QWidget* picker) {
            EXPECT_NE(Robot::Rows(picker), "") << entry;
            Robot::GoToRow(picker, 0);
            Robot::Press(picker, Qt::Key_Return);
        });
        EXPECT_TRUE(std::filesystem::is_regular_file(Status())) << Status();
    }
}

TEST_F(Desktop, CancellingLeavesNothingChosen) {
    Choose("fee", "templates", [](QWidget* picker) { Robot::Press(picker, Qt::Key_Escape); });
    EXPECT_EQ(Status(), "未选择");
}

TEST_F(Desktop, AFolderIsChosen) {
    Choose("folder", "folders", [](QWidget* browser) {
        Robot::GoToFolder(browser, (folder / "Library").string());
        Robot::Press(browser, Qt::Key_Return);
    });
    EXPECT_EQ(Status(), (folder / "Library").string());
}

}  // namespace
