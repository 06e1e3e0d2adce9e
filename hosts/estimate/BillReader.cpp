#include "BillReader.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "BillColumns.h"
#include "Formula.h"
#include "InputText.h"
#include "Units.h"
#include "Utf8.h"

namespace Estimate {
namespace {

constexpr std::size_t BillCodeLength = 12;
constexpr std::size_t NationalCodeLength = 9;
// Longer codes than any quota book has would only slow the order down.
constexpr std::size_t LongestCode = 64;

bool IsDigits(std::string_view text) {
    return std::ranges::all_of(text, [](char byte) { return byte >= '0' && byte <= '9'; });
}

class Builder {
public:
    Builder(const Variables& variables, Bill& bill, Problems& problems)
        : m_variables(variables), m_bill(bill), m_problems(problems), m_columns(BillColumn::Specs) {}

    void Take(const CsvRow& row) {
        if (!m_columns.IsKnown()) {
            m_columns.TryHeadings(row);
            return;
        }
        const std::string_view code = m_columns.Field(row, BillColumn::Code);
        if (code.empty() && IsHeading(row))
            return;
        m_rowIsBad = false;
        CheckWidth(row);
        if (code.size() == BillCodeLength && IsDigits(code))
            TakeBillRow(row);
        else
            TakeQuotaRow(row);
        if (m_rowIsBad)
            ++m_problems.badRows;
    }

    void Finish() {
        CloseItem();
        Sort(m_bill);
        WarnOfDuplicates();
        for (const BillItem& item : m_bill.items)
            AddTo(m_bill.fen, item.fen);
    }

    /// Notes where the table broke off.
    void Break(const CsvBreak& end) { RejectRow(end.line, end.reason), ++m_problems.badRows; }

    const Columns& Table() const noexcept { return m_columns; }

private:
    bool IsHeading(const CsvRow& row) const {
        return m_columns.Field(row, BillColumn::Unit).empty() &&
               m_columns.Field(row, BillColumn::Formula).empty() &&
               m_columns.Field(row, BillColumn::Price).empty();
    }

    void Note(Severity severity, std::size_t line, std::size_t column, std::string reason) {
        m_problems.found.push_back(
            {severity, line, m_columns.Number(column), m_columns.Title(column), std::move(reason)});
        m_rowIsBad = m_rowIsBad || severity == Severity::Error;
    }
    void Reject(const CsvRow& row, std::size_t column, std::string reason) {
        Note(Severity::Error, row.line, column, std::move(reason));
    }
    void RejectRow(std::size_t line, std::string reason) {
        m_problems.found.push_back({Severity::Error, line, 0, {}, std::move(reason)});
        m_rowIsBad = true;
    }

    void CheckWidth(const CsvRow& row) {
        // A field more than the headings have means a comma that was meant to be text.
        for (std::size_t i = m_columns.Width(); i < row.fields.size(); ++i)
            if (!row.fields[i].empty())
                return RejectRow(row.line, "the row has " + std::to_string(row.fields.size()) +
                                               " fields and the headings " +
                                               std::to_string(m_columns.Width()) +
                                               "; a text with a comma stands in quotes");
    }

    void TakeBillRow(const CsvRow& row) {
        CloseItem();
        m_itemLine = row.line;
        BillItem item;
        ReadItem(row, item, nullptr);
        const std::optional<std::int64_t> price = ReadPrice(row, true);
        if (m_rowIsBad) {
            m_item.reset();
            return;
        }
        item.features = m_bill.texts.Keep(m_columns.Field(row, BillColumn::Features));
        item.firstQuota = m_bill.quotas.size();
        item.composed = !price;
        item.price = price.value_or(0);
        m_item = item;
        m_quotaRows = 0;
        m_badQuotaLine = 0;
        m_amount = FromUtf8(DecimalText(item.quantity));
    }

    void TakeQuotaRow(const CsvRow& row) {
        CheckQuotaCode(row);
        ++m_quotaRows;
        if (!m_item)
            return RejectRow(row.line, m_itemLine == 0
                                           ? "no bill item stands above the quota row"
                                           : "the bill item above it, on line " + std::to_string(m_itemLine) +
                                                 ", can't be priced");
        QuotaItem quota;
        ReadItem(row, quota, &m_amount);
        quota.price = ReadPrice(row, false).value_or(0);
        if (!m_rowIsBad)
            SetAmount(quota);
        if (m_rowIsBad) {
            m_badQuotaLine = m_badQuotaLine == 0 ? row.line : m_badQuotaLine;
            return;
        }
        AddTo(m_item->quotaFen, quota.fen);
        ++m_item->quotaCount;
        m_bill.quotas.push_back(quota);
    }

    void CheckQuotaCode(const CsvRow& row) {
        const std::string_view code = m_columns.Field(row, BillColumn::Code);
        if (code.empty())
            Reject(row, BillColumn::Code, "the code is empty");
        else if (code.size() >= NationalCodeLength && IsDigits(code))
            Reject(
                row, BillColumn::Code,
                "a bill code has 12 digits, nine of the national code and three of sequence; this one has " +
                    std::to_string(code.size()));
        else if (code.size() > LongestCode)
            Reject(row, BillColumn::Code, "the code has more than 64 bytes");
    }

