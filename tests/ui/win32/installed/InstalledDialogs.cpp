// All dialogs as a host beside an installation sees them, through what the module exports.
#include <cstdlib>
#include <filesystem>
#include <string>

#include <QsUtils/QsUtils.h>
#include <commctrl.h>
#include <gtest/gtest.h>
#include <shlobj.h>

#include "tests/support/TemporaryFolder.h"
#include "tests/ui/win32/views/FakeTip.h"
#include "tests/ui/win32/views/OpenDialog.h"

namespace {

constexpr wchar_t PickerTitle[] = L"选择模板";
constexpr int ListId = 8002;
const CString Family = u"上海";
const CString Section = u"2016预算定额";

std::wstring CellOf(HWND dialog, int row, int column) {
    wchar_t text[300] = {};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = 300;
    ::SendMessageW(::GetDlgItem(dialog, ListId), LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&item));
    return text;
}

LRESULT CountRows(HWND dialog) {
    return ::SendMessageW(::GetDlgItem(dialog, ListId), LVM_GETITEMCOUNT, 0, 0);
}

void ConfirmRow(HWND dialog, int row) {
    EXPECT_TRUE(Eventually([=] { return FocusOf(dialog) == ::GetDlgItem(dialog, ListId); }));
    for (int i = 0; i <= row; ++i)
        PressKey(dialog, VK_DOWN);
    PressKey(dialog, VK_RETURN);
    EXPECT_TRUE(WaitForEnd(dialog));
}

