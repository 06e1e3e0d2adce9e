// The tip's window against the system's own answers.
#include <cwchar>
#include <memory>
#include <random>
#include <string>
#include <thread>

#include <windows.h>
#include <gtest/gtest.h>

#include "QsUtils/platform/Geometry.h"
#include "QsUtils/platform/win32/Windows.h"

#include "tests/ui/win32/views/FakeTip.h"
#include "tests/ui/win32/views/OpenDialog.h"
#include "tests/ui/win32/views/Pixels.h"

using QsUi::ITipWindow;

namespace {

/// The font as it is to be: ten points, counted as the framework's `CreatePointFont` does.
class PlainFont {
public:
    PlainFont() {
        const HDC screen = ::GetDC(nullptr);
        m_font = ::CreateFontW(-(::GetDeviceCaps(screen, LOGPIXELSY) * 100 / 720), 0, 0, 0, 0, 0, 0, 0,
                               DEFAULT_CHARSET, 0, 0, 0, 0, L"宋体");
        ::ReleaseDC(nullptr, screen);
    }
    PlainFont(const PlainFont&) = delete;
    PlainFont& operator=(const PlainFont&) = delete;
    ~PlainFont() { ::DeleteObject(m_font); }
    HFONT Get() const { return m_font; }

private:
    HFONT m_font;
};

int PlainMeasure(const std::u16string& text, CRect& rect) {
    const PlainFont font;
    const HDC dc = ::GetDC(nullptr);
    const HGDIOBJ before = ::SelectObject(dc, font.Get());
    const int height = ::DrawTextW(dc, QsPlatform::SystemUnits(text.c_str()), static_cast<int>(text.size()),
                                   &rect, DT_CALCRECT);
    ::SelectObject(dc, before);
    ::ReleaseDC(nullptr, dc);
    return height;
}

TEST(TipWindow, IsAHiddenPopupOfItsSizeAboveAllOthers) {
    FakeTip tip;
    const auto window = tip.NewWindow();
    ASSERT_NE(window, nullptr);
    EXPECT_FALSE(window->IsVisible());
    const HWND handle = TipOfThread().value();
    const auto style = static_cast<DWORD>(::GetWindowLongPtrW(handle, GWL_STYLE));
    const auto extended = static_cast<DWORD>(::GetWindowLongPtrW(handle, GWL_EXSTYLE));
    EXPECT_TRUE(style & WS_POPUP);
    EXPECT_FALSE(style & (WS_CAPTION | WS_THICKFRAME | WS_SYSMENU | WS_CHILD));
    EXPECT_EQ(extended & (WS_EX_NOACTIVATE | WS_EX_TOPMOST | WS_EX_TOOLWINDOW),
              static_cast<DWORD>(WS_EX_NOACTIVATE | WS_EX_TOPMOST | WS_EX_TOOLWINDOW));
    EXPECT_EQ(::GetWindow(handle, GW_OWNER), nullptr);
    EXPECT_EQ(::GetWindow(handle, GW_CHILD), nullptr);
    RECT units{0, 0, 186, 28};
    ::MapDialogRect(handle, &units);
    EXPECT_EQ(window->WindowRect().Width(), units.right);
    EXPECT_EQ(window->WindowRect().Height(), units.bottom);
    EXPECT_TRUE(window->ClientRect() == CRect(0, 0, units.right, units.bottom));
}

TEST(TipWindow, MeasuresAsDrawTextDoes) {
    FakeTip tip;
    const auto window = tip.NewWindow();
    const std::u16string_view pieces[] = {u"土", u"方", u"开挖", u"a",  u"W", u" ",  u"&",  u"&&",
                                          u"\n", u"\r", u"\r\n", u"\t", u"…", u"１", u"，", u"i"};
    std::mt19937 random(1);
    for (int round = 0; round < 3000; ++round) {
        std::u16string text;
        const std::size_t length = round < 40 ? static_cast<std::size_t>(round) : random() % 60;
        for (std::size_t i = 0; i < length; ++i)
            text += pieces[random() % std::size(pieces)];
        const int left = static_cast<int>(random() % 400) - 200;
        const int top = static_cast<int>(random() % 400) - 200;
        CRect rect(left, top, left + static_cast<int>(random() % 100), top + 5);
        CRect plain = rect;
        const int height = window->Measure(text, rect);
        EXPECT_EQ(height, PlainMeasure(text, plain));
        EXPECT_TRUE(rect == plain) << round;
        EXPECT_EQ(rect.left, left);
        EXPECT_EQ(rect.top, top);
    }
}

TEST(TipWindow, AnEmptyTextHasNoWidth) {
    FakeTip tip;
    const auto window = tip.NewWindow();
    CRect rect(10, 20, 300, 400);
    CRect plain = rect;
    EXPECT_EQ(window->Measure(u"", rect), PlainMeasure(u"", plain));
    EXPECT_TRUE(rect == plain);
    EXPECT_EQ(rect.Width(), 0);
    EXPECT_EQ(rect.left, 10);
}

TEST(TipWindow, PaintsTheFrameTheFillAndTheText) {
    constexpr QsUi::Colour fill = 0xB9FFFF;
    constexpr QsUi::Colour text = 0xFF0000;
    FakeTip tip;
    tip.onPaint = [](QsUi::ITipPainter& painter) {
        painter.FillFramed(painter.ClientRect(), fill);
        painter.PutText(4, 2, text, u"土方开挖 & Ag\ni");
    };
    const auto window = tip.NewWindow();
    window->Place(40, 50, 150, 24);
    window->ShowInactive();
    window->Repaint();
    Picture shown(150, 24);
    const HDC own = ::GetDC(TipOfThread().value());
    ::BitBlt(shown.Dc(), 0, 0, 150, 24, own, 0, 0, SRCCOPY);
    ::ReleaseDC(TipOfThread().value(), own);
    Picture printed(150, 24);
    ::PrintWindow(TipOfThread().value(), printed.Dc(), 0);

    Picture plain(150, 24);
    const PlainFont font;
    const HBRUSH brush = ::CreateSolidBrush(fill);
    ::SelectObject(plain.Dc(), brush);
    ::Rectangle(plain.Dc(), 0, 0, 150, 24);
    const HGDIOBJ before = ::SelectObject(plain.Dc(), font.Get());
    ::SetBkMode(plain.Dc(), TRANSPARENT);
    ::SetTextColor(plain.Dc(), text);
    ::TextOutW(plain.Dc(), 4, 2, L"土方开挖 & Ag\ni", 11);
    ::SelectObject(plain.Dc(), before);
    ::SelectObject(plain.Dc(), ::GetStockObject(WHITE_BRUSH));
    ::DeleteObject(brush);

    EXPECT_EQ(shown.Pixels(), plain.Pixels());
    EXPECT_EQ(printed.Pixels(), plain.Pixels());
    EXPECT_EQ(shown.Pixels()[0], 0u);           // the frame is black
    EXPECT_EQ(shown.Pixels()[151], 0xFFFFB9u);  // the fill a pale yellow
    std::size_t blue = 0;
    for (const std::uint32_t pixel : shown.Pixels())
        blue += pixel == 0x0000FF ? 1 : 0;
    EXPECT_GT(blue, 0u);  // and the text blue
}

TEST(TipWindow, ComesAndGoesWithoutTheFocus) {
    const HWND host = ::CreateWindowExW(0, L"EDIT", L"host", WS_POPUP | WS_VISIBLE, 10, 10, 300, 200, nullptr,
                                        nullptr, nullptr, nullptr);
    ::SetForegroundWindow(host);
    ::SetFocus(host);
    ASSERT_TRUE(PumpUntil([host] { return ::GetForegroundWindow() == host; }));
    FakeTip tip;
    const auto window = tip.NewWindow();
    const auto expectFocus = [host] {
        EXPECT_EQ(::GetFocus(), host);
        EXPECT_EQ(::GetActiveWindow(), host);
        EXPECT_EQ(::GetForegroundWindow(), host);
    };
    expectFocus();
    window->Place(20, 30, 100, 20);
    window->ShowInactive();
    EXPECT_TRUE(window->IsVisible());
    window->Repaint();
    expectFocus();
    EXPECT_TRUE(window->WindowRect() == CRect(20, 30, 120, 50));
    window->Place(60, 70, 90, 25);
    EXPECT_TRUE(window->WindowRect() == CRect(60, 70, 150, 95));
    expectFocus();
    Click(TipOfThread().value(), {5, 5});
    EXPECT_EQ(::SendMessageW(TipOfThread().value(), WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(host), 0),
              MA_NOACTIVATE);
    PumpUntil([] { return true; });
    expectFocus();
    window->Hide();
    EXPECT_FALSE(window->IsVisible());
    expectFocus();
    ::DestroyWindow(host);
}

TEST(TipWindow, IsPaintedBeforeRepaintReturnsIfItIsVisible) {
    FakeTip tip;
    const auto window = tip.NewWindow();
    window->Repaint();
    EXPECT_EQ(tip.paintings, 0);
    window->ShowInactive();
    window->Repaint();
    const int first = tip.paintings;
    EXPECT_GT(first, 0);
    window->Repaint();
    EXPECT_GT(tip.paintings, first);
}

TEST(TipWindow, TheTimerComesAgainUntilItIsStopped) {
    FakeTip tip;
    const auto window = tip.NewWindow();
    window->StartTimer(1);
    EXPECT_TRUE(PumpUntil([&] { return tip.timers >= 3; }));
    window->StopTimer();
    const int timers = tip.timers;
    EXPECT_TRUE(PumpUntil([] { return true; }));
    ::Sleep(50);
    EXPECT_TRUE(PumpUntil([] { return true; }));
    EXPECT_EQ(tip.timers, timers);
}

TEST(TipWindow, ASecondStartReplacesTheFirst) {
    FakeTip tip;
    const auto window = tip.NewWindow();
    window->StartTimer(1);
    window->StartTimer(3'600'000);
    ::Sleep(100);
    EXPECT_TRUE(PumpUntil([] { return true; }));
    EXPECT_EQ(tip.timers, 0);
    window->StartTimer(1);
    EXPECT_TRUE(PumpUntil([&] { return tip.timers >= 1; }));
}

TEST(TipWindow, OtherThreadsHaveTheirWorkDoneOnItsOwn) {
    FakeTip tip;
    const auto window = tip.NewWindow();
    const DWORD own = ::GetCurrentThreadId();
    DWORD first = 0;
    window->Run([&] { first = ::GetCurrentThreadId(); });
    EXPECT_EQ(first, own);
    constexpr int rounds = 200;
    int count = 0;  // touched by this thread alone
    std::atomic<int> strays{0};
    std::atomic<int> ended{0};
    const auto work = [&] {
        for (int i = 0; i < rounds; ++i) {
            bool isDone = false;
            window->Run([&] {
                strays += ::GetCurrentThreadId() == own ? 0 : 1;
                ++count;
                window->Run([&] { isDone = true; });
            });
            strays += isDone ? 0 : 1;
        }
        ++ended;
    };
    std::thread one(work);
    std::thread two(work);
    EXPECT_TRUE(PumpUntil([&] { return ended == 2; }));
    one.join();
    two.join();
    EXPECT_EQ(count, 2 * rounds);
    EXPECT_EQ(strays, 0);
}

TEST(TipWindow, MessagesOfStrangersDoNothing) {
    FakeTip tip;
    const auto window = tip.NewWindow();
    for (UINT message = WM_APP; message < WM_APP + 1; ++message)
        ::SendMessageW(TipOfThread().value(), message, 1, 2);
    EXPECT_EQ(tip.timers, 0);
    window->Run([&] { window->ShowInactive(); });
    EXPECT_TRUE(window->IsVisible());
}

TEST(TipWindow, AWindowThatWentWithItsThreadIsMadeAnew) {
    FakeTip tip;
    std::unique_ptr<ITipWindow> window;
    std::thread([&] { window = tip.NewWindow(); }).join();
    ASSERT_NE(window, nullptr);
    EXPECT_FALSE(TipOfThread().has_value());
    bool isDone = false;
    window->Run([&] {
        isDone = true;
        window->ShowInactive();
        EXPECT_TRUE(window->IsVisible());
    });
    EXPECT_TRUE(isDone);
    EXPECT_TRUE(TipOfThread().has_value());
}

TEST(TipWindow, AnotherThreadDestroysIt) {
    FakeTip tip;
    auto window = tip.NewWindow();
    const HWND handle = TipOfThread().value();
    std::atomic<bool> isOver{false};
    std::thread thread([&] {
        window.reset();
        isOver = true;
    });
    EXPECT_TRUE(PumpUntil([&] { return isOver.load(); }));
    thread.join();
    EXPECT_FALSE(::IsWindow(handle));
}

TEST(TipWindow, AThreadThatDoesntLookIsntWaitedForAndNothingReachesTheTip) {
    FakeTip tip;
    auto window = tip.NewWindow();
    const HWND handle = TipOfThread().value();
    window->ShowInactive();
    window->StartTimer(1);
    std::thread([&] { window.reset(); }).join();
    const int timers = tip.timers;
    const int paintings = tip.paintings;
    ::Sleep(50);
    EXPECT_TRUE(PumpUntil([] { return true; }));
    EXPECT_EQ(tip.timers, timers);
    EXPECT_EQ(tip.paintings, paintings);
    EXPECT_TRUE(PumpUntil([handle] { return !::IsWindowVisible(handle); }));
    ::DestroyWindow(handle);
}

TEST(TipWindow, NothingIsLeftOfMany) {
    FakeTip tip;
    const auto count = [] {
        return std::pair(::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS),
                         ::GetGuiResources(::GetCurrentProcess(), GR_USEROBJECTS));
    };
    const auto use = [&tip] {
        const auto window = tip.NewWindow();
        CRect rect;
        window->Measure(u"土方", rect);
        window->ShowInactive();
        window->Repaint();
    };
    tip.onPaint = [](QsUi::ITipPainter& painter) {
        painter.FillFramed(painter.ClientRect(), 0);
        painter.PutText(0, 0, 0, u"x");
    };
    use();
    const auto before = count();
    for (int i = 0; i < 100; ++i)
        use();
    EXPECT_EQ(count(), before);
    EXPECT_FALSE(TipOfThread().has_value());
}

}  // namespace
