#include "QsUtils/ui/CShowTextDlg.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace {

// How much larger than its text the window is, and where the text stands in it.
constexpr int WidthBeside = 8;
constexpr int HeightBeside = 4;
constexpr int TextLeft = 4;
constexpr int TextTop = 2;

/// Pixels between the window and the point above which it stands.
constexpr int Gap = 2;
/// Pixels of a place that a text doesn't fill for being as long as it.
constexpr int Tolerance = 4;

// A host may ask for any place and any rectangle.
std::int64_t Width(const CRect& rect) {
    return std::int64_t{rect.right} - rect.left;
}

int Fitting(std::int64_t number) {
    using Int = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<std::int64_t>(number, Int::min(), Int::max()));
}

}  // namespace

void CShowTextDlg::EnsureTipWindow() {
    if (m_window != nullptr)
        return;
    if (QsUi::IViews* const views = m_views())
        m_window = views->CreateTipWindow(*this, m_fontText);
}

void CShowTextDlg::Do(const std::function<void()>& work) {
    if (m_window == nullptr || !m_window->Run(work))
        work();
}

void CShowTextDlg::SetTextColor(QsUi::Colour color) {
    Do([&] { m_crText = color; });
}

void CShowTextDlg::SetBackgroundColor(QsUi::Colour color) {
    Do([&] { m_crBackground = color; });
}

void CShowTextDlg::SetShowText(const CString& text) {
    EnsureTipWindow();
    const auto measured = [&] {
        m_strShowText = text;
        MeasureText();
    };
    if (m_window == nullptr || !m_window->Run(measured))
        m_strShowText = text;
}

void CShowTextDlg::MeasureText() {
    CRect rect = m_window->WindowRect();
    const int height = m_window->Measure(m_strShowText.View(), rect);
    m_rcText = rect;
    m_window->Place(static_cast<int>(rect.left), static_cast<int>(rect.top),
                    Fitting(Width(rect) + WidthBeside), Fitting(std::int64_t{height} + HeightBeside));
}

bool CShowTextDlg::IsTextLonger(const CRect& rect) {
    bool isLonger = false;
    Do([&] { isLonger = Width(m_rcText) >= Width(rect) - Tolerance; });
    return isLonger;
}

void CShowTextDlg::SetWindowPosition(POINT point) {
    EnsureTipWindow();
    if (m_window == nullptr)
        return;
    m_window->Run([&] {
        const CRect client = m_window->ClientRect();
        const int top = Fitting(std::int64_t{point.y} - client.Height() - Gap);
        m_window->Place(static_cast<int>(point.x), top, client.Width(), client.Height());
    });
}

void CShowTextDlg::ShowWindowDelay(unsigned int milliseconds) {
    EnsureTipWindow();
    if (m_window == nullptr)
        return;
    m_window->Run([&] {
        if (milliseconds != 0)
            m_window->StartTimer(milliseconds);
        else
            ShowTip();
    });
}

void CShowTextDlg::CloseWindowNow() {
    if (m_window == nullptr)
        return;
    m_window->Run([&] {
        m_window->StopTimer();
        if (m_window->IsVisible())
            m_window->Hide();
    });
}

void CShowTextDlg::ShowTip() {
    if (!m_window->IsVisible())
        m_window->ShowInactive();
    m_window->Repaint();
    m_window->StopTimer();
}

void CShowTextDlg::OnTimer() {
    ShowTip();
}

void CShowTextDlg::OnPaint(QsUi::ITipPainter& painter) {
    painter.FillFramed(painter.ClientRect(), m_crBackground);
    painter.PutText(TextLeft, TextTop, m_crText, m_strShowText.View());
}
