// The module's static objects, its start and its end. All static objects with a destructor stand in this one
// file, because only within a file does the language fix the order in which they are made and destroyed.
#include "QsUtils/backup/BackUpNames.h"
#include "QsUtils/expression/CExpressionAnalyse.h"
#include "QsUtils/frame/CQsUtilsApp.h"
#include "QsUtils/frame/IQsUtils.h"
#include "QsUtils/frame/LazyService.h"
#include "QsUtils/frame/Services.h"
#include "QsUtils/xml/ToolTable.h"
#include "QsUtils/xml/XmlPlatform.h"

namespace {

// Whoever asks for a table gets it filled.
struct LoadedMajors final : QsCodes::CConvertMajorAndCode {
    LoadedMajors() { Load(FilePath()); }
};

struct LoadedUnitDecimals final : QsUnits::CUnitMantissa {
    LoadedUnitDecimals() { Load(FilePath()); }
};

constinit QsFrame::ServiceHolder<LoadedMajors> theMajors;

}  // namespace

CString IQsUtils::m_strSoftVersion;

namespace QsBackup {

const CString VersionFile = u"FileVer.ini";
const CString DataBaseFile = u"BackUpDataBase.mdb";
const CString GraphicFolder = u"BackUpGraphicFile";
const CString VersionSection = u"GraphicFileInfo";
const CString RunVersion = u"RunVer";
const CString BackUpVersion = u"BackUpVer";

}  // namespace QsBackup

namespace {

CQsUtilsApp theApp;
QsXml::ToolTable theXmlTools;
constinit QsFrame::ServiceHolder<COprateString> theFormulaVariables;
constinit QsFrame::ServiceHolder<LoadedUnitDecimals> theUnitDecimals;

// Ended by the end sequence, not by their own destructors.
constinit QsFrame::LazyService<CExtraCostRead> theConfigurationReader;
constinit QsFrame::LazyService<ExpressionAnalyse::CExpressionAnalyse> theExpressionAnalyser;

// The last static object: when it is made, all others stand, and it is destroyed before any of them, on
// unloading and at the end of the program alike.
const struct ModuleStart {
    ModuleStart() { theApp.InitInstance(); }
    ~ModuleStart() { theApp.ExitInstance(); }
} theStart;

}  // namespace

bool CQsUtilsApp::InitInstance() {
    theXmlTools.Clear();
    QsXml::StartXmlPlatform();
    return true;
}

int CQsUtilsApp::ExitInstance() {
    theConfigurationReader.Destroy();
    theExpressionAnalyser.Destroy();
    theXmlTools.Clear();  // tools hold objects of the platform
    QsXml::EndXmlPlatform();
    return 0;
}

namespace ExpressionAnalyse {

IExpressionAnalyse* GetExpressionAnalyser() {
    return &theExpressionAnalyser.Get();
}

}  // namespace ExpressionAnalyse

namespace QsXml {

ToolTable& Tools() {
    return theXmlTools;
}

}  // namespace QsXml

namespace QsFrame {

CExtraCostRead& ConfigurationReader() {
    return theConfigurationReader.Get();
}

QsCodes::CConvertMajorAndCode& Majors() {
    return theMajors.Get();
}

COprateString& FormulaVariables() {
    return theFormulaVariables.Get();
}

QsUnits::CUnitMantissa& UnitDecimals() {
    return theUnitDecimals.Get();
}

}  // namespace QsFrame
