// The tip's dialog behind a fake window.
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/ui/CShowTextDlg.h"

#include "tests/ui/FakeViews.h"

namespace {

using Calls = std::vector<std::string>;

FakeViews* theViews = nullptr;
int viewsAsked = 0;

QsUi::IViews* GiveViews() {
    ++viewsAsked;
    return theViews;
}

class Tip : public testing::Test {
protected:
    void SetUp() override {
        theViews = &views;
        viewsAsked = 0;
    }
    void TearDown() override { theViews = nullptr; }
    Calls Taken() { return std::exchange(views.tipCalls, {}); }

    FakeViews views;
    CShowTextDlg dialog{GiveViews};
};

class RecordingPainter final : public QsUi::ITipPainter {
public:
    CRect ClientRect() const override { return CRect(0, 0, 58, 24); }
    void FillFramed(const CRect& rect, QsUi::Colour fill) override {
        calls.push_back("fill " + std::to_string(rect.right) + "x" + std::to_string(rect.bottom) + " " +
                        std::to_string(fill));
    }
    void PutText(int x, int y, QsUi::Colour colour, std::u16string_view text) override {
        calls.push_back("text " + std::to_string(x) + "," + std::to_string(y) + " " + std::to_string(colour) +
                        " " + std::to_string(text.size()));
    }
    Calls calls;
};

TEST_F(Tip, ItBeginsEmptyAndWithoutAWindow) {
    EXPECT_EQ(dialog.m_strShowText, u"");
    EXPECT_EQ(dialog.m_fontText.size, 100);
    EXPECT_EQ(dialog.m_fontText.face, u"宋体");
    EXPECT_EQ(dialog.m_rcText, CRect());
    EXPECT_EQ(dialog.m_crText, 0xFF0000u);
    EXPECT_EQ(dialog.m_crBackground, 0xB9FFFFu);
    EXPECT_FALSE(dialog.HasWindow());
}

TEST_F(Tip, ClosingColoursAndQuestionsMakeNoWindow) {
    CRect rect(0, 0, 5, 10);
    dialog.CloseWindowNow();
    dialog.SetTextColor(0x010203);
    dialog.SetBackgroundColor(0x040506);
    EXPECT_FALSE(dialog.IsTextLonger(rect));
    EXPECT_EQ(viewsAsked, 0);
    EXPECT_EQ(dialog.m_crText, 0x010203u);
    EXPECT_EQ(dialog.m_crBackground, 0x040506u);
}

TEST_F(Tip, AnEarlyQuestionComparesNothingWithTheWidth) {
    EXPECT_TRUE(dialog.IsTextLonger(CRect(0, 0, 4, 0)));
    EXPECT_TRUE(dialog.IsTextLonger(CRect(10, 0, 5, 0)));
    EXPECT_FALSE(dialog.IsTextLonger(CRect(0, 0, 5, 0)));
}

TEST_F(Tip, ATextIsMeasuredFromTheWindowsPlaceAndSizesIt) {
    dialog.SetShowText(u"砖墙24");
    EXPECT_EQ(views.tipFont.size, 100);
    EXPECT_EQ(views.tipFont.face, u"宋体");
    EXPECT_EQ(dialog.m_rcText, CRect(100, 200, 140, 220));
    EXPECT_EQ(views.tip->window, CRect(100, 200, 148, 224)) << "8 wider and 4 higher";
    EXPECT_EQ(Taken(), Calls{"place"}) << "nothing is shown";
    EXPECT_TRUE(dialog.IsTextLonger(CRect(0, 0, 44, 0)));
    EXPECT_FALSE(dialog.IsTextLonger(CRect(0, 0, 45, 0)));
}

TEST_F(Tip, AnEmptyTextGivesAWindowOfWidthEight) {
    dialog.SetShowText(u"");
    EXPECT_EQ(views.tip->window.Width(), 8);
    EXPECT_EQ(views.tip->window.Height(), 24) << "the measured height counts, not that of the rectangle";
}

TEST_F(Tip, ItStandsTwoPixelsAboveThePoint) {
    dialog.SetShowText(u"abc");
    dialog.SetWindowPosition({500, 400});
    EXPECT_EQ(views.tip->window, CRect(500, 400 - 24 - 2, 538, 398));
    dialog.SetWindowPosition({-10, 5});
    EXPECT_EQ(views.tip->window, CRect(-10, -21, 28, 3));
    EXPECT_EQ(dialog.m_rcText.Width(), 30);
}

TEST_F(Tip, APositionAloneMakesTheWindowOfItsFirstSize) {
    dialog.SetWindowPosition({0, 100});
    EXPECT_EQ(views.tip->window, CRect(0, 100 - 46 - 2, 279, 98));
}

TEST_F(Tip, ADelayStartsATimerAndNothingMore) {
    dialog.ShowWindowDelay(300);
    EXPECT_EQ(Taken(), Calls{"start 300"});
    dialog.ShowWindowDelay(500);
    EXPECT_EQ(Taken(), Calls{"start 500"}) << "one timer, begun anew";
    dialog.OnTimer();
    EXPECT_EQ(Taken(), (Calls{"show", "repaint", "stop"})) << "once for each timer";
}

TEST_F(Tip, NoDelayShowsAtOnceAndCancelsATimer) {
    dialog.ShowWindowDelay(300);
    dialog.ShowWindowDelay(0);
    EXPECT_EQ(Taken(), (Calls{"start 300", "show", "repaint", "stop"}));
    dialog.ShowWindowDelay(0);
    EXPECT_EQ(Taken(), (Calls{"repaint", "stop"})) << "it is visible already";
}

TEST_F(Tip, ATimerOfAVisibleWindowPaintsItAgain) {
    dialog.ShowWindowDelay(0);
    dialog.ShowWindowDelay(20);
    Taken();
    dialog.OnTimer();
    EXPECT_EQ(Taken(), (Calls{"repaint", "stop"}));
}

TEST_F(Tip, ClosingStopsTheTimerAndHides) {
    dialog.ShowWindowDelay(300);
    dialog.CloseWindowNow();
    EXPECT_EQ(Taken(), (Calls{"start 300", "stop"})) << "it wasn't visible";
    dialog.ShowWindowDelay(0);
    Taken();
    dialog.CloseWindowNow();
    EXPECT_EQ(Taken(), (Calls{"stop", "hide"}));
    dialog.CloseWindowNow();
    EXPECT_EQ(Taken(), Calls{"stop"});
    EXPECT_EQ(views.tipsMade, 1) << "the window stays";
}

TEST_F(Tip, ColoursDontRepaint) {
    dialog.ShowWindowDelay(0);
    Taken();
    dialog.SetTextColor(0x0000FF);
    dialog.SetBackgroundColor(0xFFFFFF);
    EXPECT_EQ(Taken(), Calls{});
    RecordingPainter painter;
    dialog.OnPaint(painter);
    EXPECT_EQ(painter.calls, (Calls{"fill 58x24 16777215", "text 4,2 255 0"}));
}

TEST_F(Tip, ItPaintsAFramedAreaAndTheText) {
    dialog.SetShowText(u"一二三");
    RecordingPainter painter;
    dialog.OnPaint(painter);
    EXPECT_EQ(painter.calls, (Calls{"fill 58x24 12189695", "text 4,2 16711680 3"}));
}

TEST_F(Tip, TheWindowGoesOnceAndComesAgainWhenNeeded) {
    dialog.SetShowText(u"x");
    dialog.DestroyWindow();
    dialog.DestroyWindow();
    EXPECT_EQ(Taken(), (Calls{"place", "destroy"}));
    EXPECT_FALSE(dialog.HasWindow());
    dialog.CloseWindowNow();
    dialog.ShowWindowDelay(0);
    EXPECT_EQ(views.tipsMade, 2);
}

TEST_F(Tip, AColourCountsAtTheNextPaintingAlone) {
    dialog.SetShowText(u"x");
    RecordingPainter before;
    dialog.OnPaint(before);
    dialog.SetTextColor(0x123456);
    RecordingPainter after;
    dialog.OnPaint(after);
    EXPECT_EQ(before.calls.back(), "text 4,2 16711680 1");
    EXPECT_EQ(after.calls.back(), "text 4,2 " + std::to_string(0x123456) + " 1");
    EXPECT_EQ(after.calls.front(), before.calls.front()) << "the other colour stays";
}

TEST_F(Tip, TheLongestDelayIsADelay) {
    dialog.ShowWindowDelay(std::numeric_limits<unsigned int>::max());
    EXPECT_EQ(Taken(), Calls{"start 4294967295"});
}

TEST_F(Tip, PlacesAtTheEndOfAllNumbersAreTaken) {
    using Side = std::numeric_limits<CRect::Side>;
    dialog.SetShowText(u"abc");
    dialog.SetWindowPosition({Side::max(), Side::max()});
    EXPECT_EQ(views.tip->placed, (std::vector<int>{Side::max(), Side::max() - 26, 38, 24}));
    dialog.SetWindowPosition({Side::min(), Side::min()});
    EXPECT_EQ(views.tip->placed, (std::vector<int>{Side::min(), Side::min(), 38, 24}));
}

TEST_F(Tip, RectanglesOfAnySizeAreComparedByTheirWidth) {
    using Side = std::numeric_limits<CRect::Side>;
    dialog.SetShowText(u"abc");
    EXPECT_FALSE(dialog.IsTextLonger(CRect(0, 0, Side::max(), 0)));
    EXPECT_FALSE(dialog.IsTextLonger(CRect(Side::min(), 0, Side::max(), 0)));
    EXPECT_TRUE(dialog.IsTextLonger(CRect(Side::max(), 0, Side::min(), 0)));
    EXPECT_TRUE(dialog.IsTextLonger(CRect(0, 0, Side::min(), 0)));
    EXPECT_EQ(CRect(Side::min(), Side::max(), Side::max(), Side::min()).Width(), -1);
    EXPECT_EQ(CRect(Side::min(), Side::max(), Side::max(), Side::min()).Height(), 1);
}

TEST_F(Tip, WhatItIsToldWhenItsWindowIsGoneIsKept) {
    dialog.SetShowText(u"abc");
    views.tip->isAlive = false;
    Taken();
    dialog.SetTextColor(1);
    dialog.SetBackgroundColor(2);
    dialog.SetShowText(u"d");
    dialog.SetWindowPosition({1, 2});
    dialog.ShowWindowDelay(0);
    dialog.CloseWindowNow();
    EXPECT_EQ(Taken(), Calls{});
    EXPECT_TRUE(dialog.IsTextLonger(CRect(0, 0, 34, 0))) << "as last measured";
    EXPECT_FALSE(dialog.IsTextLonger(CRect(0, 0, 35, 0)));
    views.tip->isAlive = true;
    RecordingPainter painter;
    dialog.OnPaint(painter);
    EXPECT_EQ(painter.calls, (Calls{"fill 58x24 2", "text 4,2 1 1"}));
}

TEST_F(Tip, WithoutViewsOrWindowItKeepsTheTextAndDoesNothing) {
    theViews = nullptr;
    dialog.SetShowText(u"x");
    dialog.SetWindowPosition({1, 2});
    dialog.ShowWindowDelay(0);
    dialog.ShowWindowDelay(10);
    dialog.CloseWindowNow();
    EXPECT_EQ(dialog.m_strShowText, u"x");
    EXPECT_EQ(dialog.m_rcText, CRect());
    theViews = &views;
    views.hasTip = false;
    dialog.ShowWindowDelay(0);
    EXPECT_FALSE(dialog.HasWindow());
    EXPECT_EQ(views.tipsMade, 1);
}

}  // namespace
