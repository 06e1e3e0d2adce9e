// The rows of the picker for a table, which asks only for those that it shows.
#pragma once

#include <QAbstractTableModel>
#include <cstddef>
#include <vector>

#include "QsUtils/ui/Views.h"

namespace QsQt {

class TemplateModel : public QAbstractTableModel {
public:
    /// The dialog outlives the model.
    explicit TemplateModel(const QsUi::IPickerDialog& dialog);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    /// In the order of Chinese words; equal rows stay in their order.
    void sort(int column, Qt::SortOrder order) override;

    /// The dialog's row in a row of the table.
    std::size_t DialogRow(int row) const { return m_rows[static_cast<std::size_t>(row)]; }

private:
    const QsUi::IPickerDialog& m_dialog;
    std::vector<std::size_t> m_rows;
};

}  // namespace QsQt
