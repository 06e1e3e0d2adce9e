// Forwards to the services: a facade does no work of its own.
#include "QsUtils/frame/IQsUtils.h"

#include "QsUtils/backup/CQSBackUpUtility.h"
#include "QsUtils/codes/CodeCompare.h"
#include "QsUtils/codes/CodeSort.h"
#include "QsUtils/frame/Services.h"
#include "QsUtils/material/MaterialDigest.h"
#include "QsUtils/tasks/StartThread.h"
#include "QsUtils/text/ChineseNumerals.h"
#include "QsUtils/text/Files.h"
#include "QsUtils/text/NumberText.h"
#include "QsUtils/text/Paths.h"
#include "QsUtils/text/Segments.h"
#include "QsUtils/ui/CFolderDialog.h"
#include "QsUtils/ui/OpenBudgets.h"
#include "QsUtils/ui/TemplatePaths.h"

IQsUtils::IQsUtils() = default;
IQsUtils::IQsUtils(const IQsUtils&) = default;
IQsUtils& IQsUtils::operator=(const IQsUtils&) = default;
IQsUtils::~IQsUtils() = default;

// --- Soft version

CString IQsUtils::GetSoftVersion() {
    return m_strSoftVersion;
}

void IQsUtils::SetSoftVersion(const CString& version) {
    m_strSoftVersion = version;
}

// --- Segments and strings

bool IQsUtils::CutFirstSegment(CString& text, const CString& sep) {
    return QsText::CutFirstSegment(text, sep);
}

bool IQsUtils::CutLastSegment(CString& text, const CString& sep) {
    return QsText::CutLastSegment(text, sep);
}

bool IQsUtils::GetFirstSegment(CString& text, const CString& sep) {
    return QsText::GetFirstSegment(text, sep);
}

bool IQsUtils::GetLastSegment(CString& text, const CString& sep) {
    return QsText::GetLastSegment(text, sep);
}

int IQsUtils::FindInCStringArray(const CString& text, const CStringArray& array) {
    return QsText::FindInCStringArray(text, array);
}

bool IQsUtils::StringArrayContains(const CStringArray& array, const wchar_t* text) {
    return QsText::StringArrayContains(array, text);
}

int IQsUtils::FindSpecStringCount(const CString& text, const CString& sub, CUIntArray& positions) {
    return QsText::FindSpecStringCount(text, sub, positions);
}

void IQsUtils::Split(const CString& text, CStringArray& out, wchar_t sep) {
    QsText::Split(text, out, sep);
}

void IQsUtils::TransStrToAry(const CString& text, const CString& sep, std::vector<CString>& out) {
    QsText::TransStrToAry(text, sep, out);
}

void IQsUtils::TransAryToStr(const std::vector<CString>& array, CString& out, const CString& sep) {
    QsText::TransAryToStr(array, out, sep);
}

void IQsUtils::ChangeSBCtoDBC(CString& text) {
    QsText::ChangeSBCtoDBC(text);
}

CString IQsUtils::TakeOutJxxzString(CString& text) {
    return QsText::TakeOutJxxzString(text);
}

std::wstring IQsUtils::AnsiToUnicode(const std::string& text) {
    return QsText::AnsiToUnicode(text);
}

std::string IQsUtils::UnicodeToAnsi(const std::wstring& text) {
    return QsText::UnicodeToAnsi(text);
}

std::wstring IQsUtils::CStringToWstring(CString& text) {
    return QsText::CStringToWstring(text);
}

// --- Numbers

bool IQsUtils::ParseToInteger(const CString& text, int& value) {
    return QsText::ParseToInteger(text, value);
}

bool IQsUtils::ParseToDouble(const CString& text, double& value) {
    return QsText::ParseToDouble(text, value);
}

bool IQsUtils::bIsNum(const CString& text) {
    return QsText::bIsNum(text);
}

CString IQsUtils::DoubleToCString(double value, int decimals, bool trimZeros) {
    return QsText::DoubleToCString(value, decimals, trimZeros);
}

