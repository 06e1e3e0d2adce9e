// The picker: a list of two columns and two buttons.
#pragma once

#include <QDialog>

#include "QsUtils/ui/Views.h"
#include "QsUtils/ui/qt/module/TemplateModel.h"

class QTableView;

namespace QsQt {

class PickerView : public QDialog {
public:
    /// `dialog` outlives the view.
    PickerView(QsUi::IPickerDialog& dialog, QWidget* parent);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void MakeTable();
    void SortBy(int column);
    void Confirm();

    QsUi::IPickerDialog& m_dialog;
    TemplateModel m_model;
    QTableView* m_table;
    int m_sortedColumn = -1;
    Qt::SortOrder m_order = Qt::AscendingOrder;
};

}  // namespace QsQt
