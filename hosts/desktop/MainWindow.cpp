#include "MainWindow.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>

#include <QsUtils/QsUtils.h>

#include "Texts.h"

namespace Desktop {

namespace {

/// The section whose templates the pickers show, of the sample installation.
constexpr const char16_t* Family = u"上海";
constexpr const char16_t* Section = u"2016预算定额";

constexpr QSize FirstSize(960, 560);

}  // namespace

MainWindow::MainWindow(const Bill& bill) : m_table(new BillTable(bill, this)) {
    setWindowTitle(QStringLiteral("工程量清单"));
    setCentralWidget(m_table);
    AddTemplates();
    AddFolders();
    statusBar()->showMessage(QStringLiteral("%1 行").arg(m_table->rowCount()));
    resize(FirstSize);
}

void MainWindow::AddTemplates() {
    QMenu& menu = *menuBar()->addMenu(QStringLiteral("模板(&T)"));
    for (const bool isZero : {false, true}) {
        const QString whole = isZero ? QStringLiteral("（整体）") : QString();
        const std::string ending = isZero ? "-zero" : "";
        const auto add = [&](const char* name, const QString& text, auto open) {
            AddEntry(menu, (name + ending).c_str(), text + whole + QStringLiteral("…"),
                     [open, isZero] { return open(Family, Section, isZero); });
        };
        add("fee", QStringLiteral("费用汇总"), IQsUtils::GetFeeTemplatePath);
        add("gfsj", QStringLiteral("规费税金"), IQsUtils::GetGfsjTemplatePath);
        add("csxm", QStringLiteral("措施项目"), IQsUtils::GetCsxmTemplatePath);
        menu.addSeparator();
    }
    AddEntry(menu, "djzc", QStringLiteral("综合单价组成…"),
             [] { return IQsUtils::GetDjzcTemplatePath(Family, Section); });
    menu.addSeparator();
    const QString reports[] = {QStringLiteral("项目报表…"), QStringLiteral("单位工程清单报表…"),
                               QStringLiteral("单位工程定额报表…")};
    for (int type = 0; type < 3; ++type)
        AddEntry(menu, ("report-" + std::to_string(type)).c_str(), reports[type],
                 [type] { return IQsUtils::GetReportTemplatePath(Family, Section, type); });
}

void MainWindow::AddFolders() {
    QMenu& menu = *menuBar()->addMenu(QStringLiteral("文件夹(&F)"));
    AddEntry(menu, "folder", QStringLiteral("选择文件夹…"), IQsUtils::SelectFolder);
}

void MainWindow::AddEntry(QMenu& menu, const char* name, const QString& text,
                          const std::function<CString()>& open) {
    QAction* const entry = menu.addAction(text);
    entry->setObjectName(QLatin1String(name));
    connect(entry, &QAction::triggered, this, [this, open] {
        const CString answer = open();
        const QString shown = answer.IsEmpty() ? QStringLiteral("未选择")
                                               : QString::fromStdString(ToNativePath(answer).string());
        statusBar()->showMessage(shown);
    });
}

QAction* MainWindow::Entry(const char* name) const {
    return findChild<QAction*>(QLatin1String(name));
}

}  // namespace Desktop
