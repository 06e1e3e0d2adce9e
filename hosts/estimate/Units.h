// Units of measurement: how they are written, how many decimals a quantity takes, and in what unit
// indicators count it.
#pragma once

#include <string>
#include <string_view>

#include <QsUtils/QsUtils.h>

namespace Estimate {

/// The unit as the tables write it: "m²" and "㎡" become "m2", "m³" and "㎥" "m3"; blanks fall away.
std::string NormalizeUnit(std::string_view unit);

/// The decimals of a quantity, by the table of the installation; two for every unit when there is none. A
/// multiple in front of the unit adds its zeros, so that a quantity in 100m2 is as fine as one in m2; six are
/// the most, none the least.
int UnitDecimals(std::string_view unit);

struct IndicatorUnit {
    std::string unit;     ///< the canonical unit; where there is none, the unit without its multiple
    double factor = 1.0;  ///< how many of it make one of the unit asked for
};

/// The unit in which indicators count a quantity: kilograms in tonnes, bricks in thousands, 100m2
/// in m2, 10个 in 个.
IndicatorUnit IndicatorUnitOf(std::string_view unit);

}  // namespace Estimate
