// A picker with rows from a test.
#pragma once

#include <atomic>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "QsUtils/ui/Toolkit.h"
#include "QsUtils/ui/Views.h"

inline constexpr char16_t MessageText[] = u"请选择一个模板！";
inline constexpr char16_t MessageCaption[] = u"墨衡造价";

/// Takes any row, and answers none with a message.
class FakePicker final : public QsUi::IPickerDialog {
public:
    using Row = std::pair<std::u16string, std::u16string>;

    explicit FakePicker(std::vector<Row> rows) : m_rows(std::move(rows)) {}

    std::size_t RowCount() const noexcept override { return m_rows.size(); }
    std::u16string_view Cell(std::size_t row, int column) const noexcept override {
        ++askedCells;
        return column == 0 ? m_rows[row].first : m_rows[row].second;
    }
    std::optional<QsUi::InformationMessage> Confirm(std::size_t row) noexcept override {
        ++confirmations;
        chosen = row;
        if (row == QsUi::NoRow)
            return QsUi::InformationMessage{MessageText, MessageCaption};
        return std::nullopt;
    }

    bool Run() { return QsUi::OpenViews().views->RunPicker(*this); }

    mutable std::atomic<std::size_t> askedCells{0};
    std::atomic<int> confirmations{0};
    std::atomic<std::size_t> chosen{QsUi::NoRow};

private:
    std::vector<Row> m_rows;
};