std::filesystem::path OwnFolder() {
    wchar_t path[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path();
}

TEST(InstalledDialogs, ATemplateOfTheLibraryIsPicked) {
    DialogDriver driver(PickerTitle, [](HWND dialog) {
        EXPECT_EQ(CountRows(dialog), 2);
        EXPECT_EQ(CellOf(dialog, 0, 0), L"一般计税");
        EXPECT_EQ(CellOf(dialog, 0, 1),
                  L"墨衡清单定额库\\上海\\2016预算定额\\取费模板\\费用汇总模板\\一般计税.fyt");
        ConfirmRow(dialog, 0);
    });
    const CString path = IQsUtils::GetFeeTemplatePath(Family, Section, false);
    driver.Join();
    EXPECT_EQ(ToNativePath(path), OwnFolder() / L"Library" / L"上海" / L"2016预算定额" / L"取费模板" /
                                      L"费用汇总模板" / L"一般计税.fyt");
    EXPECT_TRUE(std::filesystem::exists(ToNativePath(path)));
}

TEST(InstalledDialogs, ATemplateOfTheUserIsPicked) {
    DialogDriver driver(PickerTitle, [](HWND dialog) {
        EXPECT_EQ(CellOf(dialog, 1, 0), L"本单位一般计税");
        ConfirmRow(dialog, 1);
    });
    const CString path = IQsUtils::GetFeeTemplatePath(Family, Section, false);
    driver.Join();
    EXPECT_EQ(ToNativePath(path), OwnFolder() / L"模板" / L"费用汇总模板" / L"本单位一般计税.fyt");
    EXPECT_TRUE(std::filesystem::exists(ToNativePath(path)));
}

TEST(InstalledDialogs, EachKindHasItsOwnList) {
    const auto expectRow = [](int row, const wchar_t* title, const auto& pick) {
        DialogDriver driver(PickerTitle, [row, title](HWND dialog) {
            EXPECT_EQ(CellOf(dialog, row, 0), title);
            PressButton(dialog, IDCANCEL);
            EXPECT_TRUE(WaitForEnd(dialog));
        });
        EXPECT_EQ(pick(), u"");
    };
    expectRow(0, L"简易计税", [] { return IQsUtils::GetFeeTemplatePath(Family, Section, true); });
    // The user's own reports come first.
    expectRow(1, L"项目汇总表", [] { return IQsUtils::GetReportTemplatePath(Family, Section, 0); });
    expectRow(1, L"分部分项清单计价表", [] { return IQsUtils::GetReportTemplatePath(Family, Section, 1); });
    expectRow(1, L"定额计价表", [] { return IQsUtils::GetReportTemplatePath(Family, Section, 2); });
    expectRow(0, L"规费税金", [] { return IQsUtils::GetGfsjTemplatePath(Family, Section, false); });
    expectRow(0, L"措施项目(整体)", [] { return IQsUtils::GetCsxmTemplatePath(Family, Section, true); });
    expectRow(0, L"综合单价", [] { return IQsUtils::GetDjzcTemplatePath(Family, Section); });
}

TEST(InstalledDialogs, WithoutARowTheUserIsToldAndCanCancel) {
    DialogDriver driver(PickerTitle, [](HWND dialog) {
        PressButton(dialog, IDOK);
        const HWND message = WaitForWindow(L"墨衡造价", dialog);
        ASSERT_NE(message, nullptr);
        EXPECT_TRUE(HasText(message, L"请选择一个模板！"));
        PressKey(message, VK_RETURN);
        EXPECT_TRUE(WaitForEnd(message));
        PressKey(dialog, VK_ESCAPE);
        EXPECT_TRUE(WaitForEnd(dialog));
    });
    EXPECT_EQ(IQsUtils::GetFeeTemplatePath(Family, Section, false), u"");
}

TEST(InstalledDialogs, AFolderIsSelected) {
    const TemporaryFolder chosen(FolderOfBrowsers());
    KeepTimeOfVisit(chosen.Path());
    const CString folder = FromNativePath(chosen.Path());
    DialogDriver driver(L"", [&](HWND window) {
        const std::wstring path = folder.ToWide();
        EXPECT_TRUE(Eventually([&] {  // it may not have been filled yet
            ::SendMessageW(window, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(path.c_str()));
            return HasText(window, path.size() > 35 ? path.substr(0, 35) + L"..." : path);
        }));
        PressButton(window, IDOK);
        EXPECT_TRUE(WaitForEnd(window));
    });
    EXPECT_EQ(IQsUtils::SelectFolder(), folder);
}

TEST(InstalledDialogs, NoFolderIsSelected) {
    DialogDriver driver(L"", [](HWND window) {
        PressButton(window, IDCANCEL);
        EXPECT_TRUE(WaitForEnd(window));
    });
    EXPECT_EQ(IQsUtils::SelectFolder(), u"");
}

TEST(InstalledDialogs, ALongTextIsShownAfterADelayWithoutTheFocus) {
    const HWND host = ::CreateWindowExW(0, L"EDIT", L"host", WS_POPUP | WS_VISIBLE, 10, 10, 300, 200, nullptr,
                                        nullptr, nullptr, nullptr);
    ::SetForegroundWindow(host);
    ::SetFocus(host);
    texttip::CloseWindowNow();
    EXPECT_FALSE(TipOfThread().has_value());
    texttip::SetShowText(u"土方开挖,三类土,深度2m以内");
    CRect narrow(0, 0, 60, 20);
    CRect wide(0, 0, 600, 20);
    EXPECT_TRUE(texttip::IsTextLonger(narrow));
    EXPECT_FALSE(texttip::IsTextLonger(wide));
    texttip::SetWindowPosition({200, 300});
    const HWND window = TipOfThread().value();
    RECT rect{};
    ::GetWindowRect(window, &rect);
    EXPECT_EQ(rect.left, 200);
    EXPECT_EQ(rect.bottom, 298);
    EXPECT_FALSE(::IsWindowVisible(window));
    texttip::ShowWindowDelay(20);
    EXPECT_FALSE(::IsWindowVisible(window));
    EXPECT_TRUE(PumpUntil([window] { return ::IsWindowVisible(window) != 0; }));
    EXPECT_EQ(::GetFocus(), host);
    EXPECT_EQ(::GetForegroundWindow(), host);
    texttip::CloseWindowNow();
    EXPECT_FALSE(::IsWindowVisible(window));
    texttip::ShowWindowDelay(0);
    EXPECT_TRUE(::IsWindowVisible(window));
    EXPECT_EQ(::GetFocus(), host);
    texttip::CloseWindowNow();
    ::DestroyWindow(host);
}

TEST(InstalledDialogs, AnEmptyTextHasATipOfEightPixels) {
    texttip::SetShowText(u"");
    RECT rect{};
    ::GetWindowRect(TipOfThread().value(), &rect);
    EXPECT_EQ(rect.right - rect.left, 8);
    EXPECT_GT(rect.bottom - rect.top, 4);
}

}  // namespace
