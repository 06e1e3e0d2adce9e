// The folder in which file dialogs start, from the file beside an executable.
#include <string>

#include <gtest/gtest.h>

#include "tests/installation/ProbedInstallation.h"

using Answers = ProbedInstallation::Answers;

namespace {

constexpr const char* SettingsFile = "SystemConfig.ini";

Answers InitPath(std::string_view contents) {
    const ProbedInstallation installation;
    installation.Write(SettingsFile, contents);
    return installation.Ask({u"init"});
}

TEST(InitPath, WithoutAFileItIsBesideTheExecutable) {
    const ProbedInstallation installation;
    EXPECT_EQ(installation.Ask({u"init"}), Answers{u"beside: 工程文件"});
}

TEST(InitPath, IsTheValueAsItStands) {
    EXPECT_EQ(InitPath("[Path]\r\nInitPath=D:\\work\\\r\n"), Answers{u"D:\\work\\"});
    EXPECT_EQ(InitPath("[path]\ninitpath = not checked \n"), Answers{u"not checked"});
}

TEST(InitPath, AnEmptyValueIsNone) {
    EXPECT_EQ(InitPath("[Path]\nInitPath=\n"), Answers{u"beside: 工程文件"});
    EXPECT_EQ(InitPath("[Other]\nInitPath=x\n"), Answers{u"beside: 工程文件"});
}

TEST(InitPath, IsCutAt499Units) {
    EXPECT_EQ(InitPath("[Path]\nInitPath=" + std::string(600, 'p') + "\n"),
              Answers{std::u16string(499, u'p')});
}

TEST(InitPath, TheFileIsReadEachTime) {
    const ProbedInstallation installation;
    EXPECT_EQ(installation.Ask({u"init", u"write", u"SystemConfig.ini", u"[Path]\nInitPath=new\n", u"init"}),
              (Answers{u"beside: 工程文件", u"new"}));
}

}  // namespace
