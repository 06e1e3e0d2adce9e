// Forwards to the services: a facade does no work of its own.
#include "QsUtils/frame/IQsUtils1.h"

#include <new>

#include "QsUtils/config/OverviewFile.h"
#include "QsUtils/frame/Log.h"
#include "QsUtils/frame/LogRecord.h"
#include "QsUtils/frame/Services.h"
#include "QsUtils/material/MaterialDigest.h"
#include "QsUtils/text/NumberText.h"
#include "QsUtils/text/Segments.h"
#include "QsUtils/ui/ExcelVersion.h"
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

bool IQsUtils1::InitOverHeight(CString const& strLibFile, CString const& strFamily) {
    return QsFrame::ConfigurationReader().InitOverHeight(strLibFile, strFamily);
}

std::list<CString> const* IQsUtils1::GetOverHeightList(CString const& strLibFile, CString const& strFamily) {
    return QsFrame::ConfigurationReader().GetOverHeightList(strLibFile, strFamily);
}

std::map<CString, CString> const* IQsUtils1::GetExtraCostTypeList(CString const& strLibFile,
                                                                  CString const& strFamily) {
    return QsFrame::ConfigurationReader().GetExtraCostTypeList(strLibFile, strFamily);
}

eExtraCost_CoefficientType IQsUtils1::GetExtraCostCalType(CString const& strLibFile,
                                                          CString const& strTypeName,
                                                          CString const& strFamily) {
    return QsFrame::ConfigurationReader().GetExtraCostCalType(strLibFile, strTypeName, strFamily);
}

void IQsUtils1::SetExtraCostData(CString const& strKey, void* pData) {
    QsFrame::ConfigurationReader().SetExtraCostData(strKey, pData);
}

void* IQsUtils1::GetExtraCostDataByKey(CString const& strKey) {
    return QsFrame::ConfigurationReader().GetExtraCostDataByKey(strKey);
}

void* IQsUtils1::AllocateExtraCostData(std::size_t nBytes) {
    return ::operator new(nBytes);
}

void IQsUtils1::GetProjOverViewInfo(std::list<QS_ProjectOverView::stuColInfo*>& listInfo) {
    QsFrame::ConfigurationReader().GetProjOverViewInfo(listInfo);
}

void IQsUtils1::GetProjOverViewInfo(CString const& strFile,
                                    std::list<QS_ProjectOverView::stuColInfo*>& listInfo) {
    QsConfig::ReadOverview(strFile, QsConfig::OverviewSource::Project, listInfo);
}

bool IQsUtils1::CreateProjOverViewInfo(CString const& strFile,
                                       std::list<QS_ProjectOverView::stuColInfo*> const& listInfo) {
    return QsConfig::WriteOverview(strFile, listInfo);
}

void IQsUtils1::WriteHistory(CString const& strSection, CString const& strValue) {
    QsFrame::ConfigurationReader().WriteHistory(strSection, strValue);
}

void IQsUtils1::GetHistory(CString const& strSection, std::list<CString>& listHistory) {
    QsFrame::ConfigurationReader().GetHistory(strSection, listHistory);
}

void IQsUtils1::GetMarkMap(CString const& strFolder, bool bQdMode, CString const& strGroup,
                           std::map<CString, CString>& mapMark) {
    QsFrame::ConfigurationReader().GetMarkMap(strFolder, bQdMode, strGroup, mapMark);
}

void IQsUtils1::GetMarkList(CString const& strFolder, bool bQdMode, CString const& strGroup,
                            std::list<CString>& listMark) {
    QsFrame::ConfigurationReader().GetMarkList(strFolder, bQdMode, strGroup, listMark);
}

CString IQsUtils1::GetExcelInstallVersion() {
    return QsUi::GetExcelInstallVersion();
}

void IQsUtils1::RecordLogInfo(const CString& text, const CString& filePath) {
    QsFrame::RecordLogInfo(text, filePath);
}

void IQsUtils1::LogError(const CString& text) {
    QsFrame::LogMessage(text);
}
