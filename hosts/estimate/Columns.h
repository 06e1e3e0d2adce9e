// Which column of a table holds what: told by the heading row, in Chinese or in English.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "CsvRows.h"

namespace Estimate {

struct ColumnSpec {
    Text title;                                  ///< its name in messages
    std::span<const std::string_view> headings;  ///< what it may be called; compared without blanks, case and
                                                 ///< a bracketed remark such as "(元)"
    bool required = true;
};

/// Finds the columns of a table. Rows in front of the headings, such as a title, are passed over.
class Columns {
public:
    explicit Columns(std::span<const ColumnSpec> specs) : m_specs(specs), m_places(specs.size()) {}

    /// Whether this row names all required columns; from then on `Field` answers.
    bool TryHeadings(const CsvRow& row);
    bool IsKnown() const noexcept { return m_known; }
    /// The titles of required columns that the most promising row so far lacks, joined by commas.
    Message Missing() const;

    /// A field without white space around it; empty where the row or the table has no such column.
    std::string_view Field(const CsvRow& row, std::size_t column) const;
    /// The number of a column in the table, from 1; 0 when it has none.
    std::size_t Number(std::size_t column) const { return m_places[column]; }
    Text Title(std::size_t column) const { return m_specs[column].title; }
    /// How many fields the heading row has.
    std::size_t Width() const noexcept { return m_width; }

private:
    std::span<const ColumnSpec> m_specs;
    std::vector<std::size_t> m_places;  // numbers from 1
    std::vector<std::size_t> m_best;
    std::size_t m_bestCount = 0;
    std::size_t m_width = 0;
    bool m_known = false;
};

/// A text without white space at its ends, ideographic and no-break spaces among it.
std::string_view Trimmed(std::string_view text);

}  // namespace Estimate
