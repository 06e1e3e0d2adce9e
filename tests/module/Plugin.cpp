#include "tests/module/Plugin.h"

#include <array>
#include <filesystem>
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
    Service{"backup", CallBackUp},
    Service{"XML trees", CallXmlTree},
    Service{"XML documents", CallXmlDocument},
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

PLUGIN_EXPORT void* PluginAnalyser() {
    return ExpressionAnalyse::GetExpressionAnalyser();
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
