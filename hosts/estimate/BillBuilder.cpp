#include "BillBuilder.h"

#include <algorithm>
#include <utility>

#include "Formula.h"
#include "Units.h"
#include "Utf8.h"

namespace Estimate {
namespace {

constexpr std::size_t NationalCodeLength = 9;
// Longer codes than any quota book has would only slow the order down.
constexpr std::size_t LongestCode = 64;

Message CodeFault(std::string_view code) {
    return IsDigits(code) ? Say<Text::CodeLength>(code.size()) : Say<Text::CodeCharacters>();
}

}  // namespace

void BillBuilder::Take(const BillRow& row) {
    m_rowIsBad = false;
    if (!row.fault.empty())
        RejectRow(row.place, row.fault);
    if (row.kind == RowKind::Item)
        TakeItem(row);
    else if (row.kind == RowKind::Quota)
        TakeQuota(row);
    if (m_rowIsBad)
        ++m_problems.badRows;
}

void BillBuilder::Finish() {
    CloseItem();
    Sort(m_bill);
    WarnOfDuplicates();
    for (const BillItem& item : m_bill.items)
        AddTo(m_bill.fen, item.fen);
}

void BillBuilder::Note(Severity severity, const Place& place, std::size_t column, Message reason) {
    m_problems.found.push_back(
        {severity, place, m_columns.Number(column), m_columns.Title(column), std::move(reason)});
    m_rowIsBad = m_rowIsBad || severity == Severity::Error;
}

void BillBuilder::Reject(const BillRow& row, std::size_t column, Message reason) {
    Note(Severity::Error, row.place, column, std::move(reason));
}

void BillBuilder::RejectRow(const Place& place, Message reason) {
    m_problems.found.push_back({Severity::Error, place, 0, {}, std::move(reason)});
    m_rowIsBad = true;
}

void BillBuilder::TakeItem(const BillRow& row) {
    CloseItem();
    m_itemPlace = row.place;
    BillItem item;
    if (const std::string_view code = row.fields[BillColumn::Code]; !IsBillCode(code))
        Reject(row, BillColumn::Code, code.empty() ? Say<Text::CodeEmpty>() : CodeFault(code));
    ReadItem(row, item, nullptr);
    const std::optional<std::int64_t> price = ReadPrice(row, true);
    if (m_rowIsBad) {
        m_item.reset();
        return;
    }
    item.features = m_bill.texts.Keep(row.fields[BillColumn::Features]);
    item.firstQuota = m_bill.quotas.size();
    item.composed = !price;
    item.price = price.value_or(0);
    m_item = item;
    m_quotaRows = 0;
    m_badQuota.reset();
    m_amount = FromUtf8(DecimalText(item.quantity));
}

void BillBuilder::TakeQuota(const BillRow& row) {
    CheckQuotaCode(row);
    // A table has quota rows below their item, a document inside of it.
    if (!m_itemPlace || row.place.item != m_itemPlace->item)
        return RejectRow(row.place, Say<Text::NoItemAbove>());
    ++m_quotaRows;
    if (!m_item)
        return RejectRow(row.place, Say<Text::ItemAboveBad>(AtPlace(*m_itemPlace)));
    QuotaItem quota;
    ReadItem(row, quota, &m_amount);
    quota.price = ReadPrice(row, false).value_or(0);
    if (!m_rowIsBad)
        SetAmount(quota);
    if (m_rowIsBad) {
        m_badQuota = m_badQuota.value_or(row.place);
        return;
    }
    AddTo(m_item->quotaFen, quota.fen);
    ++m_item->quotaCount;
    m_bill.quotas.push_back(quota);
}

void BillBuilder::CheckQuotaCode(const BillRow& row) {
    const std::string_view code = row.fields[BillColumn::Code];
    if (code.empty())
        Reject(row, BillColumn::Code, Say<Text::CodeEmpty>());
    else if (IsBillCode(code))
        Reject(row, BillColumn::Code, Say<Text::CodeOfItem>());
    else if (code.size() >= NationalCodeLength && IsDigits(code))
        Reject(row, BillColumn::Code, CodeFault(code));
    else if (code.size() > LongestCode)
        Reject(row, BillColumn::Code, Say<Text::CodeTooLong>());
}

void BillBuilder::ReadItem(const BillRow& row, Item& item, const CString* amount) {
    using namespace BillColumn;
    TextPool& texts = m_bill.texts;
    item.place = row.place;
    item.code = texts.Keep(row.fields[Code]);
    item.name = texts.Keep(row.fields[Name]);
    item.formula = texts.Keep(row.fields[Formula]);
    item.unit = ReadUnit(row.fields[Unit]);
    if (item.name.empty())
        Reject(row, Name, Say<Text::NameEmpty>());
    if (item.unit.empty())
        Reject(row, Unit, Say<Text::UnitEmpty>());
    ReadQuantity(row, item, amount);
}

/// Rows of a kind often follow each other, so the last unit is kept.
std::string_view BillBuilder::ReadUnit(std::string_view unit) {
    if (!m_lastDecimals || unit != m_lastUnitText) {
        m_lastUnitText = unit;
        m_lastUnit = m_bill.texts.Keep(NormalizeUnit(unit));
        m_lastDecimals = UnitDecimals(m_lastUnit);
    }
    return m_lastUnit;
}

void BillBuilder::ReadQuantity(const BillRow& row, Item& item, const CString* amount) {
    const FormulaResult result = Evaluate(FromUtf8(item.formula), m_variables, amount);
    for (const FormulaRemark& remark : result.remarks)
        Note(remark.severity, row.place, BillColumn::Formula, remark.reason);
    if (!result.valid)
        return;
    const int decimals = m_lastDecimals.value_or(MaxDecimals);
    const std::optional<std::int64_t> units = RoundToDecimals(result.value, decimals);
    if (!units)
        return Reject(row, BillColumn::Formula, Say<Text::QuantityTooLarge>());
    item.quantity = {*units, decimals};
}

std::optional<std::int64_t> BillBuilder::ReadPrice(const BillRow& row, bool mayBeEmpty) {
    const std::string_view text = row.fields[BillColumn::Price];
    if (text.empty()) {
        if (!mayBeEmpty)
            Reject(row, BillColumn::Price, Say<Text::PriceEmpty>());
        return std::nullopt;
    }
    const std::optional<double> price = ParseNumber(FromUtf8(text));
    if (!price) {
        Reject(row, BillColumn::Price, Say<Text::PriceNoNumber>(text));
        return std::nullopt;
    }
    const std::optional<std::int64_t> steps = RoundToDecimals(*price, PriceDecimals);
    if (!steps)
        Reject(row, BillColumn::Price, Say<Text::PriceTooLarge>());
    return steps;
}

void BillBuilder::SetAmount(Item& item) {
    const std::optional<std::int64_t> fen = AmountInFen(item.quantity, item.price);
    if (!fen)
        return Note(Severity::Error, item.place, BillColumn::Price, Say<Text::AmountTooLarge>());
    item.fen = *fen;
}

/// A bill item is complete when the next one begins: only then its quota items have composed its price.
void BillBuilder::CloseItem() {
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

void BillBuilder::ComposePrice(BillItem& item) {
    const auto reject = [&](Message reason) {
        Note(Severity::Error, item.place, BillColumn::Price, std::move(reason));
    };
    if (m_badQuota)
        return reject(Say<Text::PriceOfBadQuota>(AtPlace(*m_badQuota)));
    if (m_quotaRows == 0)
        return reject(Say<Text::PriceOfNoQuota>());
    const std::optional<std::int64_t> price = PriceOf(item.quotaFen, item.quantity);
    if (!price)
        return reject(item.quantity.units == 0 ? Say<Text::PriceOfNothing>() : Say<Text::ComposedTooLarge>());
    item.price = *price;
}

void BillBuilder::WarnOfDuplicates() {
    for (std::size_t i = 1; i < m_bill.items.size(); ++i) {
        const BillItem& item = m_bill.items[i];
        const BillItem& before = m_bill.items[i - 1];
        if (item.code == before.code)
            Note(Severity::Warning, std::max(item.place, before.place), BillColumn::Code,
                 Say<Text::CodeTwice>(item.code, AtPlace(std::min(item.place, before.place))));
    }
}

}  // namespace Estimate
