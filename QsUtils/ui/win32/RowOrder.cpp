#include "QsUtils/ui/win32/RowOrder.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <utility>

#include "QsUtils/platform/WordCompare.h"

namespace QsUi {

void RowOrder::SortBy(int column) {
    const bool isDescending = column == m_column && !m_isDescending;
    std::vector<std::string> keys(m_dialog.RowCount());
    for (std::size_t row = 0; row < keys.size(); ++row)
        QsPlatform::AppendWordKey(m_dialog.Cell(row, column), keys[row]);
    std::vector<std::size_t> rows(keys.size());
    std::iota(rows.begin(), rows.end(), std::size_t{0});
    std::stable_sort(rows.begin(), rows.end(), [&](std::size_t a, std::size_t b) {
        return isDescending ? keys[b] < keys[a] : keys[a] < keys[b];
    });
    m_rows = std::move(rows);
    m_column = column;
    m_isDescending = isDescending;
}

std::size_t RowOrder::PlaceOf(std::size_t row) const noexcept {
    if (m_rows.empty())
        return row;
    return static_cast<std::size_t>(std::find(m_rows.begin(), m_rows.end(), row) - m_rows.begin());
}

}  // namespace QsUi
