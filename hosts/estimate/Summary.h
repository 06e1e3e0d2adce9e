// What a priced bill comes to: by chapter, by indicator unit, and by quota and material.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Bill.h"

namespace Estimate {

struct Section {
    std::string_view code;  ///< six digits
    std::int64_t fen = 0;
};

struct Chapter {
    std::string_view code;  ///< four digits
    std::size_t first = 0;  ///< of its items in the bill
    std::size_t count = 0;
    std::int64_t fen = 0;
    std::vector<Section> sections;
};

struct IndicatorSum {
    std::string unit;
    double billQuantity = 0;
    double quotaQuantity = 0;
};

/// Quota items that agree in code, name, unit and price: one quota or one material.
struct Resource {
    std::string digest;  ///< the 32 hexadecimal digits of its identity
    std::string_view code;
    std::string_view name;
    std::string_view unit;
    std::int64_t price = 0;
    std::size_t rows = 0;
    Decimal quantity;
    std::int64_t fen = 0;
};

/// In code order, as the bill is.
std::vector<Chapter> ChaptersOf(const Bill& bill);
/// Ascending by unit, canonical units among the others. Quantities are added exactly, unit by unit, before
/// they are converted.
std::vector<IndicatorSum> IndicatorsOf(const Bill& bill);
/// In the order of quota codes.
std::vector<Resource> ResourcesOf(const Bill& bill);

}  // namespace Estimate