// --- Chinese numerals

CString IQsUtils::NumToRMBStr(double value) {
    return QsText::NumToRMBStr(value);
}

CString IQsUtils::TransIntToUpper(int value) {
    return QsText::TransIntToUpper(value);
}

// --- Order of codes

int IQsUtils::CompareDECode(const CString& a, const CString& b) {
    return QsCodes::CompareDECode(a, b);
}

int IQsUtils::CompareQDCode(const CString& a, const CString& b) {
    return QsCodes::CompareQDCode(a, b);
}

int IQsUtils::CompareStringW(const CString& a, const CString& b) {
    return QsCodes::CompareStringW(a, b);
}

int IQsUtils::CompareStringW(const CString& a, const CString& b, wchar_t sep) {
    return QsCodes::CompareStringW(a, b, sep);
}

bool IQsUtils::SortItem(const CString& a, const CString& b) {
    return QsCodes::SortItem(a, b);
}

void IQsUtils::SortDeItemCodes(std::vector<std::pair<CString, void*>>& items) {
    QsCodes::SortDeItemCodes(items);
}

void IQsUtils::SortQdItemCodes(std::vector<std::pair<CString, void*>>& items) {
    QsCodes::SortQdItemCodes(items);
}

void IQsUtils::SortItemCodes(std::vector<std::pair<CString, void*>>& items) {
    QsCodes::SortItemCodes(items);
}

// --- Majors

void IQsUtils::GetMajorCodeByName(const CString& name, CString& code) {
    QsFrame::Majors().GetMajorCodeByName(name, code);
}

void IQsUtils::GetMajorByCode(const CString& code, CString& name) {
    QsFrame::Majors().GetMajorByCode(code, name);
}

void IQsUtils::GetAllMajorName(CStringArray& names) {
    QsFrame::Majors().GetAllMajorName(names);
}

// --- Variables in formulas

bool IQsUtils::IsVariable(const CString& text) {
    return QsFrame::FormulaVariables().IsVariable(text);
}

bool IQsUtils::FindVariable(const CString& text, std::list<CString>& out, bool unique) {
    return QsFrame::FormulaVariables().FindVariable(text, out, unique);
}

bool IQsUtils::FindVariable(const CString& text, std::map<int, CString>& out) {
    return QsFrame::FormulaVariables().FindVariable(text, out);
}

bool IQsUtils::IsIncludeQ(const CString& text) {
    return QsFrame::FormulaVariables().IsIncludeQ(text);
}

void IQsUtils::ReplaceQWithProjectAmount(CString& text, const CString& amount) {
    QsFrame::FormulaVariables().ReplaceQWithProjectAmount(text, amount);
}

void IQsUtils::ReplaceVarString(CString& text, const CString& variable, const CString& value) {
    QsFrame::FormulaVariables().ReplaceVarString(text, variable, value);
}

// --- Paths, folders and versions

int IQsUtils::CreateFolderAllPath(const CString& path) {
    return QsText::CreateFolderAllPath(path);
}

void IQsUtils::CopyFolderAllFiles(const CString& source, const CString& target, bool clearTarget) {
    QsText::CopyFolderAllFiles(source, target, clearTarget);
}

bool IQsUtils::DeleteDirectory(const CString& path) {
    return QsText::DeleteDirectory(path);
}

int IQsUtils::VersionBig(const CString& a, const CString& b, bool withThirdPart) {
    return QsText::VersionBig(a, b, withThirdPart);
}

bool IQsUtils::IsFileExist(const CString& path) {
    return QsText::IsFileExist(path);
}

bool IQsUtils::IsFileOpen(const CString& path) {
    return QsText::IsFileOpen(path);
}

CString IQsUtils::PickFileNameFromPath(const CString& path) {
    return QsText::PickFileNameFromPath(path);
}

CString IQsUtils::RemoveRelativeDirectoryFromPath(const CString& path) {
    return QsText::RemoveRelativeDirectoryFromPath(path);
}

CString IQsUtils::RemoveRelativeDirectory(const CString& path) {
    return QsText::RemoveRelativeDirectory(path);
}

