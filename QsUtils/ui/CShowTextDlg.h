// The tip behind `texttip`: what its window shows, how large it is and when it is seen.
#pragma once

#include <cstdint>
#include <functional>

#include "QsUtils/platform/Geometry.h"
#include "QsUtils/text/CString.h"
#include "QsUtils/ui/Views.h"

/// The tip has no window until it is needed. From then on its fields belong to the window's thread, on which
/// every operation does its work. `texttip` documents the operations of like names.
class CShowTextDlg : public QsUi::ITipDialog {
public:
    /// Gives the views; null where there are none.
    using Views = QsUi::IViews* (*)();

    explicit CShowTextDlg(Views views) noexcept : m_views(views) {}
    CShowTextDlg(const CShowTextDlg&) = delete;
    CShowTextDlg& operator=(const CShowTextDlg&) = delete;
    virtual ~CShowTextDlg() { DestroyWindow(); }

    void SetTextColor(QsUi::Colour color);
    void SetBackgroundColor(QsUi::Colour color);
    void SetShowText(const CString& text);
    bool IsTextLonger(const CRect& rect);
    void SetWindowPosition(POINT point);
    void ShowWindowDelay(unsigned int milliseconds);
    void CloseWindowNow();

    bool HasWindow() const noexcept { return m_window != nullptr; }
    /// Nothing happens when there is no window.
    void DestroyWindow() {
        delete m_window;
        m_window = nullptr;
    }

    void OnTimer() override;
    void OnPaint(QsUi::ITipPainter& painter) override;

    CString m_strShowText;
    QsUi::TipFont m_fontText{100, u"宋体"};
    CRect m_rcText;
    QsUi::Colour m_crText = 0xFF0000;
    QsUi::Colour m_crBackground = 0xB9FFFF;

private:
    void EnsureTipWindow();
    /// Does work on the window's thread, and at once where there is no window or none any more.
    void Do(const std::function<void()>& work);
    void MeasureText();
    void ShowTip();

    Views m_views;
    QsUi::ITipWindow* m_window = nullptr;
};
