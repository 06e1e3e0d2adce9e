/// @file
/// Units of quantities, and rates of price transfer, as `IQsUtils1` describes them.
#pragma once

#include "QsUtils/c_api/Basics.h"

#if defined(__cplusplus)
extern "C" {
#endif

/// How many decimals a quantity in this unit takes.
QSUTILS_API QsStatus QsGetUnitMantissa(const QsChar* unit, int32_t length, int32_t* decimals);
/// The canonical indicator unit of a unit. QS_NOT_FOUND for one that has none.
QSUTILS_API QsStatus QsGetIndicatorsUnit(const QsChar* unit, int32_t length, QsString** indicatorUnit);
/// How many of the second unit make one of the first. `isRelated` is 0, and the factor 1, for units of
/// different kinds.
QSUTILS_API QsStatus QsGetIndicatorsFactor(const QsChar* first, int32_t firstLength, const QsChar* second,
                                           int32_t secondLength, double* factor, int32_t* isRelated);
/// Whether a rate of price transfer is 0 or more.
QSUTILS_API QsStatus QsIsValidRateOfTransPrice(const QsChar* text, int32_t length, int32_t* isValid);
/// The number that a rate of price transfer begins with, or 0.
QSUTILS_API QsStatus QsGetFormatedRateOfTransPrice(const QsChar* text, int32_t length, double* rate);

#if defined(__cplusplus)
}
#endif
