#include "QsUtils/ui/qt/module/TipWindow.h"

#include <QApplication>
#include <QPainter>
#include <algorithm>
#include <climits>
#include <utility>

#include "QsUtils/ui/qt/module/Buttons.h"
#include "QsUtils/ui/qt/module/TipText.h"
#include "QsUtils/ui/qt/module/UiThread.h"

namespace QsQt {

namespace {

/// Before any text is set, in dialog units.
constexpr int FirstWidth = 186;
constexpr int FirstHeight = 28;

class TipPainter : public QsUi::ITipPainter {
public:
    explicit TipPainter(QWidget& widget) : m_widget(widget), m_painter(&widget) {}

    CRect ClientRect() const override { return CRect(0, 0, m_widget.width(), m_widget.height()); }

    void FillFramed(const CRect& rect, QsUi::Colour fill) override {
        const QRect area(rect.left, rect.top, rect.Width(), rect.Height());
        m_painter.fillRect(area, Qt::black);
        m_painter.fillRect(area.adjusted(1, 1, -1, -1), ColourOf(fill));
    }

    void PutText(int x, int y, QsUi::Colour colour, std::u16string_view text) override {
        m_painter.setPen(ColourOf(colour));
        m_painter.drawText(x, y + m_painter.fontMetrics().ascent(), PaintedLine(text));
    }

private:
    static QColor ColourOf(QsUi::Colour colour) {
        return QColor(static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
                      static_cast<int>(colour >> 16 & 0xFF));
    }

    QWidget& m_widget;
    QPainter m_painter;
};

/// When an application ends, its windows go before it.
void RemoveTips() {
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        if (dynamic_cast<TipWidget*>(widget) != nullptr)
            delete widget;
    }
}

void RemoveTipsWithApplication() {
    constexpr const char* isDone = "QsUtilsQt";
    QCoreApplication& application = *QCoreApplication::instance();
    if (application.property(isDone).isValid())
        return;
    qAddPostRoutine(RemoveTips);
    application.setProperty(isDone, true);
}

}  // namespace

TipWidget::TipWidget(std::shared_ptr<TipLink> link, const QFont& font)
    : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus),
      m_link(std::move(link)) {
    setObjectName(QStringLiteral("texttip"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_QuitOnClose, false);
    setFocusPolicy(Qt::NoFocus);
    setFont(font);
    resize(FromDialogUnits(FirstWidth, FirstHeight));
    connect(&m_timer, &QTimer::timeout, this, [this] {
        const std::lock_guard lock(m_link->mutex);
        if (m_link->dialog != nullptr)
            m_link->dialog->OnTimer();
    });
    m_link->widget = this;
}

TipWidget::~TipWidget() {
    const std::lock_guard lock(m_link->mutex);
    m_link->widget = nullptr;
}

void TipWidget::paintEvent(QPaintEvent*) {
    const std::lock_guard lock(m_link->mutex);
    if (m_link->dialog == nullptr)
        return;
    TipPainter painter(*this);
    m_link->dialog->OnPaint(painter);
}

TipWindow::TipWindow(QsUi::ITipDialog& dialog, const QsUi::TipFont& font)
    : m_link(std::make_shared<TipLink>()), m_font(font) {
    m_link->dialog = &dialog;
    UiThread::Run([this] { MakeWidget(); });
}

TipWindow::~TipWindow() {
    const std::lock_guard lock(m_link->mutex);
    m_link->dialog = nullptr;
    if (m_link->widget != nullptr && UiThread::IsAlive())
        m_link->widget->deleteLater();
}

void TipWindow::MakeWidget() {
    if (Widget() != nullptr || QCoreApplication::closingDown())
        return;
    new TipWidget(m_link, TipFontFor(m_font));  // held by the link
    RemoveTipsWithApplication();
}

bool TipWindow::Run(const std::function<void()>& work) {
    if (!UiThread::IsAlive())
        return false;
    UiThread::Run([&] {
        MakeWidget();
        if (Widget() != nullptr)
            work();
    });
    return true;
}

int TipWindow::Measure(std::u16string_view text, CRect& rect) {
    const QFontMetrics metrics = Widget()->fontMetrics();
    const QStringList lines = MeasuredLines(text);
    int width = 0;
    for (const QString& line : lines)
        width = std::max(width, metrics.horizontalAdvance(line));
    const int height = metrics.height() * static_cast<int>(lines.size());
    rect.right = rect.left + width;
    rect.bottom = rect.top + height;
    return height;
}

CRect TipWindow::WindowRect() const {
    const QRect area = Widget()->geometry();
    return CRect(area.left(), area.top(), area.left() + area.width(), area.top() + area.height());
}

CRect TipWindow::ClientRect() const {
    return CRect(0, 0, Widget()->width(), Widget()->height());
}

void TipWindow::Place(int left, int top, int width, int height) {
    // Qt adds the one to the other.
    const auto within = [](int number) { return std::clamp(number, -QWIDGETSIZE_MAX, QWIDGETSIZE_MAX); };
    Widget()->setGeometry(within(left), within(top), within(width), within(height));
}

bool TipWindow::IsVisible() const {
    return Widget()->isVisible();
}

void TipWindow::ShowInactive() {
    Widget()->show();
}

void TipWindow::Hide() {
    Widget()->hide();
}

void TipWindow::Repaint() {
    Widget()->repaint();
}

void TipWindow::StartTimer(unsigned int milliseconds) {
    Widget()->Timer().start(static_cast<int>(std::min(milliseconds, static_cast<unsigned int>(INT_MAX))));
}

void TipWindow::StopTimer() {
    Widget()->Timer().stop();
}

}  // namespace QsQt
