// The picker's window, driven through the message loop that shows it.
#include <atomic>
#include <ostream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>

#include "QsUtils/platform/Geometry.h"
#include "QsUtils/ui/win32/CommonControls.h"
#include "QsUtils/ui/win32/DialogIds.h"

#include "tests/ui/win32/views/FakePicker.h"
#include "tests/ui/win32/views/OpenDialog.h"

// For the framework's messages.
static std::ostream& operator<<(std::ostream& out, const RECT& r) {
    return out << r.left << ',' << r.top << ',' << r.right << ',' << r.bottom;
}

namespace {

constexpr wchar_t Title[] = L"选择模板";
constexpr wchar_t MessageTitle[] = L"墨衡造价";

std::vector<FakePicker::Row> ThreeRows() {
    return {{u"常规", u"墨衡清单定额库\\甲"}, {u"Alpha", u"墨衡造价V6\\乙"}, {u"beta", u"丙"}};
}

HWND ListOf(HWND dialog) {
    return ::GetDlgItem(dialog, IDC_TEMPLATE_LIST);
}

int CurrentRow(HWND dialog) {
    return static_cast<int>(
        ::SendMessageW(ListOf(dialog), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

/// A point on a row, or on the empty place below the last one.
POINT PointOf(HWND dialog, int row) {
    RECT rect{};
    rect.left = LVIR_BOUNDS;
    ::SendMessageW(ListOf(dialog), LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&rect));
    const int height = rect.bottom - rect.top;
    return {rect.left + 20, rect.top + row * height + height / 2};
}

std::wstring CellOf(HWND dialog, int row, int column) {
    wchar_t text[1000] = {};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = 1000;
    ::SendMessageW(ListOf(dialog), LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&item));
    return text;
}

bool SelectRow(HWND dialog, int row) {
    Click(ListOf(dialog), PointOf(dialog, row));
    return Eventually([=] { return CurrentRow(dialog) == row; });
}

RECT PlaceInDialog(HWND dialog, HWND control) {
    RECT rect{};
    ::GetWindowRect(control, &rect);
    ::MapWindowPoints(HWND_DESKTOP, dialog, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

void ExpectPlace(HWND dialog, int id, int x, int y, int width, int height) {
    RECT units{x, y, width, height};  // a place and a size, which are rounded each for itself
    ::MapDialogRect(dialog, &units);
    const CRect expected(units.left, units.top, units.left + units.right, units.top + units.bottom);
    const RECT place = PlaceInDialog(dialog, ::GetDlgItem(dialog, id));
    EXPECT_EQ(CRect(place), expected) << id;
}

TEST(PickerView, ControlsStandWhereTheyAreToBe) {
    FakePicker picker(ThreeRows());
    DialogDriver driver(Title, [](HWND dialog) {
        ExpectPlace(dialog, IDOK, 63, 198, 50, 14);
        ExpectPlace(dialog, IDCANCEL, 257, 198, 50, 14);
        ExpectPlace(dialog, IDC_TEMPLATE_LIST, 7, 7, 351, 185);
        EXPECT_EQ(TextOf(::GetDlgItem(dialog, IDOK)), L"确定");
        EXPECT_EQ(TextOf(::GetDlgItem(dialog, IDCANCEL)), L"取消");
        RECT client{};
        ::GetClientRect(dialog, &client);
        RECT size{0, 0, 365, 219};
        ::MapDialogRect(dialog, &size);
        EXPECT_TRUE(::EqualRect(&client, &size));
        EXPECT_EQ(static_cast<WORD>(::SendMessageW(dialog, DM_GETDEFID, 0, 0)), IDOK);
        PressButton(dialog, IDCANCEL);
        EXPECT_TRUE(WaitForEnd(dialog));
    });
    EXPECT_FALSE(picker.Run());
}

TEST(PickerView, TheListIsAVisibleChildWithABorder) {
    FakePicker picker(ThreeRows());
    DialogDriver driver(Title, [](HWND dialog) {
        const HWND list = ListOf(dialog);
        EXPECT_EQ(ClassOf(list), L"SysListView32");
        const auto style = static_cast<DWORD>(::GetWindowLongPtrW(list, GWL_STYLE));
        EXPECT_TRUE(style & WS_CHILD);
        EXPECT_TRUE(style & WS_VISIBLE);
        EXPECT_TRUE(style & WS_BORDER);
        EXPECT_TRUE(style & WS_TABSTOP);
        EXPECT_TRUE(style & LVS_OWNERDATA);
        EXPECT_TRUE(style & LVS_SINGLESEL);
        EXPECT_EQ(style & LVS_TYPEMASK, static_cast<DWORD>(LVS_REPORT));
        EXPECT_TRUE(::SendMessageW(list, LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0) & LVS_EX_FULLROWSELECT);
        EXPECT_FALSE(::IsWindowVisible(::GetDlgItem(dialog, IDC_TEMPLATE_PLACE)));
        EXPECT_NE(TextOf(list), L"");
    });
    EXPECT_FALSE(picker.Run());
}

TEST(PickerView, ColumnsHaveTheirTitlesInTheMiddleAndTheirCellsOnTheLeft) {
    FakePicker picker(ThreeRows());
    DialogDriver driver(Title, [](HWND dialog) {
        const wchar_t* const titles[] = {L"模板名称", L"来源"};
        const int widths[] = {260, 220};
        const HWND list = ListOf(dialog);
        const auto header = reinterpret_cast<HWND>(::SendMessageW(list, LVM_GETHEADER, 0, 0));
        ASSERT_EQ(::SendMessageW(header, HDM_GETITEMCOUNT, 0, 0), 2);
        EXPECT_TRUE(::IsWindowVisible(header));
        const HDC dc = ::GetDC(list);
        const int inch = ::GetDeviceCaps(dc, LOGPIXELSX);
        ::ReleaseDC(list, dc);
        for (int i = 0; i < 2; ++i) {
            wchar_t text[100] = {};
            LVCOLUMNW column{};
            column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT;
            column.pszText = text;
            column.cchTextMax = 100;
            ::SendMessageW(list, LVM_GETCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
            EXPECT_STREQ(text, titles[i]);
            EXPECT_EQ(column.cx, ::MulDiv(widths[i], inch, 96));
            EXPECT_EQ(column.fmt & LVCFMT_JUSTIFYMASK, LVCFMT_LEFT);
            HDITEMW item{};
            item.mask = HDI_FORMAT;
            ::SendMessageW(header, HDM_GETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
            EXPECT_EQ(item.fmt & HDF_JUSTIFYMASK, HDF_CENTER);
            EXPECT_FALSE(item.fmt & (HDF_SORTUP | HDF_SORTDOWN));
        }
    });
    EXPECT_FALSE(picker.Run());
}

TEST(PickerView, CellsShowTheRows) {
    auto rows = ThreeRows();
    rows.push_back({u"", std::u16string(700, u'长')});
    FakePicker picker(rows);
    DialogDriver driver(Title, [&](HWND dialog) {
        ASSERT_EQ(::SendMessageW(ListOf(dialog), LVM_GETITEMCOUNT, 0, 0), 4);
        EXPECT_EQ(CellOf(dialog, 0, 0), L"常规");
        EXPECT_EQ(CellOf(dialog, 0, 1), L"墨衡清单定额库\\甲");
        EXPECT_EQ(CellOf(dialog, 2, 0), L"beta");
        EXPECT_EQ(CellOf(dialog, 3, 0), L"");
        EXPECT_EQ(CellOf(dialog, 3, 1), std::wstring(700, L'长'));
    });
    EXPECT_FALSE(picker.Run());
}

TEST(PickerView, ARowThatIsMadeTheCurrentOneIsConfirmed) {
    FakePicker picker(ThreeRows());
    DialogDriver driver(Title, [](HWND dialog) {
        EXPECT_EQ(CurrentRow(dialog), -1);  // none at first
        EXPECT_TRUE(SelectRow(dialog, 1));
        PressButton(dialog, IDOK);
        EXPECT_TRUE(WaitForEnd(dialog));
    });
    EXPECT_TRUE(picker.Run());
    driver.Join();
    EXPECT_EQ(picker.chosen, 1u);
    EXPECT_EQ(picker.confirmations, 1);
}

TEST(PickerView, WithoutARowAMessageIsShownAndTheDialogStaysOpen) {
    FakePicker picker(ThreeRows());
    DialogDriver driver(Title, [&](HWND dialog) {
        for (int round = 1; round <= 2; ++round) {
            PressButton(dialog, IDOK);
            const HWND message = WaitForWindow(MessageTitle, dialog);
            ASSERT_NE(message, nullptr);
            EXPECT_FALSE(::IsWindowEnabled(dialog));
            EXPECT_TRUE(HasText(message, L"请选择一个模板！"));
            bool hasIcon = false;
            for (HWND child = ::GetWindow(message, GW_CHILD); child != nullptr;
                 child = ::GetWindow(child, GW_HWNDNEXT))
                hasIcon = hasIcon || ::SendMessageW(child, STM_GETICON, 0, 0) ==
                                         reinterpret_cast<LRESULT>(::LoadIconA(nullptr, IDI_INFORMATION));
            EXPECT_TRUE(hasIcon);
            PressKey(message, VK_RETURN);
            EXPECT_TRUE(WaitForEnd(message));
            EXPECT_TRUE(Eventually([&] { return ::IsWindowEnabled(dialog) != 0; }));
            EXPECT_EQ(picker.confirmations, round);
        }
        EXPECT_TRUE(SelectRow(dialog, 2));
        PressButton(dialog, IDOK);
        EXPECT_TRUE(WaitForEnd(dialog));
    });
    EXPECT_TRUE(picker.Run());
    driver.Join();
    EXPECT_EQ(picker.chosen, 2u);
}

TEST(PickerView, ADoubleClickTakesARowAndNothingElse) {
    FakePicker picker(ThreeRows());
    DialogDriver driver(Title, [&](HWND dialog) {
        DoubleClick(ListOf(dialog), PointOf(dialog, 5));
        EXPECT_TRUE(SelectRow(dialog, 0));  // which comes behind it in the queue
        EXPECT_EQ(picker.confirmations, 0);
        DoubleClick(ListOf(dialog), PointOf(dialog, 2));
        EXPECT_TRUE(WaitForEnd(dialog));
    });
    EXPECT_TRUE(picker.Run());
    driver.Join();
    EXPECT_EQ(picker.chosen, 2u);
    EXPECT_EQ(picker.confirmations, 1);
}

TEST(PickerView, TheButtonTheKeyAndTheCornerCancel) {
    const std::function<void(HWND)> ways[] = {
        [](HWND dialog) { PressButton(dialog, IDCANCEL); },
        [](HWND dialog) { PressKey(dialog, VK_ESCAPE); },
        [](HWND dialog) { ::PostMessageW(dialog, WM_SYSCOMMAND, SC_CLOSE, 0); },
    };
    for (const auto& way : ways) {
        FakePicker picker(ThreeRows());
        DialogDriver driver(Title, [&](HWND dialog) {
            EXPECT_TRUE(SelectRow(dialog, 1));
            way(dialog);
            EXPECT_TRUE(WaitForEnd(dialog));
        });
        EXPECT_FALSE(picker.Run());
        driver.Join();
        EXPECT_EQ(picker.confirmations, 0);
    }
}

TEST(PickerView, ArrowsMoveInTheListAndEnterConfirms) {
    FakePicker picker(ThreeRows());
    DialogDriver driver(Title, [](HWND dialog) {
        EXPECT_TRUE(Eventually([=] { return FocusOf(dialog) == ListOf(dialog); }));
        PressKey(dialog, VK_DOWN);
        EXPECT_TRUE(Eventually([=] { return CurrentRow(dialog) == 0; }));
        PressKey(dialog, VK_DOWN);
        EXPECT_TRUE(Eventually([=] { return CurrentRow(dialog) == 1; }));
        PressKey(dialog, VK_END);
        EXPECT_TRUE(Eventually([=] { return CurrentRow(dialog) == 2; }));
        PressKey(dialog, VK_UP);
        EXPECT_TRUE(Eventually([=] { return CurrentRow(dialog) == 1; }));
        PressKey(dialog, VK_RETURN);
        EXPECT_TRUE(WaitForEnd(dialog));
    });
    EXPECT_TRUE(picker.Run());
    driver.Join();
    EXPECT_EQ(picker.chosen, 1u);
}

TEST(PickerView, TheTabulatorGoesFromTheListToTheButtonsAndAround) {
    FakePicker picker(ThreeRows());
    DialogDriver driver(Title, [](HWND dialog) {
        EXPECT_TRUE(Eventually([=] { return FocusOf(dialog) == ListOf(dialog); }));
        for (const int id : {IDOK, IDCANCEL, IDC_TEMPLATE_LIST}) {
            PressKey(dialog, VK_TAB);
            EXPECT_TRUE(Eventually([=] { return FocusOf(dialog) == ::GetDlgItem(dialog, id); })) << id;
        }
    });
    EXPECT_FALSE(picker.Run());
}

TEST(PickerView, LettersGoToTheNextRowThatBeginsWithThem) {
    FakePicker picker({{u"常规", u""}, {u"Alpha", u""}, {u"beta", u""}, {u"Bravo", u""}, {u"常用", u""}});
    const std::pair<std::wstring, int> typed[] = {{L"a", 1}, {L"BR", 3}, {L"常用", 4}, {L"be", 2}};
    for (const auto& [letters, row] : typed) {
        DialogDriver driver(Title, [&, letters = letters, row = row](HWND dialog) {
            EXPECT_TRUE(Eventually([=] { return FocusOf(dialog) == ListOf(dialog); }));
            for (const wchar_t letter : letters)
                TypeLetter(dialog, letter);
            EXPECT_TRUE(Eventually([=] { return CurrentRow(dialog) == row; }));
        });
        EXPECT_FALSE(picker.Run());
    }
}

TEST(PickerView, ASearchGoesThroughTheRowsOnceFromItsStart) {
    FakePicker picker({{u"Alpha", u""}, {u"alpine", u""}, {u"beta", u""}});
    DialogDriver driver(Title, [](HWND dialog) {
        const auto find = [&](const wchar_t* text, UINT flags, int from) {
            NMLVFINDITEMW notification{};
            notification.hdr = {ListOf(dialog), IDC_TEMPLATE_LIST, LVN_ODFINDITEMW};
            notification.iStart = from;
            notification.lvfi.flags = flags;
            notification.lvfi.psz = text;
            return ::SendMessageW(dialog, WM_NOTIFY, IDC_TEMPLATE_LIST,
                                  reinterpret_cast<LPARAM>(&notification));
        };
        constexpr UINT begins = LVFI_STRING | LVFI_PARTIAL;
        EXPECT_EQ(find(L"AL", begins, -1), 0);
        EXPECT_EQ(find(L"alp", begins, 1), 1);
        EXPECT_EQ(find(L"alp", begins, 2), -1);
        EXPECT_EQ(find(L"alp", begins, 3), -1);
        EXPECT_EQ(find(L"alp", begins | LVFI_WRAP, 2), 0);
        EXPECT_EQ(find(L"alp", begins | LVFI_WRAP, 3), 0);
        EXPECT_EQ(find(L"al", LVFI_STRING, 0), -1);
        EXPECT_EQ(find(L"ALPINE", LVFI_STRING, 0), 1);
        EXPECT_EQ(find(L"alphabet", begins, 0), -1);
        EXPECT_EQ(find(L"", begins, 0), 0);
        EXPECT_EQ(find(nullptr, begins, 0), -1);
        EXPECT_EQ(find(L"alpha", LVFI_PARAM, 0), -1);
    });
    EXPECT_FALSE(picker.Run());
}

TEST(PickerView, AClickOnATitleSortsAndTheRowsStayThemselves) {
    FakePicker picker({{u"砖", u"2"}, {u"吖", u"1"}, {u"座", u"1"}});
    const auto rowsOf = [](HWND dialog) {
        std::wstring titles;
        for (int row = 0; row < 3; ++row)
            titles += CellOf(dialog, row, 0);
        return titles;
    };
    DialogDriver driver(Title, [&](HWND dialog) {
        const auto header = reinterpret_cast<HWND>(::SendMessageW(ListOf(dialog), LVM_GETHEADER, 0, 0));
        const auto expectAfterClick = [&](int x, const std::wstring& titles) {
            Click(header, {x, 5});
            EXPECT_TRUE(Eventually([&] { return rowsOf(dialog) == titles; }));
        };
        EXPECT_EQ(rowsOf(dialog), L"砖吖座");
        EXPECT_TRUE(SelectRow(dialog, 0));
        expectAfterClick(20, L"吖砖座");
        EXPECT_TRUE(Eventually([&] { return CurrentRow(dialog) == 1; }));  // it goes along
        expectAfterClick(20, L"座砖吖");
        EXPECT_EQ(CurrentRow(dialog), 1);
        expectAfterClick(280, L"吖座砖");  // those of like texts in the dialog's order
        EXPECT_TRUE(Eventually([&] { return CurrentRow(dialog) == 2; }));
        expectAfterClick(280, L"砖吖座");
        EXPECT_TRUE(Eventually([&] { return CurrentRow(dialog) == 0; }));
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        ::SendMessageW(header, HDM_GETITEMW, 1, reinterpret_cast<LPARAM>(&item));
        EXPECT_FALSE(item.fmt & (HDF_SORTUP | HDF_SORTDOWN));
        expectAfterClick(20, L"吖砖座");
        TypeLetter(dialog, L'座');
        EXPECT_TRUE(Eventually([&] { return CurrentRow(dialog) == 2; }));
        PressKey(dialog, VK_RETURN);
        EXPECT_TRUE(WaitForEnd(dialog));
    });
    EXPECT_TRUE(picker.Run());
    driver.Join();
    EXPECT_EQ(picker.chosen, 2u);
}

TEST(PickerView, RowsThatArentSeenArentAskedFor) {
    std::vector<FakePicker::Row> rows;
    for (int i = 0; i < 20'000; ++i) {
        const std::string number = std::to_string(i);
        rows.push_back({u"模板" + std::u16string(number.begin(), number.end()), u"来源"});
    }
    FakePicker picker(rows);
    DialogDriver driver(Title, [&](HWND dialog) {
        const HWND list = ListOf(dialog);
        ASSERT_EQ(::SendMessageW(list, LVM_GETITEMCOUNT, 0, 0), 20'000);
        ::UpdateWindow(list);
        EXPECT_LT(picker.askedCells, 1000u);
        EXPECT_EQ(CellOf(dialog, 19'999, 0), L"模板19999");
        PressKey(dialog, VK_END);
        EXPECT_TRUE(Eventually([=] { return CurrentRow(dialog) == 19'999; }));
        EXPECT_LT(picker.askedCells, 2000u);
        PressKey(dialog, VK_RETURN);
        EXPECT_TRUE(WaitForEnd(dialog));
    });
    EXPECT_TRUE(picker.Run());
    driver.Join();
    EXPECT_EQ(picker.chosen, 19'999u);
}

TEST(PickerView, WithoutAnyRowItIsOpenedAllTheSame) {
    FakePicker picker({});
    DialogDriver driver(Title, [](HWND dialog) {
        EXPECT_EQ(::SendMessageW(ListOf(dialog), LVM_GETITEMCOUNT, 0, 0), 0);
        TypeLetter(dialog, L'a');
        PressKey(dialog, VK_DOWN);
        PressKey(dialog, VK_RETURN);
        const HWND message = WaitForWindow(MessageTitle, dialog);
        ASSERT_NE(message, nullptr);
        PressKey(message, VK_ESCAPE);
        EXPECT_TRUE(WaitForEnd(message));
        PressKey(dialog, VK_ESCAPE);
        EXPECT_TRUE(WaitForEnd(dialog));
    });
    EXPECT_FALSE(picker.Run());
    driver.Join();
    EXPECT_EQ(picker.confirmations, 1);
}

/// What windows that a thread makes look like is the host's matter again afterwards.
TEST(PickerView, TheThreadIsLeftWithTheContextThatItHad) {
    const auto current = [] {
        HANDLE context = nullptr;
        EXPECT_TRUE(::GetCurrentActCtx(&context));
        ::ReleaseActCtx(context);
        return context;
    };
    const HANDLE before = current();
    FakePicker picker(ThreeRows());
    DialogDriver driver(Title, [](HWND dialog) { PressButton(dialog, IDCANCEL); });
    EXPECT_FALSE(picker.Run());
    driver.Join();
    EXPECT_EQ(current(), before);
    try {
        const QsUi::CommonControls controls;
        throw std::runtime_error("leaving");
    } catch (const std::runtime_error&) {
        EXPECT_EQ(current(), before);
    }
}

TEST(PickerView, AHostThatQuitsCancelsItAndStillQuits) {
    const DWORD thread = ::GetCurrentThreadId();
    FakePicker picker(ThreeRows());
    DialogDriver driver(Title, [thread](HWND dialog) {
        EXPECT_TRUE(SelectRow(dialog, 1));
        ::PostThreadMessageW(thread, WM_QUIT, 7, 0);
        EXPECT_TRUE(WaitForEnd(dialog));
    });
    EXPECT_FALSE(picker.Run());
    driver.Join();
    EXPECT_EQ(picker.confirmations, 0);
    MSG message{};
    EXPECT_TRUE(::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7u);
}

TEST(PickerView, TwoThreadsHaveOneEach) {
    FakePicker first(ThreeRows());
    FakePicker second({{u"甲", u""}, {u"乙", u""}});
    std::atomic<bool> isTaken{false};
    std::thread other([&] { isTaken = second.Run(); });
    const HWND own = WaitForWindow(Title);
    ASSERT_NE(own, nullptr);
    std::thread user([&] {
        HWND found = nullptr;
        EXPECT_TRUE(Eventually([&] {  // the one that has come behind it
            found = ::FindWindowExW(nullptr, nullptr, L"#32770", Title);
            found = found == own ? ::FindWindowExW(nullptr, found, L"#32770", Title) : found;
            return found != nullptr && ListOf(found) != nullptr;
        }));
        for (const HWND dialog : {own, found}) {
            EXPECT_TRUE(SelectRow(dialog, 1));
            PressButton(dialog, IDOK);
            EXPECT_TRUE(WaitForEnd(dialog));
        }
    });
    EXPECT_TRUE(first.Run());
    other.join();
    user.join();
    EXPECT_TRUE(isTaken);
    EXPECT_EQ(first.chosen, 1u);
    EXPECT_EQ(second.chosen, 1u);
}

TEST(PickerView, TheHostsWindowCantBeUsedMeanwhile) {
    const HWND host = ::CreateWindowExW(0, L"STATIC", L"host", WS_POPUP | WS_VISIBLE, 10, 10, 300, 200,
                                        nullptr, nullptr, nullptr, nullptr);
    ::SetActiveWindow(host);
    FakePicker picker(ThreeRows());
    DialogDriver driver(Title, [host](HWND dialog) {
        EXPECT_EQ(::GetWindow(dialog, GW_OWNER), host);
        EXPECT_FALSE(::IsWindowEnabled(host));
        PressKey(dialog, VK_ESCAPE);
        EXPECT_TRUE(WaitForEnd(dialog));
    });
    EXPECT_FALSE(picker.Run());
    driver.Join();
    EXPECT_TRUE(::IsWindowEnabled(host));
    EXPECT_EQ(::GetActiveWindow(), host);
    ::DestroyWindow(host);
}

}  // namespace
