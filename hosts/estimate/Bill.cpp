#include "Bill.h"

#include <utility>

#include <QsUtils/QsUtils.h>

#include "Utf8.h"

namespace Estimate {
namespace {

using Codes = std::vector<std::pair<CString, void*>>;

void SortItems(std::vector<BillItem>& items) {
    Codes codes;
    codes.reserve(items.size());
    for (BillItem& item : items)
        codes.emplace_back(FromUtf8(item.code), &item);
    IQsUtils::SortQdItemCodes(codes);
    std::vector<BillItem> sorted;
    sorted.reserve(items.size());
    for (const auto& code : codes)
        sorted.push_back(*static_cast<const BillItem*>(code.second));
    items = std::move(sorted);
}

void SortQuotas(QuotaItem* quotas, std::size_t count, Codes& codes, std::vector<QuotaItem>& sorted) {
    if (count < 2)
        return;
    codes.clear();
    sorted.clear();
    for (std::size_t i = 0; i < count; ++i)
        codes.emplace_back(FromUtf8(quotas[i].code), &quotas[i]);
    IQsUtils::SortDeItemCodes(codes);
    for (const auto& code : codes)
        sorted.push_back(*static_cast<const QuotaItem*>(code.second));
    for (std::size_t i = 0; i < count; ++i)
        quotas[i] = sorted[i];
}

}  // namespace

void Sort(Bill& bill) {
    SortItems(bill.items);
    Codes codes;
    std::vector<QuotaItem> sorted;
    for (const BillItem& item : bill.items)
        SortQuotas(bill.quotas.data() + item.firstQuota, item.quotaCount, codes, sorted);
}

}  // namespace Estimate
