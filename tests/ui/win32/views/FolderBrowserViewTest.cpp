// The system's folder browser, driven through the message loop that shows it.
#include <atomic>
#include <filesystem>
#include <mutex>
#include <string>
#include <vector>

#include <windows.h>
#include <gtest/gtest.h>
#include <objbase.h>
#include <shlobj.h>

#include "QsUtils/platform/NativePath.h"
#include "QsUtils/platform/win32/Windows.h"
#include "QsUtils/ui/CFolderDialog.h"
#include "QsUtils/ui/Toolkit.h"

#include "tests/support/TemporaryFolder.h"
#include "tests/ui/win32/views/OpenDialog.h"

namespace {

QsUi::IViews* Views() {
    return QsUi::OpenViews().views;
}

/// Keeps what the browser tells.
class WatchedBrowser final : public CFolderDialog {
public:
    using CFolderDialog::CFolderDialog;

    void OnBrowseCallback(QsUi::IFolderBrowserWindow* window, QsUi::FolderBrowserMessage message,
                          QsUi::FolderItem item) override {
        {
            const std::lock_guard lock(m_mutex);
            m_messages.push_back(static_cast<int>(message));
        }
        CFolderDialog::OnBrowseCallback(window, message, item);
        const std::lock_guard lock(m_mutex);
        if (message == QsUi::FolderBrowserMessage::SelChanged)
            m_current = m_strSelectedPath;
    }
    std::vector<int> Messages() {
        const std::lock_guard lock(m_mutex);
        return m_messages;
    }
    /// Whether that is what the browser has told last.
    bool IsCurrent(const CString& path) {
        const std::lock_guard lock(m_mutex);
        return m_current == path;
    }

private:
    std::mutex m_mutex;
    std::vector<int> m_messages;
    CString m_current;
};

class FolderBrowserView : public testing::Test {
protected:
    FolderBrowserView() {
        std::filesystem::create_directories(folder.File("一") / "二");
        std::filesystem::create_directories(folder.File("b"));
        for (const auto& made :
             {folder.Path(), folder.File("一"), folder.File("一") / "二", folder.File("b")})
            KeepTimeOfVisit(made);
    }
    CString Path(const char* name) const { return FromNativePath(folder.File(name)); }

    /// As if the user had clicked on a folder.
    static void Select(HWND browser, const CString& path) {
        ::SendMessageW(browser, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(path.ToWide().c_str()));
    }

