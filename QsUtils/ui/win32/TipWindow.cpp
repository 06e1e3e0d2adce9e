#include "QsUtils/ui/win32/TipWindow.h"

#include <algorithm>
#include <exception>
#include <mutex>

#include "QsUtils/platform/win32/OwnModule.h"
#include "QsUtils/ui/win32/DialogIds.h"
#include "QsUtils/ui/win32/TipFont.h"
#include "QsUtils/ui/win32/TipPainter.h"

namespace QsUi {

namespace {

constexpr UINT_PTR Timer = 1;

// From other threads of the library to the window's.
constexpr UINT RunWork = WM_APP;
constexpr UINT DestroyYourself = WM_APP + 1;

/// For how long a thread that leaves waits for a window's thread that doesn't look at its messages.
constexpr UINT MostMilliseconds = 2000;

}  // namespace

TipWindow::TipWindow(ITipDialog& dialog, const TipFont& font) : m_dialog(dialog), m_font(NewFont(font)) {
    Make();
}

TipWindow::~TipWindow() {
    const HWND window = Window();
    if (const DWORD thread = Thread(); thread == ::GetCurrentThreadId()) {
        ::DestroyWindow(window);
    } else if (thread != 0) {
        DWORD_PTR ignored = 0;
        ::SendMessageTimeoutW(window, DestroyYourself, 0, 0, SMTO_ABORTIFHUNG, MostMilliseconds, &ignored);
        if (Thread() != 0)
            Forsake(window);
    }
    ::DeleteObject(m_font);
}

void TipWindow::Make() noexcept {
    m_window.store(nullptr, std::memory_order_release);
    m_window.store(::CreateDialogParamW(QsPlatform::OwnModule(), MAKEINTRESOURCEW(IDD_TEXT_TIP), nullptr,
                                        OnMessage, reinterpret_cast<LPARAM>(this)),
                   std::memory_order_release);
}

/// Leaves a window that can't be destroyed to its thread, as one of the system's own that knows nothing of
/// this module, which may be about to leave the process.
void TipWindow::Forsake(HWND window) noexcept {
    ::SetWindowLongPtrW(window, DWLP_DLGPROC, 0);
    ::SetWindowLongPtrW(window, DWLP_USER, 0);
    ::ShowWindowAsync(window, SW_HIDE);
}

DWORD TipWindow::Thread() const noexcept {
    const HWND window = Window();
    DWORD process = 0;
    const DWORD thread = window == nullptr ? 0 : ::GetWindowThreadProcessId(window, &process);
    // The handle of a window that is gone may be given to another one.
    return thread != 0 && process == ::GetCurrentProcessId() &&
                   ::GetWindowLongPtrW(window, DWLP_USER) == reinterpret_cast<LONG_PTR>(this)
               ? thread
               : 0;
}

// --- Work

bool TipWindow::Run(const std::function<void()>& work) {
    if (Thread() == ::GetCurrentThreadId() || !RunOnOtherThread(work))
        work();
    return true;
}

bool TipWindow::RunOnOtherThread(const std::function<void()>& work) noexcept {
    const std::lock_guard lock(m_others);
    if (Thread() != 0) {
        m_work = &work;
        ::SendMessageW(Window(), RunWork, 0, 0);
        if (m_work == nullptr)
            return true;
        m_work = nullptr;  // the window has just gone with its thread
    }
    Make();
    return false;
}

INT_PTR CALLBACK TipWindow::OnMessage(HWND window, UINT message, WPARAM wide, LPARAM narrow) noexcept try {
    if (message == WM_INITDIALOG) {
        ::SetWindowLongPtrW(window, DWLP_USER, narrow);
        return FALSE;  // there is nothing to give the focus to
    }
    auto* const self = reinterpret_cast<TipWindow*>(::GetWindowLongPtrW(window, DWLP_USER));
    return self != nullptr && self->Handle(window, message, wide) ? TRUE : FALSE;
} catch (const std::exception&) {  // memory exhaustion must not pass through the system's code
    return FALSE;
}

bool TipWindow::Handle(HWND window, UINT message, WPARAM wide) {
    switch (message) {
        case WM_TIMER:
            m_dialog.OnTimer();
            return true;
        case WM_PAINT:
            Paint(window);
            return true;
        case WM_PRINTCLIENT: {
            TipPainter painter(window, reinterpret_cast<HDC>(wide), m_font);
            m_dialog.OnPaint(painter);
            return true;
        }
        case WM_ERASEBKGND:  // all of it is painted, and would flicker
            ::SetWindowLongPtrW(window, DWLP_MSGRESULT, TRUE);
            return true;
        case WM_MOUSEACTIVATE:
            ::SetWindowLongPtrW(window, DWLP_MSGRESULT, MA_NOACTIVATE);
            return true;
        case RunWork:
            if (const auto* const work = m_work) {
                m_work = nullptr;
                (*work)();
            }
            return true;
        case DestroyYourself:
            ::DestroyWindow(window);
            return true;
        default:
            return false;
    }
}

void TipWindow::Paint(HWND window) {
    PAINTSTRUCT paint{};
    const HDC dc = ::BeginPaint(window, &paint);
    TipPainter painter(window, dc, m_font);
    m_dialog.OnPaint(painter);
    ::EndPaint(window, &paint);
}

// --- On the window's thread

int TipWindow::Measure(std::u16string_view text, CRect& rect) {
    const HDC dc = ::GetDC(Window());
    const HGDIOBJ before = ::SelectObject(dc, m_font);
    const int height =
        ::DrawTextW(dc, QsPlatform::SystemUnits(text.data()),
                    static_cast<int>(std::min(text.size(), QsPlatform::MostUnits)), &rect, DT_CALCRECT);
    ::SelectObject(dc, before);
    ::ReleaseDC(Window(), dc);
    return height;
}

CRect TipWindow::WindowRect() const {
    RECT rect{};
    ::GetWindowRect(Window(), &rect);
    return rect;
}

CRect TipWindow::ClientRect() const {
    RECT rect{};
    ::GetClientRect(Window(), &rect);
    return rect;
}

void TipWindow::Place(int left, int top, int width, int height) {
    ::SetWindowPos(Window(), nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

bool TipWindow::IsVisible() const {
    return ::IsWindowVisible(Window()) != 0;
}

void TipWindow::ShowInactive() {
    ::ShowWindow(Window(), SW_SHOWNA);
}

void TipWindow::Hide() {
    ::ShowWindow(Window(), SW_HIDE);
}

void TipWindow::Repaint() {
    ::InvalidateRect(Window(), nullptr, TRUE);
    ::UpdateWindow(Window());
}

void TipWindow::StartTimer(unsigned int milliseconds) {
    ::SetTimer(Window(), Timer, milliseconds, nullptr);
}

void TipWindow::StopTimer() {
    ::KillTimer(Window(), Timer);
}

}  // namespace QsUi
