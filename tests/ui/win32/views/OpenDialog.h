// A modal dialog that a second thread drives while the thread of the test shows it.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <thread>

#include <windows.h>

/// Waits until a condition holds, for as long as a slow machine may take; whether it did.
bool Eventually(const std::function<bool()>& holds);

/// The visible window of this process with that title which belongs to `owner`, or to any window when that is
/// null. Without a title any dialog is meant that has one, for those whose title is the system's. Waits for
/// it; null when it doesn't come.
HWND WaitForWindow(const std::wstring& title, HWND owner = nullptr);

/// Waits until the window is gone; whether it is.
bool WaitForEnd(HWND window);

std::wstring TextOf(HWND window);
/// Where a test puts folders that a browser is to find. Wine's takes a folder for another one when its time
/// has changed since the tree was filled, and at a drive's root there is none on the way whose content others
/// change.
std::filesystem::path FolderOfBrowsers();
/// Keeps the time of the last visit of such a folder as it is. That one counts for Wine's browser, too, whose
/// own first visit of a new folder moves it, after which the folder isn't found any more. A time that is
/// still to come isn't moved.
void KeepTimeOfVisit(const std::filesystem::path& folder);

/// Whether a control of a dialog has that text.
bool HasText(HWND dialog, const std::wstring& text);
std::wstring ClassOf(HWND window);

/// A key, as the message loop of the focus' thread gets it.
void PressKey(HWND dialog, WPARAM key);
/// A letter, as a key gives it.
void TypeLetter(HWND dialog, wchar_t letter);
void Click(HWND control, POINT point);
void DoubleClick(HWND control, POINT point);
void PressButton(HWND dialog, int button);

/// The control of a dialog of this process that has the keyboard; null when none has.
HWND FocusOf(HWND dialog);

/// Waits for a dialog with that title, lets it be driven by a thread of its own, and closes it when that has
/// left it open. Made before the dialog is shown; a test looks at the driver's results behind `Join`.
class DialogDriver {
public:
    DialogDriver(std::wstring title, std::function<void(HWND)> drive);
    DialogDriver(const DialogDriver&) = delete;
    DialogDriver& operator=(const DialogDriver&) = delete;
    ~DialogDriver() { Join(); }

    void Join();

private:
    std::thread m_thread;
};
