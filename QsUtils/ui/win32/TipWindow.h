// The tip's window.
#pragma once

#include <atomic>

#include "QsUtils/platform/Mutex.h"
#include "QsUtils/platform/win32/Windows.h"
#include "QsUtils/ui/Views.h"

namespace QsUi {

/// A popup dialog of the thread that has made it, whose message loop it lives in. A window that went with its
/// thread is made anew by the next call of `Run`, for the thread of that call.
class TipWindow final : public ITipWindow {
public:
    TipWindow(ITipDialog& dialog, const TipFont& font);
    TipWindow(const TipWindow&) = delete;
    TipWindow& operator=(const TipWindow&) = delete;
    ~TipWindow() override;

    bool IsMade() const noexcept { return Window() != nullptr; }

    bool Run(const std::function<void()>& work) override;
    int Measure(std::u16string_view text, CRect& rect) override;
    CRect WindowRect() const override;
    CRect ClientRect() const override;
    void Place(int left, int top, int width, int height) override;
    bool IsVisible() const override;
    void ShowInactive() override;
    void Hide() override;
    void Repaint() override;
    void StartTimer(unsigned int milliseconds) override;
    void StopTimer() override;

private:
    static INT_PTR CALLBACK OnMessage(HWND window, UINT message, WPARAM wide, LPARAM narrow) noexcept;

    HWND Window() const noexcept { return m_window.load(std::memory_order_acquire); }
    /// The thread of the window; 0 when there is no window any more.
    DWORD Thread() const noexcept;
    void Make() noexcept;
    void Forsake(HWND window) noexcept;
    /// Whether the work was done.
    bool RunOnOtherThread(const std::function<void()>& work) noexcept;
    bool Handle(HWND window, UINT message, WPARAM wide);
    void Paint(HWND window);

    ITipDialog& m_dialog;
    HFONT m_font;
    std::atomic<HWND> m_window{nullptr};
    /// For one thread at a time that has work for the window's.
    QsPlatform::Mutex m_others;
    const std::function<void()>* m_work = nullptr;
};

}  // namespace QsUi
