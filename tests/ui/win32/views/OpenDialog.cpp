#include "tests/ui/win32/views/OpenDialog.h"

#include <utility>

#include <gtest/gtest.h>

namespace {

constexpr DWORD MostMilliseconds = 30'000;

struct Search {
    const std::wstring* title = nullptr;
    HWND owner = nullptr;
    HWND found = nullptr;
};

bool IsMeant(HWND window, const std::wstring& text, const std::wstring& title) {
    return title.empty() ? !text.empty() && ClassOf(window) == L"#32770" : text == title;
}

BOOL CALLBACK Look(HWND window, LPARAM parameter) {
    Search& search = *reinterpret_cast<Search*>(parameter);
    DWORD process = 0;
    ::GetWindowThreadProcessId(window, &process);
    if (process != ::GetCurrentProcessId() || !::IsWindowVisible(window))
        return TRUE;
    const std::wstring text = TextOf(window);
    if (search.title != nullptr && IsMeant(window, text, *search.title) &&
        (search.owner == nullptr || ::GetWindow(window, GW_OWNER) == search.owner))
        search.found = window;
    return TRUE;
}

/// Such a text is kept by the window, so that asking for it needs no answer of its thread.
constexpr int MostUnits = 512;

}  // namespace

bool Eventually(const std::function<bool()>& holds) {
    const DWORD begin = ::GetTickCount();
    while (!holds()) {
        if (::GetTickCount() - begin > MostMilliseconds)
            return false;
        ::Sleep(5);
    }
    return true;
}

HWND WaitForWindow(const std::wstring& title, HWND owner) {
    Search search{&title, owner};
    Eventually([&] {
        ::EnumWindows(Look, reinterpret_cast<LPARAM>(&search));
        return search.found != nullptr;
    });
    return search.found;
}

bool WaitForEnd(HWND window) {
    return Eventually([window] { return !::IsWindow(window); });
}

std::wstring TextOf(HWND window) {
    wchar_t text[MostUnits] = {};
    ::InternalGetWindowText(window, text, MostUnits);
    return text;
}

std::filesystem::path FolderOfBrowsers() {
    return std::filesystem::temp_directory_path().root_path();
}

void KeepTimeOfVisit(const std::filesystem::path& folder) {
    constexpr ULONGLONG hour = 36'000'000'000;
    FILETIME now{};
    ::GetSystemTimeAsFileTime(&now);
    ULARGE_INTEGER visit{};
    visit.LowPart = now.dwLowDateTime;
    visit.HighPart = now.dwHighDateTime;
    visit.QuadPart += hour;
    const FILETIME toCome{visit.LowPart, visit.HighPart};
    const HANDLE opened =
        ::CreateFileW(folder.c_str(), FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                      OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    EXPECT_TRUE(::SetFileTime(opened, nullptr, &toCome, nullptr)) << folder;
    ::CloseHandle(opened);
}

bool HasText(HWND dialog, const std::wstring& text) {
    HWND child = ::GetWindow(dialog, GW_CHILD);
    while (child != nullptr && TextOf(child) != text)
        child = ::GetWindow(child, GW_HWNDNEXT);
    return child != nullptr;
}

std::wstring ClassOf(HWND window) {
    wchar_t name[MostUnits] = {};
    ::GetClassNameW(window, name, MostUnits);
    return name;
}

HWND FocusOf(HWND dialog) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    ::GetGUIThreadInfo(::GetWindowThreadProcessId(dialog, nullptr), &info);
    return info.hwndFocus;
}

void PressKey(HWND dialog, WPARAM key) {
    const HWND focus = FocusOf(dialog);
    ::PostMessageW(focus, WM_KEYDOWN, key, 1);
    ::PostMessageW(focus, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
}

void TypeLetter(HWND dialog, wchar_t letter) {
    ::PostMessageW(FocusOf(dialog), WM_CHAR, letter, 1);
}

void Click(HWND control, POINT point) {
    const LPARAM place = MAKELPARAM(point.x, point.y);
    ::PostMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, place);
    ::PostMessageW(control, WM_LBUTTONUP, 0, place);
}

void DoubleClick(HWND control, POINT point) {
    const LPARAM place = MAKELPARAM(point.x, point.y);
    Click(control, point);
    ::PostMessageW(control, WM_LBUTTONDBLCLK, MK_LBUTTON, place);
    ::PostMessageW(control, WM_LBUTTONUP, 0, place);
}

void PressButton(HWND dialog, int button) {
    ::PostMessageW(::GetDlgItem(dialog, button), BM_CLICK, 0, 0);
}

DialogDriver::DialogDriver(std::wstring title, std::function<void(HWND)> drive) {
    const DWORD shower = ::GetCurrentThreadId();
    m_thread = std::thread([title = std::move(title), drive = std::move(drive), shower] {
        const HWND dialog = WaitForWindow(title);
        if (dialog == nullptr) {
            ADD_FAILURE() << "no dialog has been shown";
            ::PostThreadMessageW(shower, WM_QUIT, 0, 0);
            return;
        }
        drive(dialog);
        while (::IsWindow(dialog)) {  // what is still open on top of it goes first
            ::PostMessageW(::GetWindow(dialog, GW_ENABLEDPOPUP), WM_COMMAND, IDCANCEL, 0);
            ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
            ::Sleep(50);
        }
    });
}

void DialogDriver::Join() {
    if (m_thread.joinable())
        m_thread.join();
}
