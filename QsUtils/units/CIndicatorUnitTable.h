// The units in which cost indicators are counted, and the factors between the forms of a unit.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsUnits {

/// What is known of units is compiled in; the object has no state. Any thread may call anything.
class CIndicatorUnitTable {
public:
    static const CIndicatorUnitTable& Instance() noexcept;

    /// The canonical indicator unit of a unit form, matched by case: mass is counted in "吨", also from a
    /// kilogram form, bricks in "千块". False, with the output left alone, for a form that isn't known.
    bool GetIndicatorsUnit(const CString& unit, CString& indicatorUnit) const;

    /// How many of the second unit make one of the first. Known forms of one group first; then, a unit
    /// against itself in any case is 1, and against itself behind a multiple in ASCII digits is 1 / multiple.
    /// The other way round, the multiple in the first unit, is refused unless the first unit happens to hold
    /// the character whose code is the length of the second. False, with 1.0, for all else.
    bool GetIndicatorsFactor(const CString& first, const CString& second, double& factor) const;

private:
    constexpr CIndicatorUnitTable() noexcept = default;
};

}  // namespace QsUnits