    void ReadItem(const CsvRow& row, Item& item, const CString* amount) {
        using namespace BillColumn;
        TextPool& texts = m_bill.texts;
        item.line = row.line;
        item.code = texts.Keep(m_columns.Field(row, Code));
        item.name = texts.Keep(m_columns.Field(row, Name));
        item.formula = texts.Keep(m_columns.Field(row, Formula));
        item.unit = ReadUnit(m_columns.Field(row, Unit));
        if (item.name.empty())
            Reject(row, Name, "the name is empty");
        if (item.unit.empty())
            Reject(row, Unit, "the unit is empty");
        ReadQuantity(row, item, amount);
    }

    /// Rows of a kind often follow each other, so the last unit is kept.
    std::string_view ReadUnit(std::string_view unit) {
        if (unit != m_lastUnitText) {
            m_lastUnitText = unit;
            m_lastUnit = m_bill.texts.Keep(NormalizeUnit(unit));
            m_lastDecimals = UnitDecimals(m_lastUnit);
        }
        return m_lastUnit;
    }

    void ReadQuantity(const CsvRow& row, Item& item, const CString* amount) {
        const FormulaResult result = Evaluate(FromUtf8(item.formula), m_variables, amount);
        for (const FormulaRemark& remark : result.remarks)
            Note(remark.severity, row.line, BillColumn::Formula, remark.reason);
        if (!result.valid)
            return;
        const std::optional<std::int64_t> units = RoundToDecimals(result.value, m_lastDecimals);
        if (!units)
            return Reject(row, BillColumn::Formula, "the quantity is a thousand million or more");
        item.quantity = {*units, m_lastDecimals};
    }

    std::optional<std::int64_t> ReadPrice(const CsvRow& row, bool mayBeEmpty) {
        const std::string_view text = m_columns.Field(row, BillColumn::Price);
        if (text.empty()) {
            if (!mayBeEmpty)
                Reject(row, BillColumn::Price, "the unit price is empty");
            return std::nullopt;
        }
        const std::optional<double> price = ParseNumber(FromUtf8(text));
        if (!price) {
            Reject(row, BillColumn::Price, "the unit price is no number: \"" + std::string(text) + "\"");
            return std::nullopt;
        }
        const std::optional<std::int64_t> steps = RoundToDecimals(*price, PriceDecimals);
        if (!steps)
            Reject(row, BillColumn::Price, "the unit price is a thousand million yuan or more");
        return steps;
    }

    void SetAmount(Item& item) {
        const std::optional<std::int64_t> fen = AmountInFen(item.quantity, item.price);
        if (!fen)
            return Note(Severity::Error, item.line, BillColumn::Price,
                        "the amount is ten thousand million yuan or more");
        item.fen = *fen;
    }

    /// A bill item is complete when the next one begins: only then its quota items have composed its price.
    void CloseItem() {
        if (!m_item)
            return;
        BillItem& item = *m_item;
        const bool nextIsBad = std::exchange(m_rowIsBad, false);
        if (item.composed)
            ComposePrice(item);
        if (!m_rowIsBad)
            SetAmount(item);
        if (m_rowIsBad) {
            m_bill.quotas.resize(item.firstQuota);
            m_problems.badRows += 1 + item.quotaCount;
        } else {
            m_bill.items.push_back(item);
        }
        m_item.reset();
        m_rowIsBad = nextIsBad;
    }

    void ComposePrice(BillItem& item) {
        const auto reject = [&](std::string reason) {
            Note(Severity::Error, item.line, BillColumn::Price, std::move(reason));
        };
        if (m_badQuotaLine > 0)
            return reject("the unit price is empty, and its quota row on line " +
                          std::to_string(m_badQuotaLine) + " can't be priced");
        if (m_quotaRows == 0)
            return reject("the unit price is empty, and no quota rows compose one");
        const std::optional<std::int64_t> price = PriceOf(item.quotaFen, item.quantity);
        if (!price)
            return reject(item.quantity.units == 0 ? "no price can be composed for a quantity of 0"
                                                   : "the composed price is a thousand million yuan or more");
        item.price = *price;
    }

    void WarnOfDuplicates() {
        for (std::size_t i = 1; i < m_bill.items.size(); ++i) {
            const BillItem& item = m_bill.items[i];
            const BillItem& before = m_bill.items[i - 1];
            if (item.code == before.code)
                Note(Severity::Warning, std::max(item.line, before.line), BillColumn::Code,
                     "the bill code " + std::string(item.code) + " stands on line " +
                         std::to_string(std::min(item.line, before.line)) + " already");
        }
    }

    const Variables& m_variables;
    Bill& m_bill;
    Problems& m_problems;
    Columns m_columns;
    std::optional<BillItem> m_item;  // the one whose quota rows are being read
    std::size_t m_itemLine = 0;
    std::size_t m_quotaRows = 0;
    std::size_t m_badQuotaLine = 0;
    CString m_amount;
    std::string m_lastUnitText;
    std::string_view m_lastUnit;
    int m_lastDecimals = UnitDecimals("");
    bool m_rowIsBad = false;
};

}  // namespace

std::string ReadBill(std::istream& in, const Variables& variables, Bill& bill, Problems& problems,
                     const ByteProgress& progress) {
    const InputText text = DetectText(in);
    if (!text.refusal.empty())
        return text.refusal;
    Builder builder(variables, bill, problems);
    const auto take = [&](const CsvRow& row) { builder.Take(row); };
    const CsvBreak end = ReadCsv(in, text.encoding, take, progress);
    if (!builder.Table().IsKnown())
        return end.reason.empty() ? "no row names the columns: " + builder.Table().Missing() : end.reason;
    if (!end.reason.empty())
        builder.Break(end);
    builder.Finish();
    return {};
}

}  // namespace Estimate
