// Majors and their codes, from the file beside an executable.
#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/platform/CodePage.h"

#include "tests/installation/ProbedInstallation.h"

using Answers = ProbedInstallation::Answers;

namespace {

constexpr const char* MajorsFile = "MajorCode.ini";

TEST(Majors, WithoutAFileThereAreNone) {
    const ProbedInstallation installation;
    EXPECT_EQ(installation.Ask({u"majors", u"first", u"code", u"建筑工程", u"major", u"T"}),
              (Answers{u"first", u"", u""}));
}

TEST(Majors, AnEmptyKeyGivesAnEmptyText) {
    const ProbedInstallation installation;
    installation.Write(MajorsFile, "[MajorToCode]\r\n=x\r\n[CodeToMajor]\r\n=y\r\n");
    EXPECT_EQ(installation.Ask({u"code", u"", u"major", u""}), (Answers{u"", u""}));
}

TEST(Majors, NamesAndCodes) {
    const ProbedInstallation installation;
    installation.Write(
        MajorsFile,
        QsPlatform::EncodeAnsi(
            u"[MajorToCode]\r\n建筑工程=T\r\n安装工程=A\r\n[CodeToMajor]\r\nT=土建\r\n通=清单\r\n"));
    EXPECT_EQ(installation.Ask({u"code", u"建筑工程", u"code", u"安装工程", u"code", u"市政工程", u"major",
                                u"T", u"major", u"通", u"major", u"A", u"majors", u"first"}),
              (Answers{u"T", u"A", u"", u"土建", u"清单", u"", u"first|安装工程|建筑工程"}));
}

TEST(Majors, AFileWithNamesAloneDoesntTellTheMajorOfACode) {
    const ProbedInstallation installation;
    installation.Write(MajorsFile, QsPlatform::EncodeAnsi(u"[MajorToCode]\r\n建筑工程=T\r\n"));
    EXPECT_EQ(installation.Ask({u"major", u"T", u"code", u"建筑工程"}), (Answers{u"", u"T"}));
}

TEST(Majors, FurtherNamesAreFoundButNotListed) {
    const ProbedInstallation installation;
    installation.Write(MajorsFile, QsPlatform::EncodeAnsi(u"[MajorToCode]\r\n其他工程=QT\r\n建筑工程=T\r\n"));
    EXPECT_EQ(installation.Ask({u"code", u"其他工程", u"majors", u"first"}),
              (Answers{u"QT", u"first|建筑工程"}));
}

TEST(Majors, FurtherCodesAreLookedUpAmongTheNames) {
    const ProbedInstallation installation;
    installation.Write(MajorsFile, "[CodeToMajor]\r\nQT=one\r\nXX=two\r\n[MajorToCode]\r\nQT=three\r\n");
    EXPECT_EQ(installation.Ask({u"major", u"QT", u"major", u"XX"}), (Answers{u"three", u""}));
}

TEST(Majors, ACodeThatHasNoMajorIsLookedUpAmongTheNames) {
    const ProbedInstallation installation;
    installation.Write(MajorsFile, "[CodeToMajor]\r\nT=\r\n[MajorToCode]\r\nT=among names\r\n");
    EXPECT_EQ(installation.Ask({u"major", u"T"}), (Answers{u"among names"}));
}

TEST(Majors, LookupsInTheMapsKnowCaseAndLookupsInTheFileDont) {
    const ProbedInstallation installation;
    installation.Write(MajorsFile, "[CodeToMajor]\r\nt=civil\r\n[MajorToCode]\r\nt=x\r\nqt=y\r\n");
    // The load finds "t" for the code "T"; "t" isn't in the map and is looked up among the names.
    EXPECT_EQ(installation.Ask({u"major", u"T", u"major", u"t", u"code", u"QT"}),
              (Answers{u"civil", u"x", u"y"}));
}

TEST(Majors, ValuesAreCutToTheBuffers) {
    const ProbedInstallation installation;
    const std::string line(300, 'x');
    installation.Write(MajorsFile, QsPlatform::EncodeAnsi(u"[MajorToCode]\r\n建筑工程=") + line +
                                       QsPlatform::EncodeAnsi(u"\r\n其他工程=") + line +
                                       QsPlatform::EncodeAnsi(u"\r\n安装工程=") + std::string(127, 'y') +
                                       "\r\n[CodeToMajor]\r\nT=" + line + "\r\n");
    EXPECT_EQ(
        installation.Ask({u"code", u"建筑工程", u"code", u"其他工程", u"code", u"安装工程", u"major", u"T"}),
        (Answers{std::u16string(127, u'x'), std::u16string(259, u'x'), std::u16string(127, u'y'),
                 std::u16string(259, u'x')}));
}

TEST(Majors, ChangesReachOnlyWhatIsNotLoaded) {
    const ProbedInstallation installation;
    installation.Write(MajorsFile, "[CodeToMajor]\r\nT=old\r\n");
    EXPECT_EQ(installation.Ask({u"major", u"T", u"major", u"X", u"write", u"MajorCode.ini",
                                u"[CodeToMajor]\r\nT=new\r\nA=new\r\n[MajorToCode]\r\nX=new\r\nA=by name\r\n",
                                u"major", u"T", u"major", u"X", u"major", u"A", u"majors", u"first"}),
              (Answers{u"old", u"", u"old", u"new", u"by name", u"first"}));
    EXPECT_EQ(installation.Ask({u"major", u"T"}), (Answers{u"new"}));
}

TEST(Majors, TheOtherEncodings) {
    const ProbedInstallation installation;
    installation.Write(MajorsFile,
                       "\xEF\xBB\xBF[majortocode]\n\xE5\xBB\xBA\xE7\xAD\x91\xE5\xB7\xA5\xE7\xA8\x8B=T\n");
    EXPECT_EQ(installation.Ask({u"code", u"建筑工程"}), (Answers{u"T"}));
}

TEST(Majors, FoldersMayHaveAnyName) {
    const ProbedInstallation installation("造价 100%/计价软件 #1");
    installation.Write(MajorsFile, "[CodeToMajor]\r\nT=x\r\n");
    EXPECT_EQ(installation.Ask({u"major", u"T"}), (Answers{u"x"}));
}

TEST(Majors, AnInstallationBelowALongPathHasNoFiles) {
    const std::string part(90, 'p');
    const ProbedInstallation installation(part + "/" + part + "/" + part);
    if (!installation.Run({}).isStarted)
        GTEST_SKIP() << "this system starts no program whose path is that long";
    installation.Write(MajorsFile, "[CodeToMajor]\r\nT=x\r\n");
    EXPECT_EQ(installation.Ask({u"major", u"T"}), (Answers{u""}));
}

TEST(Majors, TheSampleIsComplete) {
    const ProbedInstallation installation;
    installation.CopySample(MajorsFile);
    EXPECT_EQ(installation.Ask({u"code", u"建筑工程", u"code", u"建筑装饰", u"code", u"建筑装饰工程", u"code",
                                u"建筑与装饰工程", u"code", u"爆破工程", u"code", u"通用措施清单"}),
              (Answers{u"T", u"TZ", u"TZ", u"TZ", u"BP", u"通"}));
    EXPECT_EQ(installation.Ask({u"major", u"T", u"major", u"TZ", u"major", u"JN", u"major", u"通"}),
              (Answers{u"建筑工程", u"建筑与装饰工程", u"建筑节能工程", u"通用措施清单"}));
}

constexpr const char16_t* MajorNames[] = {
    u"建筑工程",     u"安装工程",     u"建筑装饰",     u"建筑装饰工程",       u"建筑与装饰工程",
    u"装饰装修工程", u"市政工程",     u"园林绿化工程", u"太阳能热水系统工程", u"建筑节能工程",
    u"房修工程",     u"人防工程",     u"公用工程",     u"冶金工程",           u"给水维修工程",
    u"轨道交通工程", u"智能安装工程", u"石油安装工程", u"水利安装工程",       u"邮电工程",
    u"通信工程",     u"矿山工程",     u"仿古建筑工程", u"构筑物工程",         u"爆破工程",
    u"通用措施清单"};
constexpr const char16_t* Codes[] = {u"T",  u"A",  u"TZ", u"Z",  u"S",  u"Y",  u"TN", u"JN",
                                     u"F",  u"R",  u"G",  u"ZJ", u"JS", u"JT", u"ZN", u"SY",
                                     u"SL", u"YD", u"TS", u"K",  u"FG", u"GZ", u"BP", u"通"};

/// The file is emptied after the first question, so that what comes back later was loaded with it.
TEST(Majors, EveryNameAndEveryCodeIsLoaded) {
    const ProbedInstallation installation;
    std::u16string file = u"[MajorToCode]\r\n";
    for (const char16_t* name : MajorNames)
        file += std::u16string(name) + u"=code of " + name + u"\r\n";
    file += u"not a major=x\r\n[CodeToMajor]\r\n";
    for (const char16_t* code : Codes)
        file += std::u16string(code) + u"=major of " + code + u"\r\n";
    installation.Write(MajorsFile, QsPlatform::EncodeAnsi(file));
    std::vector<std::u16string> questions = {u"code", u"not a major", u"write", u"MajorCode.ini", u""};
    Answers expected = {u"x"};
    for (const char16_t* name : MajorNames) {
        questions.insert(questions.end(), {u"code", name});
        expected.push_back(u"code of " + std::u16string(name));
    }
    for (const char16_t* code : Codes) {
        questions.insert(questions.end(), {u"major", code});
        expected.push_back(u"major of " + std::u16string(code));
    }
    questions.insert(questions.end(), {u"code", u"not a major"});
    expected.push_back(u"");
    EXPECT_EQ(installation.Ask(questions), expected);
}

TEST(Majors, NamesAreListedByTheirUnits) {
    const ProbedInstallation installation;
    installation.CopySample(MajorsFile);
    std::vector<std::u16string> names(std::begin(MajorNames), std::end(MajorNames));
    std::sort(names.begin(), names.end());
    std::u16string joined = u"first";
    for (const std::u16string& name : names)
        joined += u"|" + name;
    EXPECT_EQ(installation.Ask({u"majors", u"first"}), Answers{joined});
}

}  // namespace
