#include "tests/module/Plugin.h"

#include <array>
#include <filesystem>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <QsUtils/QsUtils.h>

namespace {

using Items = std::vector<std::pair<CString, void*>>;

bool CallText() {
    CString text = u"a/b/c";
    std::vector<CString> pieces;
    IQsUtils::TransStrToAry(text, u"/", pieces);
    return IQsUtils::CutFirstSegment(text, u"/") && text == u"b/c" && pieces.size() == 3;
}

bool CallCodePage() {
    return IQsUtils::UnicodeToAnsi(L"砖") == "\xD7\xA9" && IQsUtils::AnsiToUnicode("\xD7\xA9") == L"砖" &&
           IQsUtils1::GetCharCount(u"砖墙") == 2;
}

bool CallNumbers() {
    double value = 0;
    return IQsUtils::ParseToDouble(u" 12.5 ", value) &&
           IQsUtils::DoubleToCString(value, 2, false) == u"12.50" &&
           IQsUtils1::IsValidRateOfTransPrice(u"免税");
}

bool CallNumerals() {
    return IQsUtils::NumToRMBStr(12.34) == u"壹拾贰元叁角肆分" &&
           IQsUtils::TransIntToUpper(105) == u"一百零五";
}

bool CallCodes() {
    CString prefix;
    int index = 0;
    return CCodeParser::ParseCode(u"A.B.3", prefix, index) && prefix == u"A.B" && index == 3;
}

bool CallOrder() {
    Items items = {{u"2-10", nullptr}, {u"2-9", nullptr}};
    IQsUtils::SortDeItemCodes(items);
    return items[0].first == u"2-9" && IQsUtils::CompareDECode(u"2-9", u"2-10") == -1;
}

// The word compare of hanzi is what needs a collator.
bool CallWordOrder() {
    Items items = {{u"座", nullptr}, {u"砖", nullptr}, {u"吖", nullptr}};
    IQsUtils::SortQdItemCodes(items);
    return items[0].first == u"吖" && items[2].first == u"座";
}

bool CallExpressions() {
    std::int32_t error = -1;
    const std::unique_ptr<ExpressionAnalyse::IExpressionNode> root(
        ExpressionAnalyse::GetExpressionAnalyser()->AnalyseExpression(u"2*(3+4)", &error));
    return error == 0 && root != nullptr && root->CalcValue() == 14;
}

bool CallVariables() {
    std::list<CString> names;
    return IQsUtils::FindVariable(u"A+B*2", names, false) && names.size() == 2 &&
           IQsUtils::IsIncludeQ(u"Q*2");
}

bool CallIndicators() {
    CString unit;
    double factor = 0;
    return IQsUtils1::GetIndicatorsUnit(u"kg", unit) && unit == u"吨" &&
           IQsUtils1::GetIndicatorsFactor(u"吨", u"公斤", factor) && factor == 1000;
}

bool CallDigest() {
    CommonMaterialKey key;
    key.strKeyText1 = u"水泥";
    return IQsUtils::GetStreamMD5(u"") == u"d41d8cd98f00b204e9800998ecf8427e" &&
           IQsUtils1::GenerateMaterialMD5(&key).GetLength() == 32;
}

// No file of majors stands beside the hosts of these tests. A file of units may, with a default of two;
// without one it is two as well.
bool CallMajors() {
    CString code = u"overwritten";
    CString name = u"overwritten";
    CStringArray names;
    IQsUtils::GetMajorCodeByName(u"建筑工程", code);
    IQsUtils::GetMajorByCode(u"T", name);
    IQsUtils::GetAllMajorName(names);
    return code.IsEmpty() && name.IsEmpty() && names.IsEmpty();
}

bool CallUnitDecimals() {
    return IQsUtils1::GetUnitMantissa(u"no unit") == 2;
}

// No configuration file stands beside the hosts of these tests, and none is made.
bool CallConfiguration() {
    std::list<CString> history = {u"kept"};
    std::list<CString> marks;
    std::map<CString, CString> markMap;
    IQsUtils1::GetHistory(u"no such section", history);
    IQsUtils1::GetMarkList(u"", true, u"FeeTax", marks);
    IQsUtils1::GetMarkMap(u"", false, u"FeeTax", markMap);
    return marks.empty() && markMap.empty() && history.size() == 1 &&
           IQsUtils1::GetExtraCostDataByKey(u"no such key") == nullptr;
}

bool CallExtraCosts() {
    return !IQsUtils1::InitOverHeight(u"no such library.mdb", u"no such family") &&
           IQsUtils1::GetOverHeightList(u"no such library.mdb", u"") == nullptr &&
           IQsUtils1::GetExtraCostTypeList(u"", u"") == nullptr &&
           IQsUtils1::GetExtraCostCalType(u"", u"", u"") == eExtraCost_Unknown;
}

bool CallPaths() {
    return FromNativePath(ToNativePath(u"\\opt\\app")) == u"\\opt\\app";
}

bool CallFiles() {
    CString found = u"overwritten";
    IQsUtils::FindPath(found, u"\\no such folder\\", u"x", u"");
    return found.IsEmpty() && !IQsUtils::IsFileExist(u"no such file") &&
           !IQsUtils::IsFileOpen(u"no such file") && !IQsUtils::DeleteDirectory(u"no such folder") &&
           IQsUtils::CreateFolderAllPath(u".") == 1 && IQsUtils::PickFileNameFromPath(u"a\\b.c") == u"b" &&
           IQsUtils::VersionBig(u"7.2", u"7.10", false) == -1 &&
           IQsUtils::RemoveRelativeDirectoryFromPath(u"a\\..\\b") == u"b" &&
           IQsUtils::GetInitPath().Right(4) == u"工程文件";
}

bool CallConfigurationReader() {
    CString found = u"overwritten";
    IQsUtils1::FindPath(found, u"\\no such folder\\", u"x", u"");
    return found.IsEmpty();
}

// No file that chooses folders stands beside the hosts either, and no companion.
bool CallFolders() {
    DirectoryManager::ICommonDirectory& common = *DirectoryManager::GetCommonDirectoryManager();
    const CString beside = common.GetExeDirectory();
    return beside.Right(1) == u"\\" && common.GetTempDirectory().Right(1) == u"\\" &&
           common.GetCurrentWorkDirectory().Right(1) == u"\\" &&
           DirectoryManager::GetProjectDirectoryManager()->GetReportDirectory() == beside &&
           DirectoryManager::GetLibraryDirectoryManager()->GetGroupPriceRootDirectory() ==
               beside + u"Library\\组价库\\";
}

bool CallDocuments() {
    const CString folder = DirectoryManager::GetCommonDirectoryManager()->GetDocumentsDirectory();
    return folder.IsEmpty() || folder.Right(1) == u"\\";
}

bool CallLibraries() {
    std::vector<CString> families = {u"before"};
    LibraryManager::ILibraryManager& manager = *LibraryManager::GetLibraryManager();
    manager.GetLibraryFamilies(families);
    return families.empty() && manager.GetLibrarySeries() == -1 &&
           manager.FindSubLibraryFile(u"family", u"", u"", u"file").IsEmpty();
}

/// A file that is this call's alone.
class XmlFile {
public:
    XmlFile() {
        // Put together as a text of the library's: on one system the runtime keeps memory for each thread
        // that has turned a narrow text into a path.
        std::random_device random;
        m_path = FromNativePath(std::filesystem::temp_directory_path()).TrimRight(u'\\');
        m_path.AppendFormat(u"\\qsutils-plugin-%x-%x.xml", random(), random());
    }
    ~XmlFile() { std::filesystem::remove(ToNativePath(m_path)); }
    XmlFile(const XmlFile&) = delete;
    XmlFile& operator=(const XmlFile&) = delete;
    std::wstring Path() const { return m_path.ToWide(); }

private:
    CString m_path;
};

bool CallXmlTree() {
    const XmlFile file;
    XMLNode root;
    root.Name = L"工程";
    root.Attributes[L"单位"] = L"m2";
    if (!SaveXMLNode(&root, file.Path(), true))
        return false;
    const std::unique_ptr<XMLNode> read(LoadXMLNode(file.Path()));
    return read != nullptr && read->Name == root.Name && read->Attributes == root.Attributes;
}

// The tool is left to the module.
bool CallXmlDocument() {
    const XmlFile file;
    XMLNode root;
    root.Name = L"a";
    root.Attributes[L"k"] = L"12";
    NS_XMLACCESS::IXmlAccessTool* const tool = GetXmlAccessTool();
    std::int32_t value = 0;
    return SaveXMLNode(&root, file.Path(), false) && tool->LoadXmlFile(file.Path()) &&
           tool->GetIntAttribute(value, L"k", tool->GetRootElement()) && value == 12 &&
           tool->SaveXmlFile(L"");
}

bool CallOverview() {
    const XmlFile file;
    XMLNode root;
    root.Name = L"a";
    QS_ProjectOverView::stuColInfo field;
    field.strCode = u"c";
    std::list<QS_ProjectOverView::stuColInfo*> fields = {&field};
    if (!SaveXMLNode(&root, file.Path(), false) || !IQsUtils1::CreateProjOverViewInfo(file.Path(), fields))
        return false;
    fields.clear();
    IQsUtils1::GetProjOverViewInfo(fields);
    IQsUtils1::GetProjOverViewInfo(file.Path(), fields);
    const bool isRight = fields.size() == 1 && fields.front()->strCode == u"c";
    for (const QS_ProjectOverView::stuColInfo* each : fields)
        delete each;
    return isRight;
}

bool CallOpenBudgets() {
    return IQsUtils::IsYsOpen(u"no such budget", u"A") == 0 &&
           IQsUtils::YsTypeToString(eYsType_ShenDing) == u"ShenDing" &&
           IQsUtils::StringToYsType(u"SongShen") == eYsType_SongShen &&
           IQsUtils1::GetExcelInstallVersion().GetLength() < 127;
}

// Without a window, for which these hosts have no screen.
bool CallTip() {
    CRect narrow(0, 0, 4, 10);
    CRect wide(0, 0, 5, 10);
    texttip::CloseWindowNow();
    return texttip::IsTextLonger(narrow) && !texttip::IsTextLonger(wide);
}

bool CallTemplates() {
    const CString beside = DirectoryManager::GetCommonDirectoryManager()->GetExeDirectory();
    return IQsUtils::GetProjectDbTemplate() == beside + u"project.db" &&
           IQsUtils::GetZhengTiReport() == beside + u"ZhengTiReport.xml";
}

bool CallLog() {
    const XmlFile file;
    IQsUtils1::LogError(u"[INFO]: a line");
    IQsUtils1::RecordLogInfo(u"a line", file.Path());
    const CTimeCostTracker tracker(u"work");
    return std::filesystem::file_size(ToNativePath(file.Path())) == 19 + 1 + 6 + 3;
}

bool CallThreads() {
    int answer = 0;
    std::uint32_t id = 0;
    const auto routine = [](void* place) -> std::uint32_t {
        *static_cast<int*>(place) = 5;
        return 0;
    };
    const HANDLE thread = IQsUtils::StartThread(routine, &answer, u"worker", &id);
    if (thread == nullptr || WaitForSingleObject(thread, INFINITE) != WAIT_OBJECT_0)
        return false;
    CSLock lock;
    const CSAutoLock hold(lock);
    return CloseHandle(thread) != 0 && answer == 5 && id != 0;
}

bool CallTasks() {
    class Task : public CThreadTask {
    public:
        using CThreadTask::CThreadTask;
        std::int32_t ExecuteTask(int, std::function<void()>) override { return 5; }
    };
    struct Counter : ITaskResultNotify {
        int good = 0;
        void OnTaskSuccess(const CString&) override { ++good; }
        void OnTaskFailed(const CString&, const CString&) override {}
    } counter;
    {
        CQSThreadManager manager(true);
        manager.SetParallelTaskCount(2);
        manager.AddTaskThreadMgrObserver(&counter);
        for (const char16_t* name : {u"a", u"b"})
            manager.StartTask(new Task(&manager, name, nullptr));
    }
    return counter.good == 2;
}

// No backup is made: the path alone is told, and its folder.
bool CallBackUp() {
    std::random_device random;
    CString name;
    name.Format(u"qsutils-plugin-%x-%x", random(), random());
    CString path;
    IQsUtils::GetCurBackUpPath(path, u"\\projects\\" + name + u".gcs");
    const bool isTold = path.Right(name.GetLength()) == name;
    return std::filesystem::remove(ToNativePath(path)) && isTold;
}

struct Service {
    const char* name;
    bool (*call)();
};

constexpr std::array services = {
    Service{"text", CallText},
    Service{"code page", CallCodePage},
    Service{"numbers", CallNumbers},
    Service{"numerals", CallNumerals},
    Service{"codes", CallCodes},
    Service{"order of codes", CallOrder},
    Service{"word order", CallWordOrder},
    Service{"expressions", CallExpressions},
    Service{"variables", CallVariables},
    Service{"indicators", CallIndicators},
    Service{"digest", CallDigest},
    Service{"majors", CallMajors},
    Service{"unit decimals", CallUnitDecimals},
    Service{"paths", CallPaths},
    Service{"files", CallFiles},
    Service{"configuration reader", CallConfigurationReader},
    Service{"folders", CallFolders},
    Service{"documents", CallDocuments},
    Service{"libraries", CallLibraries},
    Service{"backup", CallBackUp},
    Service{"XML trees", CallXmlTree},
    Service{"XML documents", CallXmlDocument},
    Service{"configuration", CallConfiguration},
    Service{"extra costs", CallExtraCosts},
    Service{"overview", CallOverview},
    Service{"open budgets", CallOpenBudgets},
    Service{"tip", CallTip},
    Service{"templates", CallTemplates},
    Service{"log", CallLog},
    Service{"threads", CallThreads},
    Service{"tasks", CallTasks},
};

}  // namespace

