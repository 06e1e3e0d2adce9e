#include "QsUtils/ui/CShowTextDlg.h"

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

}  // namespace

void CShowTextDlg::EnsureTipWindow() {
    if (m_window != nullptr)
        return;
    if (QsUi::IViews* const views = m_views())
        m_window = views->CreateTipWindow(*this, m_fontText);
}

void CShowTextDlg::OnWindowThread(const std::function<void()>& work) {
    if (m_window != nullptr)
        m_window->Run(work);
    else
        work();
}

void CShowTextDlg::SetTextColor(QsUi::Colour color) {
    OnWindowThread([&] { m_crText = color; });
}

void CShowTextDlg::SetBackgroundColor(QsUi::Colour color) {
    OnWindowThread([&] { m_crBackground = color; });
}

void CShowTextDlg::SetShowText(const CString& text) {
    EnsureTipWindow();
    OnWindowThread([&] {
        m_strShowText = text;
        if (m_window != nullptr)
            MeasureText();
    });
}

void CShowTextDlg::MeasureText() {
    CRect rect = m_window->WindowRect();
    const int height = m_window->Measure(m_strShowText.View(), rect);
    m_rcText = rect;
    m_window->Place(static_cast<int>(rect.left), static_cast<int>(rect.top), rect.Width() + WidthBeside,
                    height + HeightBeside);
}

bool CShowTextDlg::IsTextLonger(const CRect& rect) {
    bool isLonger = false;
    OnWindowThread([&] { isLonger = m_rcText.Width() >= rect.Width() - Tolerance; });
    return isLonger;
}

void CShowTextDlg::SetWindowPosition(POINT point) {
    EnsureTipWindow();
    if (m_window == nullptr)
        return;
    m_window->Run([&] {
        const CRect client = m_window->ClientRect();
        m_window->Place(static_cast<int>(point.x), static_cast<int>(point.y) - client.Height() - Gap,
                        client.Width(), client.Height());
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