    TemporaryFolder folder{FolderOfBrowsers()};
};

TEST_F(FolderBrowserView, BeginsInTheInitialFolderAndGivesItBack) {
    WatchedBrowser browser(Views(), Path("b"));
    DialogDriver driver(L"", [&](HWND window) {
        EXPECT_TRUE(Eventually([&] { return browser.IsCurrent(Path("b")); }));
        EXPECT_TRUE(HasText(window, L"当前选择："));
        EXPECT_TRUE(
            Eventually([&] { return HasText(window, QsUi::ShortenedForStatus(Path("b")).ToWide()); }));
        PressButton(window, IDOK);
        EXPECT_TRUE(WaitForEnd(window));
    });
    EXPECT_EQ(browser.DoModal(), 1);
    driver.Join();
    EXPECT_EQ(browser.GetSelectedPath(), Path("b"));
    EXPECT_EQ(browser.Messages().front(), 1);
}

TEST_F(FolderBrowserView, TellsOfEachNewFolderInItsStatusLine) {
    WatchedBrowser browser(Views(), Path("b"));
    const CString inner = FromNativePath(folder.File("一") / "二");
    DialogDriver driver(L"", [&](HWND window) {
        for (const CString& path : {Path("一"), inner, Path("b"), inner}) {
            EXPECT_TRUE(Eventually([&] {  // it may not have been filled yet
                Select(window, path);
                return browser.IsCurrent(path);
            }));
            EXPECT_TRUE(Eventually([&] { return HasText(window, QsUi::ShortenedForStatus(path).ToWide()); }));
        }
        PressButton(window, IDOK);
        EXPECT_TRUE(WaitForEnd(window));
    });
    EXPECT_EQ(browser.DoModal(), 1);
    driver.Join();
    EXPECT_EQ(browser.GetSelectedPath(), inner);
}

TEST_F(FolderBrowserView, CancellingGivesNothing) {
    CFolderDialog browser(Views(), Path("b"));
    DialogDriver driver(L"", [&](HWND window) {
        Select(window, Path("一"));
        PressButton(window, IDCANCEL);
        EXPECT_TRUE(WaitForEnd(window));
    });
    EXPECT_EQ(browser.DoModal(), 2);
    driver.Join();
    EXPECT_EQ(browser.GetSelectedPath(), Path("b"));
}

TEST_F(FolderBrowserView, CancellingForgetsWhatWasSelected) {
    WatchedBrowser browser(Views(), Path("b"));
    DialogDriver driver(L"", [&](HWND window) {
        EXPECT_TRUE(Eventually([&] {
            Select(window, Path("一"));
            return browser.IsCurrent(Path("一"));
        }));
        PressKey(window, VK_ESCAPE);
        EXPECT_TRUE(WaitForEnd(window));
    });
    EXPECT_EQ(browser.DoModal(), 2);
    driver.Join();
    EXPECT_EQ(browser.GetSelectedPath(), Path("b"));
}

TEST_F(FolderBrowserView, AChoiceWithoutAPathIsNone) {
    WatchedBrowser browser(Views(), Path("b"));
    DialogDriver driver(L"", [&](HWND window) {
        EXPECT_TRUE(Eventually([&] { return browser.IsCurrent(Path("b")); }));
        LPITEMIDLIST computer = nullptr;
        ASSERT_EQ(::SHGetSpecialFolderLocation(nullptr, CSIDL_DRIVES, &computer), S_OK);
        EXPECT_TRUE(Eventually([&] {
            ::SendMessageW(window, BFFM_SETSELECTIONW, FALSE, reinterpret_cast<LPARAM>(computer));
            return browser.IsCurrent(u"");
        }));
        ::CoTaskMemFree(computer);
        EXPECT_TRUE(Eventually([&] { return HasText(window, L""); }));
        EXPECT_FALSE(HasText(window, QsUi::ShortenedForStatus(Path("b")).ToWide()));
        // Pressed as if it could be: the system's button can't, which is its way to say the same.
        ::SendMessageW(window, BFFM_ENABLEOK, 0, TRUE);
        PressButton(window, IDOK);
        EXPECT_TRUE(WaitForEnd(window));
    });
    EXPECT_EQ(browser.DoModal(), 2);
    driver.Join();
    EXPECT_EQ(browser.GetSelectedPath(), u"");
}

TEST_F(FolderBrowserView, AHostThatQuitsCancelsItAndStillQuits) {
    const DWORD thread = ::GetCurrentThreadId();
    WatchedBrowser browser(Views(), Path("b"));
    DialogDriver driver(L"", [&](HWND window) {
        EXPECT_TRUE(Eventually([&] { return browser.IsCurrent(Path("b")); }));
        ::PostThreadMessageW(thread, WM_QUIT, 7, 0);
        EXPECT_TRUE(WaitForEnd(window));
    });
    EXPECT_EQ(browser.DoModal(), 2);
    driver.Join();
    MSG message{};
    EXPECT_TRUE(::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 7u);
}

TEST_F(FolderBrowserView, ThePathsOfTheLongestLengthFit) {
    for (const std::size_t length : {std::size_t{200}, std::size_t{259}}) {
        std::wstring path = L"C:\\" + std::wstring(100, L'x') + L"\\";
        path += std::wstring(length - path.size(), L'y');
        LPITEMIDLIST const list = ::SHSimpleIDListFromPath(path.c_str());
        char16_t buffer[QsUi::FolderBrowser::PathBuffer] = u"stale";
        EXPECT_TRUE(Views()->GetPath(list, buffer));
        EXPECT_EQ(CString(buffer), CString(path)) << length;
        Views()->Free(list);
    }
}

TEST_F(FolderBrowserView, AnInitialFolderThatIsntThereDoesNoHarm) {
    for (const CString& path : {CString(), Path("missing"), CString(u"no path at all")}) {
        CFolderDialog browser(Views(), path);
        DialogDriver driver(L"", [&](HWND window) {
            PressButton(window, IDCANCEL);
            EXPECT_TRUE(WaitForEnd(window));
        });
        EXPECT_EQ(browser.DoModal(), 2);
    }
}

TEST_F(FolderBrowserView, WorksInAnyApartmentOfTheHost) {
    for (const DWORD form : {COINIT_APARTMENTTHREADED, COINIT_MULTITHREADED}) {
        ASSERT_EQ(::CoInitializeEx(nullptr, form), S_OK);
        WatchedBrowser browser(Views(), Path("b"));
        DialogDriver driver(L"", [&](HWND window) {
            EXPECT_TRUE(Eventually([&] { return browser.IsCurrent(Path("b")); }));
            PressButton(window, IDOK);
            EXPECT_TRUE(WaitForEnd(window));
        });
        EXPECT_EQ(browser.DoModal(), 1);
        driver.Join();
        EXPECT_EQ(browser.GetSelectedPath(), Path("b"));
        EXPECT_EQ(::CoInitializeEx(nullptr, form), S_FALSE);  // still as the host has it
        ::CoUninitialize();
        ::CoUninitialize();
    }
}

TEST_F(FolderBrowserView, AThreadIsLeftWithoutComAsItCame) {
    CFolderDialog browser(Views());
    DialogDriver driver(L"", [](HWND window) { PressButton(window, IDCANCEL); });
    EXPECT_EQ(browser.DoModal(), 2);
    EXPECT_EQ(::CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
    ::CoUninitialize();
}

TEST_F(FolderBrowserView, WhatHasNoPathGivesTheEmptyText) {
    LPITEMIDLIST list = nullptr;
    ASSERT_EQ(::SHGetSpecialFolderLocation(nullptr, CSIDL_DRIVES, &list), S_OK);
    char16_t buffer[QsUi::FolderBrowser::PathBuffer] = u"stale";
    EXPECT_FALSE(Views()->GetPath(list, buffer));
    EXPECT_EQ(buffer[0], u'\0');
    Views()->Free(list);
    buffer[0] = u's';
    EXPECT_FALSE(Views()->GetPath(nullptr, buffer));
    EXPECT_EQ(buffer[0], u'\0');
    Views()->Free(nullptr);
}

}  // namespace
