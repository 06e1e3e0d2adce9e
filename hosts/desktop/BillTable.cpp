#include "BillTable.h"

#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>

#include <QsUtils/QsUtils.h>

#include "Texts.h"

namespace Desktop {

namespace {

constexpr unsigned int TipDelay = 400;
constexpr int ColumnWidth = 150;
/// The tip knows one line.
const QChar LineEnd = u'\n';

}  // namespace

BillTable::BillTable(const Bill& bill, QWidget* parent)
    : QTableWidget(static_cast<int>(bill.rows.size()), static_cast<int>(bill.columns.size()), parent) {
    setHorizontalHeaderLabels(bill.columns);
    for (int row = 0; row < rowCount(); ++row) {
        const QStringList& cells = bill.rows[row];
        for (int column = 0; column < std::min(columnCount(), static_cast<int>(cells.size())); ++column)
            setItem(row, column, new QTableWidgetItem(QString(cells[column]).replace(LineEnd, u' ')));
    }
    horizontalHeader()->setDefaultSectionSize(ColumnWidth);
    setEditTriggers(NoEditTriggers);
    setWordWrap(false);
    setMouseTracking(true);
    connect(this, &QTableWidget::cellEntered, this, [this](int row, int column) { ShowTip(row, column); });
    for (const QScrollBar* const bar : {verticalScrollBar(), horizontalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, [] { texttip::CloseWindowNow(); });
}

void BillTable::ShowTip(int row, int column) {
    texttip::CloseWindowNow();
    const QTableWidgetItem* const cell = item(row, column);
    if (cell == nullptr || cell->text().isEmpty())
        return;
    const QRect area = visualItemRect(cell);
    CRect place(area.left(), area.top(), area.left() + area.width(), area.top() + area.height());
    texttip::SetShowText(ToCString(cell->text()));
    if (!texttip::IsTextLonger(place))
        return;
    const QPoint corner = viewport()->mapToGlobal(area.topLeft());
    texttip::SetWindowPosition({corner.x(), corner.y()});
    texttip::ShowWindowDelay(TipDelay);
}

bool BillTable::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave || event->type() == QEvent::MouseButtonPress)
        texttip::CloseWindowNow();
    return QTableWidget::viewportEvent(event);
}

}  // namespace Desktop