void IQsUtils::FindPath(CString& found, const CString& folder, const CString& fileName, const CString& tail) {
    QsText::FindPath(found, folder, fileName, tail);
}

CString IQsUtils::GetInitPath() {
    return QsText::GetInitPath();
}

// --- Digest

CString IQsUtils::GetStreamMD5(CString const& strText) {
    return QsMaterial::StreamMd5(strText);
}

int IQsUtils::IsYsOpen(CString const& strKey, CString const& strItem) {
    return QsUi::IsYsOpen(strKey, strItem);
}

CString IQsUtils::YsTypeToString(eYsType eType) {
    return QsUi::YsTypeToString(eType);
}

eYsType IQsUtils::StringToYsType(CString const& strType) {
    return QsUi::StringToYsType(strType);
}

// --- Threads

// The name is taken by value, as hosts bind to it.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
HANDLE IQsUtils::StartThread(QsThreadRoutine routine, void* parameter, CString name, std::uint32_t* id) {
    return QsTasks::StartThread(routine, parameter, name, id);
}

// --- Save backup. Nothing of it outlives the call.

void IQsUtils::GetCurBackUpPath(CString& strPath, CString const& strProjectFile) {
    CQSBackUpUtility(CString()).GetCurBackUpPath(strPath, strProjectFile);
}

void IQsUtils::GetCurBackUpDataBasePath(CString& strPath, CString const& strProjectFile) {
    CQSBackUpUtility(CString()).GetCurBackUpDataBasePath(strPath, strProjectFile);
}

void IQsUtils::InitBackUpInfo(CString const& strProjectFile) {
    CQSBackUpUtility(CString()).InitBackUpInfo(strProjectFile);
}

void IQsUtils::OnBackUpSaveFile(CString const& strProjectFile) {
    CQSBackUpUtility(CString()).OnBackUpSaveFile(strProjectFile);
}

void IQsUtils::UpdateGraphicFileVer(CString const& strProjectFile) {
    CQSBackUpUtility(CString()).UpdateGraphicFileVer(strProjectFile);
}

void IQsUtils::OnNotSaveGraphicFile(CString const& strProjectFile) {
    CQSBackUpUtility(CString()).OnNotSaveGraphicFile(strProjectFile);
}

CString IQsUtils::GetProjectDbTemplate() {
    return QsUi::GetProjectDbTemplate();
}

CString IQsUtils::GetZhengTiReport() {
    return QsUi::GetZhengTiReport();
}

CString IQsUtils::GetFeeTemplatePath(const CString& family, const CString& section, bool isZeroVariant) {
    return QsUi::PickTemplate(QsFrame::DialogToolkit().ForDialog(), QsUi::FeeSummary, family, section,
                              isZeroVariant, 0);
}

CString IQsUtils::GetReportTemplatePath(const CString& family, const CString& section, int reportType) {
    return QsUi::PickTemplate(QsFrame::DialogToolkit().ForDialog(), QsUi::Report, family, section, false,
                              reportType);
}

CString IQsUtils::GetGfsjTemplatePath(const CString& family, const CString& section, bool isZeroVariant) {
    return QsUi::PickTemplate(QsFrame::DialogToolkit().ForDialog(), QsUi::FeesAndTaxes, family, section,
                              isZeroVariant, 0);
}

CString IQsUtils::GetCsxmTemplatePath(const CString& family, const CString& section, bool isZeroVariant) {
    return QsUi::PickTemplate(QsFrame::DialogToolkit().ForDialog(), QsUi::Measures, family, section,
                              isZeroVariant, 0);
}

CString IQsUtils::GetDjzcTemplatePath(const CString& family, const CString& section) {
    return QsUi::PickTemplate(QsFrame::DialogToolkit().ForDialog(), QsUi::UnitPriceComposition, family,
                              section, false, 0);
}

CString IQsUtils::SelectFolder() {
    return QsUi::SelectFolder(QsFrame::DialogToolkit().ForDialog());
}
