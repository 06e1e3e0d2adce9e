// A priced bill of quantities.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "Decimal.h"
#include "Place.h"
#include "TextPool.h"

namespace Estimate {

/// What bill items and quota items share. Texts are UTF-8 and lie in the bill's pool.
struct Item {
    Place place;  ///< in the input
    std::string_view code;
    std::string_view name;
    std::string_view unit;
    std::string_view formula;
    Decimal quantity;        ///< rounded to the decimals of the unit
    std::int64_t price = 0;  ///< in steps of PriceDecimals
    std::int64_t fen = 0;    ///< quantity times price
};

struct QuotaItem : Item {};

struct BillItem : Item {
    std::string_view features;
    std::size_t firstQuota = 0;  ///< its quota items stand side by side
    std::size_t quotaCount = 0;
    std::int64_t quotaFen = 0;  ///< the sum of their amounts
    bool composed = false;      ///< the price comes from the quota items
};

struct Bill {
    TextPool texts;
    std::vector<BillItem> items;    ///< in code order once `Sort` has run
    std::vector<QuotaItem> quotas;  ///< of one bill item: in quota order
    std::int64_t fen = 0;           ///< the sum of the bill items' amounts
};

/// Puts the items in the order of their bill codes and, below each, the quota items in the order of their
/// quota codes.
void Sort(Bill& bill);

}  // namespace Estimate
