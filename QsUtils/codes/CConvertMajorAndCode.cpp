#include "QsUtils/codes/CConvertMajorAndCode.h"

#include <utility>

#include "QsUtils/platform/ExecutableFolder.h"
#include "QsUtils/platform/ProfileFile.h"

namespace QsCodes {

namespace {

constexpr const char16_t* MajorToCode = u"MajorToCode";
constexpr const char16_t* CodeToMajor = u"CodeToMajor";

// In the order of their codes below; the third, fourth and fifth are all "TZ".
constexpr const char16_t* Names[] = {u"建筑工程",           u"安装工程",     u"建筑装饰",     u"建筑装饰工程",
                                     u"建筑与装饰工程",     u"装饰装修工程", u"市政工程",     u"园林绿化工程",
                                     u"太阳能热水系统工程", u"建筑节能工程", u"房修工程",     u"人防工程",
                                     u"公用工程",           u"冶金工程",     u"给水维修工程", u"轨道交通工程",
                                     u"智能安装工程",       u"石油安装工程", u"水利安装工程", u"邮电工程",
                                     u"通信工程",           u"矿山工程",     u"仿古建筑工程", u"构筑物工程",
                                     u"爆破工程",           u"通用措施清单"};

constexpr const char16_t* Codes[] = {u"T",  u"A",  u"TZ", u"Z",  u"S",  u"Y",  u"TN", u"JN",
                                     u"F",  u"R",  u"G",  u"ZJ", u"JS", u"JT", u"ZN", u"SY",
                                     u"SL", u"YD", u"TS", u"K",  u"FG", u"GZ", u"BP", u"通"};

// Buffers in units, the NUL among them. A code is cut shorter when it is loaded than when it is looked up.
constexpr int LoadedCodeBuffer = 128;
constexpr int Buffer = 260;

}  // namespace

CString CConvertMajorAndCode::FilePath() {
    return QsPlatform::ExecutableFolder() + u"\\MajorCode.ini";
}

void CConvertMajorAndCode::Load(const CString& path) {
    const QsPlatform::ProfileDocument file(path);
    const auto load = [&](Map& map, const char16_t* section, const char16_t* key, int size) {
        CString value = file.Text(section, key, CString(), size);
        if (!value.IsEmpty())
            map[key] = std::move(value);
    };
    for (const char16_t* code : Codes)
        load(m_mapCodeToName, CodeToMajor, code, Buffer);
    for (const char16_t* name : Names)
        load(m_mapNameToCode, MajorToCode, name, LoadedCodeBuffer);
}

/// For both directions in the names: a code that was not loaded is looked up among them as well. Hosts rest
/// on it, with files that state a code as a name.
CString CConvertMajorAndCode::LookUp(const Map& map, const CString& key) {
    if (key.IsEmpty())
        return CString();
    const auto found = map.find(key);
    return found != map.end() ? found->second
                              : QsPlatform::ReadProfileValue(FilePath(), MajorToCode, key, CString(), Buffer);
}

void CConvertMajorAndCode::GetMajorCodeByName(const CString& name, CString& code) const {
    code = LookUp(m_mapNameToCode, name);
}

void CConvertMajorAndCode::GetMajorByCode(const CString& code, CString& name) const {
    name = LookUp(m_mapCodeToName, code);
}

void CConvertMajorAndCode::GetAllMajorName(CStringArray& names) const {
    for (const auto& [name, code] : m_mapNameToCode)
        names.Add(name);
}

}  // namespace QsCodes
