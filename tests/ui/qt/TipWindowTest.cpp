// The tip's window under its real dialog.
#include <QApplication>
#include <QImage>
#include <QTest>
#include <QTimer>
#include <atomic>
#include <limits>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "QsUtils/ui/CShowTextDlg.h"
#include "QsUtils/ui/qt/module/QtViews.h"
#include "QsUtils/ui/qt/module/TipText.h"
#include "QsUtils/ui/qt/module/UiThread.h"

namespace {

QsQt::QtViews views;

QsUi::IViews* GiveViews() {
    return &views;
}

QWidget* TipWidget() {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->objectName() == QStringLiteral("texttip"))
            return window;
    }
    return nullptr;
}

bool IsShown() {
    return TipWidget() != nullptr && TipWidget()->isVisible();
}

class TipView : public testing::Test {
protected:
    void TearDown() override {
        dialog.DestroyWindow();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(TipWidget(), nullptr);
    }

    CShowTextDlg dialog{GiveViews};
};

TEST_F(TipView, ItIsShownAfterItsDelayAndClosed) {
    dialog.SetShowText(u"综合脚手架");
    dialog.SetWindowPosition({100, 200});
    dialog.ShowWindowDelay(30);
    EXPECT_FALSE(IsShown());
    EXPECT_TRUE(QTest::qWaitFor(IsShown));
    dialog.CloseWindowNow();
    EXPECT_FALSE(IsShown());
    QTest::qWait(60);
    EXPECT_FALSE(IsShown()) << "the timer is a one-shot";
}

TEST_F(TipView, ClosingForgetsTheDelay) {
    dialog.ShowWindowDelay(20);
    dialog.CloseWindowNow();
    QTest::qWait(60);
    EXPECT_FALSE(IsShown());
}

TEST_F(TipView, NoDelayShowsAtOnceWithoutTheFocus) {
    QWidget window;
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    dialog.SetShowText(u"x");
    dialog.ShowWindowDelay(0);
    EXPECT_TRUE(IsShown());
    QTest::qWait(20);
    EXPECT_TRUE(window.isActiveWindow());
    EXPECT_TRUE(TipWidget()->testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_TRUE(TipWidget()->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus));
}

TEST_F(TipView, ItIsSizedForItsTextAndPlacedAboveThePoint) {
    dialog.SetShowText(u"砖墙 240");
    const QFontMetrics metrics = TipWidget()->fontMetrics();
    EXPECT_EQ(dialog.m_rcText.Width(), metrics.horizontalAdvance(QStringLiteral("砖墙 240")));
    EXPECT_EQ(TipWidget()->width(), dialog.m_rcText.Width() + 8);
    EXPECT_EQ(TipWidget()->height(), metrics.height() + 4);
    dialog.SetWindowPosition({300, 250});
    EXPECT_EQ(TipWidget()->geometry(),
              QRect(300, 250 - metrics.height() - 4 - 2, dialog.m_rcText.Width() + 8, metrics.height() + 4));
    CRect longer(0, 0, dialog.m_rcText.Width() + 5, 20);
    CRect asLong(0, 0, dialog.m_rcText.Width() + 4, 20);
    EXPECT_FALSE(dialog.IsTextLonger(longer));
    EXPECT_TRUE(dialog.IsTextLonger(asLong));
}

TEST_F(TipView, AnEmptyTextHasTheHeightOfALine) {
    dialog.SetShowText(u"");
    EXPECT_EQ(TipWidget()->width(), 8);
    EXPECT_EQ(TipWidget()->height(), TipWidget()->fontMetrics().height() + 4);
}

TEST_F(TipView, ItIsPaintedWithItsColoursAndAFrame) {
    dialog.SetTextColor(0x0000FF);        // red
    dialog.SetBackgroundColor(0x00FF00);  // green
    dialog.SetShowText(u"■■■■");
    dialog.ShowWindowDelay(0);
    const QImage image = TipWidget()->grab().toImage();
    const int right = image.width() - 1;
    const int bottom = image.height() - 1;
    for (const QPoint& corner : {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom), QPoint(right, bottom)})
        EXPECT_EQ(image.pixelColor(corner), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(1, 1), QColor(0, 255, 0));
    EXPECT_EQ(image.pixelColor(right - 1, bottom - 1), QColor(0, 255, 0));
    bool hasRed = false;
    for (int x = 0; x < image.width(); ++x)
        hasRed = hasRed || image.pixelColor(x, image.height() / 2) == QColor(255, 0, 0);
    EXPECT_TRUE(hasRed);
    for (int y = 0; y < image.height(); ++y)
        EXPECT_NE(image.pixelColor(2, y), QColor(255, 0, 0)) << "the text begins 4 pixels from the left";
}

TEST_F(TipView, ASecondDelayReplacesTheFirst) {
    dialog.ShowWindowDelay(20);
    dialog.ShowWindowDelay(3'600'000);
    QTest::qWait(80);
    EXPECT_FALSE(IsShown());
    dialog.ShowWindowDelay(1);
    EXPECT_TRUE(QTest::qWaitFor(IsShown));
}

TEST_F(TipView, NoDelayCancelsTheOneThatIsRunning) {
    dialog.ShowWindowDelay(20);
    dialog.ShowWindowDelay(0);
    EXPECT_TRUE(IsShown());
    TipWidget()->hide();  // as nobody does, to see that nothing shows it again
    QTest::qWait(80);
    EXPECT_FALSE(IsShown());
}

