// The order in which the picker's list shows its rows.
#pragma once

#include <cstddef>
#include <vector>

#include "QsUtils/ui/Views.h"

namespace QsUi {

/// That of the dialog, until the user sorts by a column. A place is where a row is shown. For one thread.
class RowOrder {
public:
    explicit RowOrder(const IPickerDialog& dialog) noexcept : m_dialog(dialog) {}

    /// Sorts by the words of a column: ascending, and descending when that is how they stand already. Rows of
    /// like texts stay in the dialog's order. Memory exhaustion leaves the order as it was.
    void SortBy(int column);

    std::size_t RowAt(std::size_t place) const noexcept { return m_rows.empty() ? place : m_rows[place]; }
    /// In linear time.
    std::size_t PlaceOf(std::size_t row) const noexcept;

private:
    const IPickerDialog& m_dialog;
    std::vector<std::size_t> m_rows;  // by their places; empty in the dialog's order
    int m_column = -1;
    bool m_isDescending = false;
};

}  // namespace QsUi
