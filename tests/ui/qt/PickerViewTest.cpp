// The picker's view with a user made of code.
#include <QAbstractItemModelTester>
#include <QApplication>
#include <QHeaderView>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/ui/DialogTexts.h"
#include "QsUtils/ui/qt/module/PickerView.h"
#include "QsUtils/ui/qt/module/QtViews.h"

#include "tests/ui/qt/Robot.h"

namespace {

class FakePicker final : public QsUi::IPickerDialog {
public:
    explicit FakePicker(std::size_t count) {
        for (std::size_t row = 0; row < count; ++row)
            rows.emplace_back(u"模板" + QString::number(row).toStdU16String(), u"来源");
    }

    std::size_t RowCount() const noexcept override { return rows.size(); }
    std::u16string_view Cell(std::size_t row, int column) const noexcept override {
        return column == 0 ? rows[row].first : rows[row].second;
    }
    std::optional<QsUi::InformationMessage> Confirm(std::size_t row) noexcept override {
        confirmed.push_back(row);
        if (row == QsUi::NoRow)
            return QsUi::InformationMessage{u"请选择一个模板！", u"墨衡造价"};
        return std::nullopt;
    }

    std::vector<std::pair<std::u16string, std::u16string>> rows;
    std::vector<std::size_t> confirmed;
};

using Confirmed = std::vector<std::size_t>;

QTableView& TableOf(QWidget& view) {
    return *view.findChild<QTableView*>(QStringLiteral("templates"));
}

/// Runs the picker with what its user does.
bool UseView(FakePicker& dialog, const std::function<void(QWidget*)>& act) {
    Robot::When([] { return Robot::WindowWith("templates"); }, act);
    return QsQt::QtViews().RunPicker(dialog);
}

TEST(PickerView, ARowIsTakenWithTheKeys) {
    FakePicker dialog(5);
    EXPECT_TRUE(UseView(dialog, [](QWidget* view) {
        Robot::GoToRow(view, 3);
        Robot::Press(view, Qt::Key_Return);
    }));
    EXPECT_EQ(dialog.confirmed, Confirmed{3});
}

TEST(PickerView, TheFirstArrowKeyLeadsToTheFirstRow) {
    FakePicker dialog(5);
    EXPECT_TRUE(UseView(dialog, [](QWidget* view) {
        Robot::GoToRow(view, 0);
        Robot::Press(view, Qt::Key_Enter);
    }));
    EXPECT_EQ(dialog.confirmed, Confirmed{0});
}

TEST(PickerView, ADoubleClickTakesARow) {
    FakePicker dialog(5);
    EXPECT_TRUE(UseView(dialog, [](QWidget* view) { Robot::DoubleClickRow(view, 2); }));
    EXPECT_EQ(dialog.confirmed, Confirmed{2});
}

TEST(PickerView, TheKeysGoFromRowToRow) {
    FakePicker dialog(5);
    EXPECT_TRUE(UseView(dialog, [](QWidget* view) {
        const QTableView& table = TableOf(*view);
        for (const auto& [key, row] :
             {std::pair(Qt::Key_End, 4), std::pair(Qt::Key_Home, 0), std::pair(Qt::Key_Down, 1),
              std::pair(Qt::Key_Right, 1), std::pair(Qt::Key_Up, 0), std::pair(Qt::Key_PageDown, 4)}) {
            Robot::Press(view, key);
            EXPECT_EQ(table.currentIndex().row(), row);
            EXPECT_EQ(table.currentIndex().column(), 0);
        }
        Robot::Press(view, Qt::Key_Return);
    }));
    EXPECT_EQ(dialog.confirmed, Confirmed{4});
}

TEST(PickerView, LettersLeadToARow) {
    FakePicker dialog(3);
    dialog.rows.emplace_back(u"beta", u"bravo");
    dialog.rows.emplace_back(u"bravo", u"");
    EXPECT_TRUE(UseView(dialog, [](QWidget* view) {
        QTest::keyClicks(&TableOf(*view), QStringLiteral("br"));
        Robot::Press(view, Qt::Key_Return);
    }));
    EXPECT_EQ(dialog.confirmed, Confirmed{4});
}

TEST(PickerView, EscapeAndTheSecondButtonCancel) {
    FakePicker dialog(5);
    EXPECT_FALSE(UseView(dialog, [](QWidget* view) {
        Robot::GoToRow(view, 1);
        Robot::Press(view, Qt::Key_Escape);
    }));
    EXPECT_FALSE(UseView(dialog, [](QWidget* view) { Robot::Click(view, "cancel"); }));
    EXPECT_EQ(dialog.confirmed, Confirmed{});
}

TEST(PickerView, WithoutARowAMessageIsShownAndItStaysOpen) {
    FakePicker dialog(2);
    std::string text;
    std::string caption;
    bool isInformation = false;
    bool isOpenBehind = false;
    EXPECT_FALSE(UseView(dialog, [&](QWidget* view) {
        Robot::When(Robot::MessageBox, [&](QWidget* found) {
            auto& box = static_cast<QMessageBox&>(*found);
            text = Robot::Utf8(box.text());
            caption = Robot::Utf8(box.windowTitle());
            isInformation = box.icon() == QMessageBox::Information;
            EXPECT_EQ(box.buttons().size(), 1);
            Robot::Press(found, Qt::Key_Return);
        });
        Robot::Click(view, "confirm");
        isOpenBehind = view->isVisible();
        Robot::Press(view, Qt::Key_Escape);
    }));
    EXPECT_EQ(text, "请选择一个模板！");
    EXPECT_EQ(caption, "墨衡造价");
    EXPECT_TRUE(isInformation);
    EXPECT_TRUE(isOpenBehind);
    EXPECT_EQ(dialog.confirmed, Confirmed{QsUi::NoRow});
}

TEST(PickerView, ItHasTheStatedTextsAndSizes) {
    FakePicker dialog(3);
    QsQt::PickerView view(dialog, nullptr);
    view.show();
    const QTableView& table = TableOf(view);
    QHeaderView& header = *table.horizontalHeader();
    EXPECT_EQ(Robot::Utf8(view.windowTitle()), "选择模板");
    EXPECT_EQ(Robot::Utf8(table.model()->headerData(0, Qt::Horizontal).toString()), "模板名称");
    EXPECT_EQ(Robot::Utf8(table.model()->headerData(1, Qt::Horizontal).toString()), "来源");
    EXPECT_EQ(header.sectionSize(0), 260);
    EXPECT_EQ(header.sectionSize(1), 220);
    EXPECT_EQ(header.defaultAlignment(), Qt::AlignCenter);
    EXPECT_FALSE(header.isSortIndicatorShown());
    EXPECT_EQ(header.sectionResizeMode(1), QHeaderView::Interactive);
    EXPECT_FALSE(table.model()->index(0, 0).data(Qt::TextAlignmentRole).isValid()) << "cells stand left";
    const auto& confirm = *view.findChild<QPushButton*>(QStringLiteral("confirm"));
    EXPECT_EQ(Robot::Utf8(confirm.text()), "确定");
    EXPECT_TRUE(confirm.isDefault());
    EXPECT_EQ(Robot::Utf8(view.findChild<QPushButton*>(QStringLiteral("cancel"))->text()), "取消");
    EXPECT_FALSE(table.accessibleName().isEmpty());
    EXPECT_FALSE(table.selectionModel()->hasSelection());
    EXPECT_FALSE(table.currentIndex().isValid());
}

TEST(PickerView, AWiderWindowWidensTheSource) {
    FakePicker dialog(3);
    QsQt::PickerView view(dialog, nullptr);
    view.show();
    const QHeaderView& header = *TableOf(view).horizontalHeader();
    view.resize(view.width() + 100, view.height());
    QApplication::processEvents();
    EXPECT_EQ(header.sectionSize(0), 260);
    EXPECT_EQ(header.sectionSize(1), 320);
    view.resize(view.width() - 200, view.height());
    QApplication::processEvents();
    EXPECT_EQ(header.sectionSize(1), 220);
}

TEST(PickerView, AHeaderSortsAndTheRowsStayThemselves) {
    FakePicker dialog(0);
    for (const char16_t* title : {u"砖", u"吖", u"座"})
        dialog.rows.emplace_back(title, u"x");
    EXPECT_TRUE(UseView(dialog, [&](QWidget* view) {
        QTableView& table = TableOf(*view);
        EXPECT_EQ(Robot::Rows(view), "砖\tx\n吖\tx\n座\tx\n");
        Robot::GoToRow(view, 0);
        const auto clickHeader = [&] {
            QTest::mouseClick(table.horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(20, 5));
        };
        clickHeader();
        EXPECT_EQ(Robot::Rows(view), "吖\tx\n砖\tx\n座\tx\n");
        EXPECT_EQ(table.currentIndex().row(), 1) << "the current row goes along";
        clickHeader();
        EXPECT_EQ(Robot::Rows(view), "座\tx\n砖\tx\n吖\tx\n");
        EXPECT_FALSE(table.horizontalHeader()->isSortIndicatorShown());
        QTest::keyClick(&table, Qt::Key_Down);
        Robot::Press(view, Qt::Key_Return);
    }));
    EXPECT_EQ(dialog.confirmed, Confirmed{1}) << "the dialog's own number of the row";
}

TEST(PickerView, TheModelKeepsQtsRules) {
    FakePicker dialog(50);
    QsQt::TemplateModel model(dialog);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.sort(0, Qt::DescendingOrder);
    EXPECT_EQ(model.DialogRow(0), 9u);
}

TEST(PickerView, AsManyRowsAsThereAreCostNoWidgets) {
    FakePicker dialog(20000);
    EXPECT_TRUE(UseView(dialog, [](QWidget* view) {
        EXPECT_LT(view->findChildren<QWidget*>().size(), 40);
        QTest::keyClick(&TableOf(*view), Qt::Key_End);
        Robot::Press(view, Qt::Key_Return);
    }));
    EXPECT_EQ(dialog.confirmed, Confirmed{19999});
}

TEST(PickerView, ItsParentMayGoWhileItIsOpen) {
    QWidget* const window = new QWidget;
    window->show();
    window->activateWindow();
    QTest::qWait(50);
    FakePicker dialog(1);
    EXPECT_FALSE(UseView(dialog, [window](QWidget* view) {
        EXPECT_EQ(view->parentWidget(), window);
        delete window;
    }));
}

TEST(PickerView, ItsParentMayGoWhileTheMessageIsOpen) {
    QWidget* const window = new QWidget;
    window->show();
    window->activateWindow();
    QTest::qWait(50);
    FakePicker dialog(1);
    EXPECT_FALSE(UseView(dialog, [window](QWidget* view) {
        EXPECT_EQ(view->parentWidget(), window);
        Robot::When(Robot::MessageBox, [window](QWidget*) { delete window; });
        Robot::Click(view, "confirm");
    }));
    EXPECT_EQ(dialog.confirmed, Confirmed{QsUi::NoRow});
    EXPECT_EQ(Robot::WindowWith("templates"), nullptr);
}

TEST(PickerView, TheMessageIsClosedWithEscapeAndTheListHasTheKeysAgain) {
    FakePicker dialog(3);
    EXPECT_TRUE(UseView(dialog, [](QWidget* view) {
        Robot::When(Robot::MessageBox, [](QWidget* box) { Robot::Press(box, Qt::Key_Escape); });
        Robot::Press(view, Qt::Key_Return);  // without a row
        EXPECT_EQ(Robot::MessageBox(), nullptr);
        EXPECT_EQ(view->focusWidget(), &TableOf(*view));
        Robot::GoToRow(view, 1);
        Robot::Press(view, Qt::Key_Return);
    }));
    EXPECT_EQ(dialog.confirmed, (Confirmed{QsUi::NoRow, 1}));
}

TEST(PickerView, ADoubleClickBesideTheRowsTakesNothing) {
    FakePicker dialog(2);
    EXPECT_FALSE(UseView(dialog, [](QWidget* view) {
        QTableView& table = TableOf(*view);
        Robot::GoToRow(view, 0);
        const QPoint below(20, table.viewport()->height() - 2);
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, below);
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, below);
        EXPECT_TRUE(view->isVisible());
        Robot::Press(view, Qt::Key_Escape);
    }));
    EXPECT_EQ(dialog.confirmed, Confirmed{});
}

