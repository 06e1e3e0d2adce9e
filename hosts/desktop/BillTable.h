// The table of a bill, whose cells show the tip when their text is longer than they are.
#pragma once

#include <QTableWidget>

#include "BillFile.h"

namespace Desktop {

class BillTable : public QTableWidget {
public:
    explicit BillTable(const Bill& bill, QWidget* parent = nullptr);

    /// As if the mouse had come to a cell.
    void ShowTip(int row, int column);

protected:
    bool viewportEvent(QEvent* event) override;
};

}  // namespace Desktop
