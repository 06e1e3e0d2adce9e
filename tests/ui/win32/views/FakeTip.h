// A tip that tells what its window asks of it.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

#include "QsUtils/ui/Toolkit.h"
#include "QsUtils/ui/Views.h"

struct FakeTip final : QsUi::ITipDialog {
    void OnTimer() override {
        ++timers;
        if (onTimer)
            onTimer();
    }
    void OnPaint(QsUi::ITipPainter& painter) override {
        ++paintings;
        if (onPaint)
            onPaint(painter);
    }

    std::unique_ptr<QsUi::ITipWindow> NewWindow(const QsUi::TipFont& font = {100, u"宋体"}) {
        return std::unique_ptr<QsUi::ITipWindow>(QsUi::OpenViews().views->CreateTipWindow(*this, font));
    }

    std::atomic<int> timers{0};
    std::atomic<int> paintings{0};
    std::function<void()> onTimer;
    std::function<void(QsUi::ITipPainter&)> onPaint;
};

/// The popups of this thread without a title that aren't children of anything; the tip's windows are such.
inline std::optional<HWND> TipOfThread() {
    HWND found = nullptr;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND window, LPARAM result) -> BOOL {
            wchar_t name[16] = {};
            ::GetClassNameW(window, name, 16);
            if (std::wcscmp(name, L"#32770") == 0)
                *reinterpret_cast<HWND*>(result) = window;
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found == nullptr ? std::nullopt : std::optional(found);
}

/// Handles messages of this thread until a condition holds; false when it doesn't for long.
inline bool PumpUntil(const std::function<bool()>& holds) {
    const DWORD begin = ::GetTickCount();
    while (!holds()) {
        if (::GetTickCount() - begin > 30'000)
            return false;
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        for (MSG message; ::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);)
            ::DispatchMessageW(&message);
    }
    return true;
}