#define PLUGIN_EXPORT extern "C" TEST_EXPORT

PLUGIN_EXPORT const char* PluginUseEveryService() {
    for (const Service& service : services) {
        if (!service.call())
            return service.name;
    }
    return nullptr;
}

PLUGIN_EXPORT std::size_t PluginServiceCount() {
    return services.size();
}

PLUGIN_EXPORT bool PluginCallService(std::size_t index) {
    return services[index % services.size()].call();
}

PLUGIN_EXPORT void PluginUseVariables() {
    IQsUtils::IsVariable(u"A+1");
}

PLUGIN_EXPORT void PluginUseConfigurationReader() {
    CallConfigurationReader();
}

PLUGIN_EXPORT void PluginUseMajors() {
    CallMajors();
}

PLUGIN_EXPORT void PluginUseUnitDecimals() {
    CallUnitDecimals();
}

PLUGIN_EXPORT void* PluginKeptBlock() {
    IQsUtils1::SetExtraCostData(u"key", IQsUtils1::AllocateExtraCostData(64));
    return IQsUtils1::GetExtraCostDataByKey(u"key");
}

PLUGIN_EXPORT void PluginUseLog() {
    IQsUtils1::LogError(u"a line");
}

PLUGIN_EXPORT void PluginSetTip(const char16_t* text) {
    texttip::SetShowText(text);
}

