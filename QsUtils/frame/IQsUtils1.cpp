// Forwards to the services: a facade does no work of its own.
#include "QsUtils/frame/IQsUtils1.h"

#include "QsUtils/frame/Services.h"
#include "QsUtils/material/MaterialDigest.h"
#include "QsUtils/text/NumberText.h"
#include "QsUtils/text/Segments.h"
#include "QsUtils/units/CIndicatorUnitTable.h"

IQsUtils1::IQsUtils1() = default;
IQsUtils1::IQsUtils1(const IQsUtils1&) = default;
IQsUtils1& IQsUtils1::operator=(const IQsUtils1&) = default;
IQsUtils1::~IQsUtils1() = default;

int IQsUtils1::GetCharCount(const CString& text) {
    return QsText::GetCharCount(text);
}

bool IQsUtils1::IsValidRateOfTransPrice(const CString& text) {
    return QsText::IsValidRateOfTransPrice(text);
}

double IQsUtils1::GetFormatedRateOfTransPrice(const CString& text) {
    return QsText::GetFormatedRateOfTransPrice(text);
}

int IQsUtils1::GetUnitMantissa(CString const& strUnit) {
    return QsFrame::UnitDecimals().GetUnitMantissa(strUnit);
}

bool IQsUtils1::GetIndicatorsUnit(CString const& strUnit, CString& strIndicatorUnit) {
    return QsUnits::CIndicatorUnitTable::Instance().GetIndicatorsUnit(strUnit, strIndicatorUnit);
}

bool IQsUtils1::GetIndicatorsFactor(CString const& strFirst, CString const& strSecond, double& dFactor) {
    return QsUnits::CIndicatorUnitTable::Instance().GetIndicatorsFactor(strFirst, strSecond, dFactor);
}

void IQsUtils1::FindPath(CString& strPath, CString const& strFolder, CString const& strFileName,
                         CString const& strTail) {
    QsFrame::ConfigurationReader().FindPath(strPath, strFolder, strFileName, strTail);
}

CString IQsUtils1::GenerateMaterialMD5(CommonMaterialKey* pKey) {
    return QsMaterial::MaterialMd5(*pKey);
}
