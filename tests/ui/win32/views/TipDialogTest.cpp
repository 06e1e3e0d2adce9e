// The tip's dialog and its window together.
#include <limits>
#include <string>

#include <windows.h>
#include <gtest/gtest.h>

#include "QsUtils/ui/CShowTextDlg.h"
#include "QsUtils/ui/Toolkit.h"

#include "tests/ui/win32/views/FakeTip.h"
#include "tests/ui/win32/views/Pixels.h"

namespace {

QsUi::IViews* GiveViews() {
    return QsUi::OpenViews().views;
}

/// Lets so many milliseconds go by with the messages of this thread attended to.
void Wait(DWORD milliseconds) {
    const DWORD begin = ::GetTickCount();
    PumpUntil([=] { return ::GetTickCount() - begin >= milliseconds; });
}

class TipDialog : public testing::Test {
protected:
    static RECT Place() {
        RECT rect{};
        ::GetWindowRect(TipOfThread().value(), &rect);
        return rect;
    }
    static int Width() { return CRect(Place()).Width(); }
    static bool IsShown() { return ::IsWindowVisible(TipOfThread().value()) != 0; }
    static std::uint32_t FillOnScreen() {
        Picture shown(4, 4);
        const HDC dc = ::GetDC(TipOfThread().value());
        ::BitBlt(shown.Dc(), 0, 0, 4, 4, dc, 0, 0, SRCCOPY);
        ::ReleaseDC(TipOfThread().value(), dc);
        return shown.Pixels()[4 + 1];
    }

    CShowTextDlg dialog{GiveViews};
};

TEST_F(TipDialog, AQuestionAColourAndAClosingMakeNoWindow) {
    dialog.CloseWindowNow();
    dialog.SetTextColor(1);
    dialog.SetBackgroundColor(2);
    EXPECT_TRUE(dialog.IsTextLonger(CRect(0, 0, 4, 9)));
    EXPECT_FALSE(dialog.IsTextLonger(CRect(0, 0, 5, 9)));
    EXPECT_FALSE(TipOfThread().has_value());
}

TEST_F(TipDialog, ASecondDelayReplacesTheFirstAndNoneShowsAtOnce) {
    dialog.ShowWindowDelay(20);
    dialog.ShowWindowDelay(3'600'000);
    Wait(100);
    EXPECT_FALSE(IsShown());
    dialog.ShowWindowDelay(20);
    dialog.ShowWindowDelay(0);
    EXPECT_TRUE(IsShown());
    ::ShowWindow(TipOfThread().value(), SW_HIDE);  // as nobody does, to see that nothing shows it again
    Wait(100);
    EXPECT_FALSE(IsShown());
}

TEST_F(TipDialog, TheLongestDelaysAreDelays) {
    for (const unsigned int delay : {0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        dialog.ShowWindowDelay(delay);
        Wait(50);
        EXPECT_FALSE(IsShown()) << delay;
    }
}

TEST_F(TipDialog, ATimerShowsItOnce) {
    dialog.ShowWindowDelay(1);
    EXPECT_TRUE(PumpUntil([] { return IsShown(); }));
    ::ShowWindow(TipOfThread().value(), SW_HIDE);
    Wait(100);
    EXPECT_FALSE(IsShown());
}

TEST_F(TipDialog, AnyTimerShowsIt) {
    dialog.SetShowText(u"x");
    ::SendMessageW(TipOfThread().value(), WM_TIMER, 77, 0);
    EXPECT_TRUE(IsShown());
}

TEST_F(TipDialog, AColourCountsAtTheNextPainting) {
    dialog.SetBackgroundColor(0x0000FF);
    dialog.SetShowText(u"x");
    dialog.ShowWindowDelay(0);
    EXPECT_EQ(FillOnScreen(), 0xFF0000u);
    dialog.SetBackgroundColor(0x00FF00);
    Wait(20);
    EXPECT_EQ(FillOnScreen(), 0xFF0000u) << "nothing is painted anew";
    dialog.ShowWindowDelay(0);
    EXPECT_EQ(FillOnScreen(), 0x00FF00u);
}

TEST_F(TipDialog, PlacesAtTheEndOfAllNumbersDoNoHarm) {
    using Side = std::numeric_limits<CRect::Side>;
    dialog.SetShowText(u"x");
    const CRect before(Place());
    for (const CRect::Side each : {Side::max(), Side::min()})
        dialog.SetWindowPosition({each, each});
    dialog.SetWindowPosition({10, 100});
    EXPECT_TRUE(CRect(Place()) == CRect(10, 98 - before.Height(), 10 + before.Width(), 98));
}

TEST_F(TipDialog, TextsOfAnyUnitsAreMeasuredAndPainted) {
    const std::u16string texts[] = {std::u16string(u"a\0b", 3), std::u16string(1, char16_t{0xD842}),
                                    std::u16string(1, char16_t{0xDFB7}) + u"x", u"\U00020BB7野家"};
    for (const std::u16string& text : texts) {
        dialog.SetShowText(CString(text));
        EXPECT_EQ(Width(), dialog.m_rcText.Width() + 8);
        dialog.ShowWindowDelay(0);
        EXPECT_TRUE(IsShown());
    }
}

TEST_F(TipDialog, AVeryLongTextIsMeasuredAndShown) {
    dialog.SetShowText(CString(u'砖', 100));
    const int hundred = dialog.m_rcText.Width();
    dialog.SetShowText(CString(u'砖', 100'000));
    EXPECT_GT(dialog.m_rcText.Width(), hundred);  // Wine's call begins a new line after 1024 units
    EXPECT_TRUE(dialog.IsTextLonger(CRect(0, 0, 2 * hundred, 20)));
    dialog.SetWindowPosition({10, 100});
    dialog.ShowWindowDelay(0);
    EXPECT_TRUE(IsShown());
    dialog.SetShowText(CString(u'砖', 100));
    EXPECT_EQ(Width(), hundred + 8);
}

TEST_F(TipDialog, AnEmptyTextIsEightWideAndALineHigh) {
    dialog.SetShowText(u"x");
    const int height = CRect(Place()).Height();
    dialog.SetShowText(u"");
    EXPECT_EQ(Width(), 8);
    EXPECT_EQ(CRect(Place()).Height(), height);
}

}  // namespace
