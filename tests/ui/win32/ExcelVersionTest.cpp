// The version of the spreadsheet, from the registry.
#include <string>

#include <windows.h>
#include <gtest/gtest.h>

#include "QsUtils/ui/ExcelVersion.h"

#include "tests/support/ChildProcess.h"

using QsUi::GetExcelInstallVersion;

namespace {

constexpr const wchar_t* ProgramKey = L"Excel.Application";
constexpr const wchar_t* VersionKey = L"Excel.Application\\CurVer";

/// The registration of a spreadsheet; a machine that has one is left alone.
class ExcelVersion : public testing::Test {
protected:
    void SetUp() override {
        if (!GetExcelInstallVersion().IsEmpty())
            GTEST_SKIP() << "a spreadsheet is installed here";
        HKEY key = nullptr;
        if (::RegCreateKeyExW(HKEY_CLASSES_ROOT, VersionKey, 0, nullptr, 0, KEY_WRITE, nullptr, &key,
                              nullptr) != ERROR_SUCCESS)
            GTEST_SKIP() << "this user may register nothing";
        ::RegCloseKey(key);
        m_isOurs = true;
    }
    void TearDown() override {
        if (!m_isOurs)
            return;
        ::RegDeleteKeyW(HKEY_CLASSES_ROOT, VersionKey);
        ::RegDeleteKeyW(HKEY_CLASSES_ROOT, ProgramKey);
    }

    static void Register(DWORD type, const void* bytes, std::size_t size) {
        HKEY key = nullptr;
        ASSERT_EQ(::RegCreateKeyExW(HKEY_CLASSES_ROOT, VersionKey, 0, nullptr, 0, KEY_WRITE, nullptr, &key,
                                    nullptr),
                  ERROR_SUCCESS);
        ASSERT_EQ(::RegSetValueExW(key, nullptr, 0, type, static_cast<const BYTE*>(bytes),
                                   static_cast<DWORD>(size)),
                  ERROR_SUCCESS);
        ::RegCloseKey(key);
    }
    static void Register(const std::wstring& text) {
        Register(REG_SZ, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    }

private:
    bool m_isOurs = false;
};

TEST_F(ExcelVersion, IsWhatStandsBehindTheLastPoint) {
    EXPECT_EQ(GetExcelInstallVersion(), u"");
    Register(L"Excel.Application.16");
    EXPECT_EQ(GetExcelInstallVersion(), u"16");
    Register(L"no point");
    EXPECT_EQ(GetExcelInstallVersion(), u"no point");
    Register(L"Excel.Application.");
    EXPECT_EQ(GetExcelInstallVersion(), u"");
}

TEST_F(ExcelVersion, TheHostTellsIt) {
    ProgramCall call;
    call.program = OPEN_BUDGET_HOST;
    call.arguments = {"excel"};
    const ProgramResult none = RunProgram(call);
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.out, "");
    EXPECT_NE(none.err.find("openbudget: no spreadsheet is installed"), std::string::npos) << none.err;
    Register(L"Excel.Application.16");
    const ProgramResult some = RunProgram(call);
    EXPECT_EQ(some.status, 0) << some.err;
    EXPECT_EQ(some.out, "16\r\n");
}

TEST_F(ExcelVersion, AKeyWithoutAValueHasNone) {
    EXPECT_EQ(GetExcelInstallVersion(), u"");
    ::RegDeleteKeyW(HKEY_CLASSES_ROOT, VersionKey);
    EXPECT_EQ(GetExcelInstallVersion(), u"");
}

TEST_F(ExcelVersion, AValueThatIsTooLongIsNone) {
    Register(std::wstring(124, L'x') + L".7");
    EXPECT_EQ(GetExcelInstallVersion(), u"7");
    Register(std::wstring(125, L'x') + L".7");
    EXPECT_EQ(GetExcelInstallVersion(), u"");
}

TEST_F(ExcelVersion, OtherTypesAreReadAsTheirBytes) {
    const wchar_t unended[] = {L'a', L'.', L'9'};
    Register(REG_SZ, unended, sizeof unended);
    EXPECT_EQ(GetExcelInstallVersion(), u"9");
    const DWORD number = 0x00360031;
    Register(REG_DWORD, &number, sizeof number);
    EXPECT_EQ(GetExcelInstallVersion(), u"16");
    Register(REG_BINARY, "", 0);
    EXPECT_EQ(GetExcelInstallVersion(), u"");
}

}  // namespace
