// The version of the spreadsheet in a Wine prefix.
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "QsUtils/ui/ExcelVersion.h"

#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"

using QsUi::GetExcelInstallVersion;

namespace {

/// Sets a variable of this process, or takes it away, for the life of the object.
class Environment {
public:
    Environment(const char* name, const char* value) : m_name(name) {
        if (const char* const old = std::getenv(name))
            m_old = old;
        Set(value);
    }
    ~Environment() { Set(m_old ? m_old->c_str() : nullptr); }

private:
    void Set(const char* value) {
        if (value == nullptr)
            ::unsetenv(m_name);
        else
            ::setenv(m_name, value, 1);
    }

    const char* m_name;
    std::optional<std::string> m_old;
};

std::string Registry(const std::string& value) {
    return "WINE REGISTRY Version 2\n;; All keys relative to \\\\Machine\n\n#arch=win64\n\n"
           "[Software\\\\Classes\\\\Excel.Application] 1700000000\n#time=1\n@=\"Spreadsheet\"\n\n"
           "[Software\\\\Classes\\\\Excel.Application\\\\CurVer] 1700000000\n#time=1\n@=" +
           value + "\n";
}

class WineExcelVersion : public testing::Test {
protected:
    TemporaryFolder m_prefix;
    Environment m_variable{"WINEPREFIX", m_prefix.Path().c_str()};
};

TEST_F(WineExcelVersion, IsEmptyWithoutARegistry) {
    EXPECT_EQ(GetExcelInstallVersion(), u"");
    m_prefix.Write("system.reg", "");
    EXPECT_EQ(GetExcelInstallVersion(), u"");
    m_prefix.Write("system.reg", "WINE REGISTRY Version 2\n");
    EXPECT_EQ(GetExcelInstallVersion(), u"");
}

TEST_F(WineExcelVersion, ComesFromTheMachine) {
    m_prefix.Write("system.reg", Registry("\"Excel.Application.16\""));
    EXPECT_EQ(GetExcelInstallVersion(), u"16");
}

TEST_F(WineExcelVersion, ComesFromTheUserFirst) {
    m_prefix.Write("system.reg", Registry("\"Excel.Application.16\""));
    m_prefix.Write("user.reg", Registry("\"Excel.Application.11\""));
    EXPECT_EQ(GetExcelInstallVersion(), u"11");
    m_prefix.Write("user.reg",
                   "WINE REGISTRY Version 2\n\n[Software\\\\Classes\\\\Excel.Application\\\\"
                   "CurVer] 1\n\"other\"=\"1.12\"\n");
    EXPECT_EQ(GetExcelInstallVersion(), u"16");
}

TEST_F(WineExcelVersion, IsTheWholeTextWithoutAPoint) {
    m_prefix.Write("system.reg", Registry("\"16\""));
    EXPECT_EQ(GetExcelInstallVersion(), u"16");
    m_prefix.Write("system.reg", Registry("\"Excel.Application.\""));
    EXPECT_EQ(GetExcelInstallVersion(), u"");
}

TEST_F(WineExcelVersion, IsEmptyForAValueThatIsTooLong) {
    m_prefix.Write("system.reg", Registry("\"" + std::string(124, 'x') + ".7\""));
    EXPECT_EQ(GetExcelInstallVersion(), u"7");
    m_prefix.Write("system.reg", Registry("\"" + std::string(125, 'x') + ".7\""));
    EXPECT_EQ(GetExcelInstallVersion(), u"");
    // The user's value hides the machine's, also when it can't be taken.
    m_prefix.Write("user.reg", Registry("\"" + std::string(200, 'x') + "\""));
    m_prefix.Write("system.reg", Registry("\"a.16\""));
    EXPECT_EQ(GetExcelInstallVersion(), u"");
}

TEST_F(WineExcelVersion, EndsAtANul) {
    m_prefix.Write("system.reg", Registry("\"a.16\\0.7\""));
    EXPECT_EQ(GetExcelInstallVersion(), u"16");
}

TEST_F(WineExcelVersion, FilesThatAreNone) {
    std::filesystem::create_directory(m_prefix.File("user.reg"));
    ASSERT_EQ(::mkfifo(m_prefix.File("system.reg").c_str(), 0600), 0);
    EXPECT_EQ(GetExcelInstallVersion(), u"");
    std::filesystem::remove(m_prefix.File("system.reg"));
    m_prefix.Write("system.reg", Registry("\"a.16\""));
    EXPECT_EQ(GetExcelInstallVersion(), u"16");
    std::filesystem::resize_file(m_prefix.File("system.reg"), std::uintmax_t{1} << 40);
    EXPECT_EQ(GetExcelInstallVersion(), u"");
}

TEST_F(WineExcelVersion, TheHostTellsIt) {
    ProgramCall call;
    call.program = OPEN_BUDGET_HOST;
    call.arguments = {"excel"};
    const ProgramResult none = RunProgram(call);
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.out, "");
    EXPECT_EQ(none.err, "openbudget: no spreadsheet is installed\n");
    m_prefix.Write("system.reg", Registry("\"Excel.Application.16\""));
    const ProgramResult some = RunProgram(call);
    EXPECT_EQ(some.status, 0) << some.err;
    EXPECT_EQ(some.out, "16\n");
}

TEST_F(WineExcelVersion, ThePrefixIsTheUsersUnlessOneIsNamed) {
    const TemporaryFolder home;
    const Environment homeVariable("HOME", home.Path().c_str());
    home.Write(".wine/system.reg", Registry("\"a.12\""));
    m_prefix.Write("system.reg", Registry("\"a.16\""));
    EXPECT_EQ(GetExcelInstallVersion(), u"16");
    for (const char* none : {static_cast<const char*>(nullptr), ""}) {
        const Environment prefix("WINEPREFIX", none);
        EXPECT_EQ(GetExcelInstallVersion(), u"12");
        const Environment nowhere("HOME", nullptr);
        EXPECT_EQ(GetExcelInstallVersion(), u"");
    }
    const Environment relative("WINEPREFIX", "relative/prefix");
    EXPECT_EQ(GetExcelInstallVersion(), u"");
}

}  // namespace
