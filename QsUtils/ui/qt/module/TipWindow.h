// The window of the tip.
#pragma once

#include <QFont>
#include <QTimer>
#include <QWidget>
#include <memory>
#include <mutex>

#include "QsUtils/ui/Views.h"

namespace QsQt {

class TipWidget;

/// Between the widget and its dialog, either of which may go first: the dialog on any thread, and the widget
/// on its own, then or when the application ends.
struct TipLink {
    std::recursive_mutex mutex;  // painting may happen within a timer's call
    QsUi::ITipDialog* dialog = nullptr;
    TipWidget* widget = nullptr;
};

class TipWidget : public QWidget {
public:
    TipWidget(std::shared_ptr<TipLink> link, const QFont& font);
    ~TipWidget() override;

    QTimer& Timer() { return m_timer; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::shared_ptr<TipLink> m_link;
    QTimer m_timer;
};

/// The widget goes with the application; another application gets another widget.
class TipWindow : public QsUi::ITipWindow {
public:
    TipWindow(QsUi::ITipDialog& dialog, const QsUi::TipFont& font);
    TipWindow(const TipWindow&) = delete;
    TipWindow& operator=(const TipWindow&) = delete;
    ~TipWindow() override;

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
    TipWidget* Widget() const { return m_link->widget; }
    void MakeWidget();

    std::shared_ptr<TipLink> m_link;
    QsUi::TipFont m_font;
};

}  // namespace QsQt