TEST(PickerView, WithoutAnyRowItIsOpenedAllTheSame) {
    FakePicker dialog(0);
    EXPECT_FALSE(UseView(dialog, [](QWidget* view) {
        for (const int key : {Qt::Key_Down, Qt::Key_End, Qt::Key_Home, Qt::Key_A})
            Robot::Press(view, key);
        TableOf(*view).model()->sort(1);
        Robot::When(Robot::MessageBox, [](QWidget* box) { Robot::Press(box, Qt::Key_Return); });
        Robot::Press(view, Qt::Key_Return);
        Robot::Press(view, Qt::Key_Escape);
    }));
    EXPECT_EQ(dialog.confirmed, Confirmed{QsUi::NoRow});
}

TEST(PickerView, LettersLeadOnFromTheCurrentRowAndAround) {
    FakePicker dialog(0);
    for (const char16_t* title : {u"常规", u"Alpha", u"beta", u"Bravo", u"常用"})
        dialog.rows.emplace_back(title, u"x");
    constexpr int pause = 100;  // behind which letters begin anew
    const int before = QApplication::keyboardInputInterval();
    QApplication::setKeyboardInputInterval(pause);
    EXPECT_TRUE(UseView(dialog, [](QWidget* view) {
        QTableView& table = TableOf(*view);
        const auto type = [&](const QString& letters) {
            QTest::qWait(3 * pause);
            for (const QChar& letter : letters)
                table.keyboardSearch(letter);
            return table.currentIndex().row();
        };
        EXPECT_EQ(type(QStringLiteral("b")), 2);
        EXPECT_EQ(type(QStringLiteral("b")), 3) << "the next one";
        EXPECT_EQ(type(QStringLiteral("b")), 2) << "and around";
        EXPECT_EQ(type(QStringLiteral("BR")), 3) << "without case";
        EXPECT_EQ(type(QStringLiteral("常用")), 4);
        EXPECT_EQ(type(QStringLiteral("x")), 4) << "no source is looked at";
        Robot::Press(view, Qt::Key_Return);
    }));
    QApplication::setKeyboardInputInterval(before);
    EXPECT_EQ(dialog.confirmed, Confirmed{4});
}

