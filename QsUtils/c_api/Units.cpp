#include "QsUtils/c_api/Units.h"

#include "QsUtils/c_api/Calls.h"
#include "QsUtils/frame/IQsUtils1.h"

using QsCApi::Call;
using QsCApi::TextOf;

QsStatus QsGetUnitMantissa(const QsChar* unit, std::int32_t length, std::int32_t* decimals) {
    return Call([&] { *decimals = IQsUtils1::GetUnitMantissa(TextOf(unit, length)); }, decimals);
}

QsStatus QsGetIndicatorsUnit(const QsChar* unit, std::int32_t length, QsString** indicatorUnit) {
    return Call(
        [&] {
            CString found;
            if (!IQsUtils1::GetIndicatorsUnit(TextOf(unit, length), found))
                return QsStatus{QS_NOT_FOUND};
            QsCApi::Give(indicatorUnit, std::move(found));
            return QsStatus{QS_OK};
        },
        indicatorUnit);
}

QsStatus QsGetIndicatorsFactor(const QsChar* first, std::int32_t firstLength, const QsChar* second,
                               std::int32_t secondLength, double* factor, std::int32_t* isRelated) {
    return Call(
        [&] {
            const CString of = TextOf(first, firstLength);
            *isRelated = IQsUtils1::GetIndicatorsFactor(of, TextOf(second, secondLength), *factor);
        },
        factor, isRelated);
}

QsStatus QsIsValidRateOfTransPrice(const QsChar* text, std::int32_t length, std::int32_t* isValid) {
    return Call([&] { *isValid = IQsUtils1::IsValidRateOfTransPrice(TextOf(text, length)); }, isValid);
}

QsStatus QsGetFormatedRateOfTransPrice(const QsChar* text, std::int32_t length, double* rate) {
    return Call([&] { *rate = IQsUtils1::GetFormatedRateOfTransPrice(TextOf(text, length)); }, rate);
}
