#include "ExtraCostTable.h"

#include <array>
#include <map>
#include <optional>
#include <string_view>
#include <tuple>
#include <utility>

#include "Columns.h"
#include "CsvRows.h"
#include "Decimal.h"
#include "InputText.h"
#include "Utf8.h"

namespace Estimate {
namespace {

namespace RateColumn {
enum Column : std::size_t { Name, Rate, Code };
}

constexpr std::string_view NameHeadings[] = {"name", "extracost", "名称", "费用名称", "增加费", "增加费名称"};
constexpr std::string_view RateHeadings[] = {"rate", "percent", "费率", "增加费率"};
constexpr std::string_view CodeHeadings[] = {"code", "itemcode", "编码", "清单编码", "项目编码", "适用编码"};
constexpr std::array Specs = {ColumnSpec{Text::ColumnName, NameHeadings},
                              ColumnSpec{Text::ColumnRate, RateHeadings},
                              ColumnSpec{Text::ColumnCode, CodeHeadings, false}};

constexpr double HighestRate = 1000;
constexpr std::size_t BillCodeLength = 12;
constexpr std::string_view PercentSigns[] = {"%", "％"};

/// A rate in percent, with or without the sign.
std::optional<std::int64_t> ParseRate(std::string_view text) {
    for (const std::string_view sign : PercentSigns) {
        if (text.ends_with(sign)) {
            text.remove_suffix(sign.size());
            break;
        }
    }
    const std::optional<double> percent = ParseNumber(FromUtf8(Trimmed(text)));
    if (!percent || !(*percent >= 0) || *percent > HighestRate)
        return std::nullopt;
    return RoundToDecimals(*percent, PriceDecimals);
}

bool IsCodeBeginning(std::string_view code) {
    return code.size() <= BillCodeLength && code.find_first_not_of("0123456789") == std::string_view::npos;
}

class RateReading {
public:
    RateReading(const LibraryCharges& charges, std::vector<ExtraCostRate>& rates, Problems& problems)
        : m_charges(charges), m_rates(rates), m_problems(problems) {}

    Message Run(std::istream& in) {
        const InputText text = DetectText(in);
        if (!text.refusal.empty())
            return text.refusal;
        const CsvBreak end = ReadCsv(in, text.encoding, [this](const CsvRow& row) {
            if (m_columns.IsKnown())
                Take(row);
            else
                m_columns.TryHeadings(row);
        });
        if (!end.reason.empty())
            Note(end.line, std::nullopt, end.reason);
        return m_columns.IsKnown() ? Message() : Say<Text::ColumnsMissing>(m_columns.Missing());
    }

private:
    void Take(const CsvRow& row) {
        const std::string name(m_columns.Field(row, RateColumn::Name));
        const std::optional<ExtraCostKind> kind = m_charges.KindOf(name);
        if (Message reason = WhyNotCharged(name, kind); !reason.empty())
            return Note(row.line, RateColumn::Name, std::move(reason));
        const std::string_view rateText = m_columns.Field(row, RateColumn::Rate);
        const std::optional<std::int64_t> rate = ParseRate(rateText);
        if (!rate)
            return Note(row.line, RateColumn::Rate, Say<Text::RateNoNumber>(rateText));
        const std::string code(m_columns.Field(row, RateColumn::Code));
        if (Message reason = WhyNotFor(*kind, code); !reason.empty())
            return Note(row.line, RateColumn::Code, std::move(reason));
        // An item has one height, so the options stand in for each other.
        const std::string charge = *kind == ExtraCostKind::OverHeight ? std::string() : name;
        const auto [first, isNew] = m_lines.emplace(std::tuple(*kind, charge, code), row.line);
        if (!isNew)
            return Note(row.line, code.empty() ? RateColumn::Name : RateColumn::Code,
                        Say<Text::RateTwice>(first->second));
        m_rates.push_back({*kind, name, code, *rate});
    }

    Message WhyNotCharged(const std::string& name, std::optional<ExtraCostKind> kind) const {
        if (!kind)
            return name.empty() ? Say<Text::NameEmpty>()
                                : Say<Text::NoSuchExtraCost>(m_charges.library, name);
        return *kind == ExtraCostKind::Unknown ? Say<Text::ChargedOnUnknown>(name) : Message();
    }

    static Message WhyNotFor(ExtraCostKind kind, std::string_view code) {
        if (!IsCodeBeginning(code))
            return Say<Text::NoCodeBeginning>(code);
        if (!code.empty() && (kind == ExtraCostKind::Project || kind == ExtraCostKind::Composite))
            return Say<Text::ChargedOnWhole>();
        return {};
    }

    void Note(std::size_t line, std::optional<RateColumn::Column> column, Message reason) {
        Problem problem;
        problem.place.line = line;
        if (column) {
            problem.column = m_columns.Number(*column);
            problem.heading = m_columns.Title(*column);
        }
        problem.reason = std::move(reason);
        m_problems.found.push_back(std::move(problem));
        ++m_problems.badRows;
    }

    const LibraryCharges& m_charges;
    std::vector<ExtraCostRate>& m_rates;
    Problems& m_problems;
    Columns m_columns{Specs};
    std::map<std::tuple<ExtraCostKind, std::string, std::string>, std::size_t> m_lines;
};

}  // namespace

Message ReadExtraCostRates(std::istream& in, const LibraryCharges& charges, std::vector<ExtraCostRate>& rates,
                           Problems& problems) {
    return RateReading(charges, rates, problems).Run(in);
}

}  // namespace Estimate