TEST(PickerView, TheKeyTabLeadsBackAsWell) {
    FakePicker dialog(3);
    EXPECT_FALSE(UseView(dialog, [](QWidget* view) {
        const auto back = [view] { QTest::keyClick(view->focusWidget(), Qt::Key_Tab, Qt::ShiftModifier); };
        back();
        EXPECT_EQ(view->focusWidget()->objectName(), QStringLiteral("cancel"));
        back();
        EXPECT_EQ(view->focusWidget()->objectName(), QStringLiteral("confirm"));
        back();
        EXPECT_EQ(view->focusWidget(), &TableOf(*view));
        Robot::Press(view, Qt::Key_Escape);
    }));
}

TEST(PickerView, TheKeyTabLeadsFromTheListToTheButtons) {
    FakePicker dialog(3);
    EXPECT_FALSE(UseView(dialog, [](QWidget* view) {
        EXPECT_EQ(view->focusWidget(), &TableOf(*view));
        Robot::Press(view, Qt::Key_Tab);
        EXPECT_EQ(view->focusWidget()->objectName(), QStringLiteral("confirm"));
        Robot::Press(view, Qt::Key_Tab);
        EXPECT_EQ(view->focusWidget()->objectName(), QStringLiteral("cancel"));
        Robot::Press(view, Qt::Key_Space);
    }));
}

}  // namespace
