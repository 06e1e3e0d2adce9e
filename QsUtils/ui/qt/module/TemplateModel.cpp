#include "QsUtils/ui/qt/module/TemplateModel.h"

#include <QCollator>
#include <algorithm>
#include <iterator>
#include <numeric>

#include "QsUtils/ui/DialogTexts.h"
#include "QsUtils/ui/qt/module/Text.h"

namespace QsQt {

TemplateModel::TemplateModel(const QsUi::IPickerDialog& dialog)
    : m_dialog(dialog), m_rows(dialog.RowCount()) {
    std::iota(m_rows.begin(), m_rows.end(), std::size_t{0});
}

int TemplateModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int TemplateModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(std::size(QsUi::Picker::Columns));
}

QVariant TemplateModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    return ToQString(m_dialog.Cell(DialogRow(index.row()), index.column()));
}

QVariant TemplateModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return ToQString(QsUi::Picker::Columns[section]);
}

void TemplateModel::sort(int column, Qt::SortOrder order) {
    QCollator collator(QLocale(QLocale::Chinese, QLocale::China));
    std::vector<QCollatorSortKey> keys;
    keys.reserve(m_rows.size());
    for (std::size_t row = 0; row < m_rows.size(); ++row)
        keys.push_back(collator.sortKey(ToQString(m_dialog.Cell(row, column))));
    Q_EMIT layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    const std::vector<std::size_t> rowsBefore = m_rows;
    std::iota(m_rows.begin(), m_rows.end(), std::size_t{0});
    std::stable_sort(m_rows.begin(), m_rows.end(), [&](std::size_t a, std::size_t b) {
        const int result = keys[a].compare(keys[b]);
        return order == Qt::AscendingOrder ? result < 0 : result > 0;
    });
    std::vector<int> places(m_rows.size());
    for (std::size_t place = 0; place < m_rows.size(); ++place)
        places[m_rows[place]] = static_cast<int>(place);
    QModelIndexList after;
    for (const QModelIndex& each : before)
        after.append(index(places[rowsBefore[static_cast<std::size_t>(each.row())]], each.column()));
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged();
}

}  // namespace QsQt
