#include "QsUtils/ui/qt/module/PickerView.h"

#include <QHeaderView>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QResizeEvent>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

#include "QsUtils/ui/DialogTexts.h"
#include "QsUtils/ui/qt/module/Buttons.h"
#include "QsUtils/ui/qt/module/Text.h"

namespace QsQt {

namespace {

constexpr int SourceColumn = 1;
/// Above and below the text of a row together.
constexpr int RowPadding = 6;

/// A list of rows: keys go from row to row, and nothing is current until the user has chosen it.
class TemplateTable : public QTableView {
public:
    using QTableView::QTableView;

    // Letters lead to a title, wherever in its row the user has clicked.
    void keyboardSearch(const QString& search) override {
        if (currentIndex().isValid())
            selectionModel()->setCurrentIndex(currentIndex().siblingAtColumn(0),
                                              QItemSelectionModel::NoUpdate);
        QTableView::keyboardSearch(search);
    }

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override {
        if (action == MoveHome)
            return model()->index(0, 0);
        if (action == MoveEnd)
            return model()->index(model()->rowCount() - 1, 0);
        if (action == MoveLeft || action == MoveRight)
            return currentIndex();
        return QTableView::moveCursor(action, modifiers);
    }

    // Qt makes the first row the current one, unseen, when the list gets the focus; the first arrow key would
    // then go past it.
    void focusInEvent(QFocusEvent* event) override {
        QTableView::focusInEvent(event);
        if (!selectionModel()->hasSelection())
            selectionModel()->clearCurrentIndex();
    }
};

}  // namespace

PickerView::PickerView(QsUi::IPickerDialog& dialog, QWidget* parent)
    : QDialog(parent), m_dialog(dialog), m_model(dialog), m_table(new TemplateTable(this)) {
    setWindowTitle(ToQString(QsUi::Picker::Title));
    setSizeGripEnabled(true);
    MakeTable();
    const DialogButtons buttons = MakeButtons(this);
    QVBoxLayout* const layout = new QVBoxLayout(this);
    layout->addWidget(m_table);
    layout->addLayout(buttons.layout);
    connect(buttons.confirm, &QPushButton::clicked, this, [this] { Confirm(); });
    connect(buttons.cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_table, &QTableView::doubleClicked, this, [this] { Confirm(); });
    connect(m_table->horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this](int column) { SortBy(column); });
    resize(FromDialogUnits(QsUi::Picker::Width, QsUi::Picker::Height));
    m_table->setFocus();
}

void PickerView::MakeTable() {
    m_table->setModel(&m_model);
    m_table->setObjectName(QStringLiteral("templates"));
    m_table->setAccessibleName(ToQString(QsUi::Picker::Title));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setTabKeyNavigation(false);  // the key leads to the buttons
    m_table->setWordWrap(false);
    m_table->setCornerButtonEnabled(false);
    QHeaderView& header = *m_table->horizontalHeader();
    header.setDefaultAlignment(Qt::AlignCenter);
    header.setSectionsClickable(true);
    header.setSortIndicatorShown(false);
    header.setHighlightSections(false);
    int column = 0;
    for (const int width : QsUi::Picker::ColumnWidths)
        header.resizeSection(column++, width);
    // One height for all rows: none has to be measured.
    m_table->verticalHeader()->setVisible(false);
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + RowPadding);
}

void PickerView::SortBy(int column) {
    const bool isAgain = column == m_sortedColumn && m_order == Qt::AscendingOrder;
    m_order = isAgain ? Qt::DescendingOrder : Qt::AscendingOrder;
    m_sortedColumn = column;
    m_model.sort(column, m_order);
    if (m_table->currentIndex().isValid())
        m_table->scrollTo(m_table->currentIndex());
}

void PickerView::Confirm() {
    const QModelIndexList selected = m_table->selectionModel()->selectedRows();
    const std::size_t row = selected.isEmpty() ? QsUi::NoRow : m_model.DialogRow(selected.front().row());
    const std::optional<QsUi::InformationMessage> message = m_dialog.Confirm(row);
    if (!message) {
        accept();
        return;
    }
    // The host may destroy the window on which this stands while the box is open, and both go with it.
    const QPointer<QMessageBox> box = new QMessageBox(QMessageBox::Information, ToQString(message->caption),
                                                      ToQString(message->text), QMessageBox::NoButton, this);
    box->setAttribute(Qt::WA_QuitOnClose, false);
    box->addButton(ToQString(QsUi::Picker::Confirm), QMessageBox::AcceptRole);
    box->exec();
    if (box.isNull())
        return;
    delete box.data();
    m_table->setFocus();
}

// Room that the window gets is the source's: its paths are what is cut short.
void PickerView::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    if (!event->oldSize().isValid() || !isVisible())
        return;
    QHeaderView& header = *m_table->horizontalHeader();
    const int wider = event->size().width() - event->oldSize().width();
    header.resizeSection(SourceColumn, std::max(header.sectionSize(SourceColumn) + wider,
                                                QsUi::Picker::ColumnWidths[SourceColumn]));
}

}  // namespace QsQt