TEST_F(TipView, TheLongestDelaysAreDelays) {
    for (const unsigned int delay : {0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        dialog.ShowWindowDelay(delay);
        QTest::qWait(30);
        EXPECT_FALSE(IsShown()) << delay;
    }
}

TEST_F(TipView, AQuestionAndAClosingMakeNoWindow) {
    dialog.CloseWindowNow();
    dialog.SetTextColor(1);
    EXPECT_FALSE(dialog.IsTextLonger(CRect(0, 0, 5, 5)));
    EXPECT_TRUE(dialog.IsTextLonger(CRect(0, 0, 4, 5)));
    EXPECT_EQ(TipWidget(), nullptr);
}

TEST_F(TipView, PlacesAtTheEndOfAllNumbersDoNoHarm) {
    using Side = std::numeric_limits<CRect::Side>;
    dialog.SetShowText(u"x");
    const QSize size = TipWidget()->size();
    dialog.ShowWindowDelay(0);
    for (const CRect::Side each : {Side::max(), Side::min()}) {
        dialog.SetWindowPosition({each, each});
        EXPECT_EQ(TipWidget()->size(), size);
        EXPECT_EQ(TipWidget()->x() > 0, each > 0);
    }
    dialog.SetWindowPosition({10, 100});
    EXPECT_EQ(TipWidget()->pos(), QPoint(10, 100 - size.height() - 2));
}

TEST_F(TipView, TextsOfAnyUnitsAreMeasuredAndPainted) {
    const std::u16string texts[] = {std::u16string(u"a\0b", 3),
                                    std::u16string(1, char16_t{0xD842}),
                                    std::u16string(1, char16_t{0xDFB7}) + u"x",
                                    u"\U00020BB7野家",
                                    std::u16string(3, u'\0'),
                                    std::u16string(1, char16_t{0xFFFF})};
    for (const std::u16string& text : texts) {
        dialog.SetShowText(CString(text));
        EXPECT_EQ(TipWidget()->height(), TipWidget()->fontMetrics().height() + 4);
        EXPECT_EQ(TipWidget()->width(), dialog.m_rcText.Width() + 8);
        dialog.ShowWindowDelay(0);
        EXPECT_FALSE(TipWidget()->grab().isNull());
    }
    dialog.SetShowText(CString(texts[0]));
    const int withNul = dialog.m_rcText.Width();
    dialog.SetShowText(u"a");
    EXPECT_GT(withNul, dialog.m_rcText.Width()) << "a NUL ends no text";
}

TEST_F(TipView, AVeryLongTextIsMeasuredAndShown) {
    dialog.SetShowText(u"砖");
    const int one = dialog.m_rcText.Width();
    dialog.SetShowText(CString(u'砖', 100'000));
    EXPECT_EQ(dialog.m_rcText.Width(), 100'000 * one);
    EXPECT_TRUE(dialog.IsTextLonger(CRect(0, 0, 1'000'000, 20)));
    dialog.SetWindowPosition({10, 100});
    dialog.ShowWindowDelay(0);
    EXPECT_TRUE(IsShown());
    QTest::qWait(20);
    dialog.SetShowText(u"砖");
    EXPECT_EQ(TipWidget()->width(), one + 8);
}

TEST_F(TipView, OtherThreadsMayUseIt) {
    std::atomic<bool> isDone{false};
    std::thread worker([&] {
        dialog.SetShowText(u"from elsewhere");
        dialog.SetWindowPosition({10, 100});
        dialog.ShowWindowDelay(5);
        isDone = true;
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return isDone && IsShown(); }));
    worker.join();
    std::thread([&] { dialog.DestroyWindow(); }).join();  // while nobody attends to events
}

TEST(TipText, LinesAndMnemonicsAreMeasuredAsTheSystemDrawsThem) {
    const auto lines = [](const char16_t* text) {
        std::string joined;
        for (const QString& line : QsQt::MeasuredLines(text))
            joined += "[" + line.toStdString() + "]";
        return joined;
    };
    EXPECT_EQ(lines(u""), "[]");
    EXPECT_EQ(lines(u"abc"), "[abc]");
    EXPECT_EQ(lines(u"a\nb\r\nc\rd"), "[a][b][c][d]");
    EXPECT_EQ(lines(u"a\n"), "[a]") << "a last end opens no line";
    EXPECT_EQ(lines(u"\n\nb"), "[][][b]");
    EXPECT_EQ(lines(u"A&B && C&"), "[AB & C]");
    EXPECT_EQ(lines(u"&\nx"), "[][x]");
    EXPECT_EQ(lines(u"a\tb"), "[a b]");
}

TEST(TipText, PaintingKnowsNoLinesAndNoMnemonics) {
    EXPECT_EQ(QsQt::PaintedLine(u"a&b\r\nc").toStdString(), "a&b  c");
}

TEST(TipText, TheFontIsChineseAndOfTenPoints) {
    const QFont font = QsQt::TipFontFor({100, u"no such face"});
    EXPECT_EQ(font.pointSizeF(), 10.0);
    EXPECT_FALSE(font.families().isEmpty());
    EXPECT_TRUE(QFontMetrics(font).inFont(QChar(u'砖')));
}

}  // namespace
