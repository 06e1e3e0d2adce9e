// Takes the pictures of the dialogs for the documents: Screenshots.exe FOLDER
#include <cstdio>
#include <functional>
#include <string>

#include <QsUtils/QsUtils.h>
#include <commctrl.h>
#include <shlobj.h>

#include "tests/ui/win32/views/FakeTip.h"
#include "tests/ui/win32/views/OpenDialog.h"

// Stands on the other one, which comes later in the alphabet.
// clang-format off
#include <propidl.h>
#include <gdiplus.h>
// clang-format on

namespace {

constexpr CLSID PngEncoder = {0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};

/// What can be seen of a rectangle of the screen.
bool SavePicture(const CRect& rect, const std::wstring& file) {
    const HDC screen = ::GetDC(nullptr);
    const HDC dc = ::CreateCompatibleDC(screen);
    const HBITMAP bitmap = ::CreateCompatibleBitmap(screen, rect.Width(), rect.Height());
    const HGDIOBJ before = ::SelectObject(dc, bitmap);
    ::BitBlt(dc, 0, 0, rect.Width(), rect.Height(), screen, rect.left, rect.top, SRCCOPY);
    ::SelectObject(dc, before);
    const bool isSaved =
        Gdiplus::Bitmap(bitmap, nullptr).Save(file.c_str(), &PngEncoder, nullptr) == Gdiplus::Ok;
    ::DeleteObject(bitmap);
    ::DeleteDC(dc);
    ::ReleaseDC(nullptr, screen);
    return isSaved;
}

/// Gives a window the time to be drawn whole, and takes its picture.
bool SaveWindow(HWND window, const std::wstring& file) {
    ::Sleep(700);
    RECT rect{};
    ::GetWindowRect(window, &rect);
    return SavePicture(rect, file);
}

bool SavePicker(const std::wstring& file) {
    bool isSaved = false;
    DialogDriver driver(L"选择模板", [&](HWND dialog) {
        Eventually([=] { return FocusOf(dialog) == ::GetDlgItem(dialog, 8002); });
        PressKey(dialog, VK_DOWN);
        ::SetForegroundWindow(dialog);
        isSaved = SaveWindow(dialog, file);
        PressButton(dialog, IDCANCEL);
    });
    IQsUtils::GetFeeTemplatePath(u"上海", u"2016预算定额", false);
    driver.Join();
    return isSaved;
}

bool SaveFolderBrowser(const std::wstring& file) {
    bool isSaved = false;
    DialogDriver driver(L"", [&](HWND dialog) {
        const wchar_t* const path = L"C:\\windows\\system32";
        Eventually([=] {
            ::SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(path));
            return HasText(dialog, path);
        });
        ::SetForegroundWindow(dialog);
        isSaved = SaveWindow(dialog, file);
        PressButton(dialog, IDCANCEL);
    });
    IQsUtils::SelectFolder();
    driver.Join();
    return isSaved;
}

/// A bill whose second column is too narrow for its texts.
HWND NewBill() {
    const wchar_t* const rows[][3] = {{L"010101001001", L"平整场地", L"m2"},
                                      {L"010101002001", L"挖一般土方,三类土,深度2m以内,运距5km", L"m3"},
                                      {L"010103001001", L"回填方,夯填,运距100m", L"m3"}};
    const wchar_t* const titles[] = {L"项目编码", L"项目名称", L"单位"};
    const int widths[] = {110, 120, 60};
    const HWND list = ::CreateWindowExW(0, WC_LISTVIEWW, L"", WS_POPUP | WS_VISIBLE | WS_BORDER | LVS_REPORT,
                                        100, 100, 440, 120, nullptr, nullptr, nullptr, nullptr);
    for (int i = 0; i < 3; ++i) {
        LVCOLUMNW column{};
        column.mask = LVCF_WIDTH | LVCF_TEXT;
        column.cx = widths[i];
        column.pszText = const_cast<wchar_t*>(titles[i]);
        ::SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
    }
    for (int row = 0; row < 3; ++row) {
        for (int i = 0; i < 3; ++i) {
            LVITEMW item{};
            item.mask = LVIF_TEXT;
            item.iItem = row;
            item.iSubItem = i;
            item.pszText = const_cast<wchar_t*>(rows[row][i]);
            ::SendMessageW(list, i == 0 ? LVM_INSERTITEMW : LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        }
    }
    return list;
}

bool SaveTip(const std::wstring& file) {
    const HWND bill = NewBill();
    RECT cell{};
    cell.left = LVIR_BOUNDS;
    cell.top = 1;
    ::SendMessageW(bill, LVM_GETSUBITEMRECT, 1, reinterpret_cast<LPARAM>(&cell));
    POINT corner{cell.left, cell.top};
    ::ClientToScreen(bill, &corner);
    texttip::SetShowText(u"挖一般土方,三类土,深度2m以内,运距5km");
    texttip::SetWindowPosition(corner);
    texttip::ShowWindowDelay(1);
    const HWND tip = TipOfThread().value();
    PumpUntil([tip] { return ::IsWindowVisible(tip) != 0; });
    const DWORD begin = ::GetTickCount();
    PumpUntil([begin] { return ::GetTickCount() - begin > 500; });
    const bool isSaved = SavePicture(CRect(100, 100, 540, 220), file);
    texttip::CloseWindowNow();
    ::DestroyWindow(bill);
    return isSaved;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 2) {
        std::fputs("usage: Screenshots FOLDER\n", stderr);
        return 2;
    }
    Gdiplus::GdiplusStartupInput input;
    ULONG_PTR token = 0;
    Gdiplus::GdiplusStartup(&token, &input, nullptr);
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_LISTVIEW_CLASSES};
    ::InitCommonControlsEx(&classes);
    IQsUtils::SetSoftVersion(u"7.1");
    const std::wstring folder = std::wstring(arguments[1]) + L"\\";
    const bool isSaved = SaveTip(folder + L"tip.png") && SavePicker(folder + L"picker.png") &&
                         SaveFolderBrowser(folder + L"browser.png");
    Gdiplus::GdiplusShutdown(token);
    return isSaved ? 0 : 1;
}