PLUGIN_EXPORT void* PluginAnalyser() {
    return ExpressionAnalyse::GetExpressionAnalyser();
}

PLUGIN_EXPORT void* PluginCommonDirectories() {
    return DirectoryManager::GetCommonDirectoryManager();
}

PLUGIN_EXPORT void* PluginProjectDirectories() {
    return DirectoryManager::GetProjectDirectoryManager();
}

PLUGIN_EXPORT void* PluginLibraryDirectories() {
    return DirectoryManager::GetLibraryDirectoryManager();
}

PLUGIN_EXPORT void* PluginLibraryManager() {
    return LibraryManager::GetLibraryManager();
}

PLUGIN_EXPORT int PluginUseCompanion(const char* installation) {
    if (!DirectoryManager::UseInstallation(FromNativePath(installation)))
        return -2;
    return LibraryManager::GetLibraryManager()->GetLibrarySeries();
}

PLUGIN_EXPORT void* PluginXmlTool() {
    return GetXmlAccessTool();
}

PLUGIN_EXPORT void PluginSetSoftVersion(const char16_t* version) {
    IQsUtils::SetSoftVersion(version);
}

PLUGIN_EXPORT bool PluginSoftVersionIs(const char16_t* version) {
    return IQsUtils::GetSoftVersion() == version && IQsUtils::m_strSoftVersion == version;
}

PLUGIN_EXPORT const void* PluginSoftVersionUnits() {
    return IQsUtils::m_strSoftVersion.GetString();
}

PLUGIN_EXPORT bool PluginCatchesByType() {
    try {
        static_cast<void>(CString(u"abc").GetAt(4));
    } catch (const CAtlException& error) {
        return error.m_hr == CAtlException::InvalidArgument;
    } catch (...) {
        return false;
    }
    return false;
}
