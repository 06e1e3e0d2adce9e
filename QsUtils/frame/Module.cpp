// The module's static objects, its start and its end. All static objects with a destructor stand in this one
// file, because only within a file does the language fix the order in which they are made and destroyed.
#include "QsUtils/backup/BackUpNames.h"
#include "QsUtils/backup/BehindMark.h"
#include "QsUtils/directory/CCommonDirectory.h"
#include "QsUtils/directory/CLibraryDirectory.h"
#include "QsUtils/directory/CProjectDirectory.h"
#include "QsUtils/expression/CExpressionAnalyse.h"
#include "QsUtils/frame/CLogWriter.h"
#include "QsUtils/frame/CQsUtilsApp.h"
#include "QsUtils/frame/IQsUtils.h"
#include "QsUtils/frame/LazyService.h"
#include "QsUtils/frame/Log.h"
#include "QsUtils/frame/Services.h"
#include "QsUtils/library/CLibraryManager.h"
#include "QsUtils/platform/CodePage.h"
#include "QsUtils/platform/Threads.h"
#include "QsUtils/text/TextSearch.h"
#include "QsUtils/ui/CShowTextDlg.h"
#include "QsUtils/ui/Toolkit.h"
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

// The first static object, and so the last to go: others close handles when they are destroyed.
constinit const struct HandlesEnd {
    constexpr HandlesEnd() noexcept {}
    ~HandlesEnd() { QsPlatform::EndHandles(); }
} theHandles;

constinit QsFrame::ServiceHolder<LoadedMajors> theMajors;

}  // namespace

CString IQsUtils::m_strSoftVersion;

namespace {

constinit QsFrame::SharedServiceHolder<QsFrame::CLogWriter> theLogWriter;

}  // namespace

namespace QsBackup {

const CString VersionFile = u"FileVer.ini";
const CString DataBaseFile = u"BackUpDataBase.mdb";
const CString GraphicFolder = u"BackUpGraphicFile";
const CString VersionSection = u"GraphicFileInfo";
const CString RunVersion = u"RunVer";
const CString BackUpVersion = u"BackUpVer";

namespace {

RememberedMarks theMarks;

}  // namespace

}  // namespace QsBackup

namespace {

QsUi::IViews* ViewsOfTip() {
    return QsFrame::DialogToolkit().ForTip();
}

CQsUtilsApp theApp;
CShowTextDlg theTip(ViewsOfTip);
QsXml::ToolTable theXmlTools;
constinit QsFrame::ServiceHolder<COprateString> theFormulaVariables;
constinit QsFrame::ServiceHolder<LoadedUnitDecimals> theUnitDecimals;

// Ended by the end sequence, not by their own destructors.
constinit QsFrame::LazyService<CExtraCostRead> theConfigurationReader;
constinit QsFrame::LazyService<QsUi::Toolkit> theToolkit;
constinit QsFrame::LazyService<DirectoryManager::CCommonDirectory> theCommonDirectories;
constinit QsFrame::LazyService<DirectoryManager::CProjectDirectory> theProjectDirectories;
constinit QsFrame::LazyService<DirectoryManager::CLibraryDirectory> theLibraryDirectories;
constinit QsFrame::LazyService<ExpressionAnalyse::CExpressionAnalyse> theExpressionAnalyser;
constinit QsFrame::LazyService<CLibraryManager> theLibraryManager;

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
    theTip.DestroyWindow();
    theToolkit.Destroy();  // with the module of its views, in which the tip's window was made
    theCommonDirectories.Destroy();
    theProjectDirectories.Destroy();
    theLibraryDirectories.Destroy();  // the companion goes with them, and may use XML as it does
    theExpressionAnalyser.Destroy();
    theLibraryManager.Destroy();
    theXmlTools.Clear();  // tools hold objects of the platform
    QsXml::EndXmlPlatform();
    return 0;
}

namespace DirectoryManager {

ICommonDirectory* GetCommonDirectoryManager() {
    return &theCommonDirectories.Get();
}

IProjectDirectory* GetProjectDirectoryManager() {
    return &theProjectDirectories.Get();
}

ILibraryDirectory* GetLibraryDirectoryManager() {
    return &theLibraryDirectories.Get();
}

}  // namespace DirectoryManager

namespace LibraryManager {

ILibraryManager* GetLibraryManager() {
    return &theLibraryManager.Get();
}

}  // namespace LibraryManager

namespace ExpressionAnalyse {

IExpressionAnalyse* GetExpressionAnalyser() {
    return &theExpressionAnalyser.Get();
}

}  // namespace ExpressionAnalyse

namespace QsBackup {

RememberedMarks& Marks() {
    return theMarks;
}

}  // namespace QsBackup

namespace QsXml {

ToolTable& Tools() {
    return theXmlTools;
}

}  // namespace QsXml

namespace QsFrame {

CExtraCostRead& ConfigurationReader() {
    return theConfigurationReader.Get();
}

CShowTextDlg& TipDialog() {
    return theTip;
}

QsUi::Toolkit& DialogToolkit() {
    return theToolkit.Get();
}

void LogMessage(const CString& message) noexcept {
    try {
        const std::string line = QsPlatform::EncodeAnsi(QsText::UpToNul(message.View()));
        theLogWriter.With([&line](CLogWriter& writer) { writer.Write(line); });
    } catch (const std::exception&) {  // memory exhaustion: the line is lost
    }
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
