#include "app/pages/display/ColorScreen.h"

#include "app/look/Theme.h"
#include "platform/Desktop.h"

#include <QCloseEvent>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QWidget>
#include <QWindow>

namespace tessivo {
namespace {

constexpr std::chrono::seconds hintTime(3);
constexpr double hintFontSize = 18;
constexpr double hintCorner = 12;
constexpr QMargins hintPadding(18, 12, 18, 12);

const QString hintText = QStringLiteral("Look closely for dots that stay lit or dark.\n"
                                        "Click or press Space for the next color, Esc to stop.");

QFont hintFont() {
    QFont font = theme().font(TextRole::body);
    font.setPixelSize(theme().scaled(hintFontSize));
    font.setWeight(QFont::Medium);
    return font;
}

} // namespace

/// The window over the screen: the colour, the hint, and what the person does.
class ColorScreen::Window final : public QWidget {
public:
    Window(ColorScreen& owner, QScreen& screen)
        : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
          m_owner(owner),
          m_pointer(QCursor::pos()) {
        setScreen(&screen);
        setGeometry(screen.geometry());
        setAttribute(Qt::WA_OpaquePaintEvent);
        setAttribute(Qt::WA_InputMethodEnabled, false);
        setFocusPolicy(Qt::StrongFocus);
        setMouseTracking(true);
        setCursor(Qt::BlankCursor);
        connect(&screen, &QScreen::geometryChanged, this, [this](const QRect& frame) { setGeometry(frame); });
    }

    void setColor(const std::string& name) {
        m_color = ColorRun::color(name);
        setWindowTitle(QString::fromStdString(name));
        update();
    }
    void hideHint() {
        m_hint = false;
        update();
    }
    /// From here on nothing that the window is still told concerns the run.
    void release() {
        m_released = true;
        hide();
        deleteLater();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), m_color);
        if (!m_hint) return;
        const QFont font = hintFont();
        const QSize text = QFontMetrics(font).size(0, hintText);
        const QRectF place = hintPlace(size(), QRect(QPoint(), text).marginsAdded(hintPadding).size());
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0, 0, 0, 153));
        painter.drawRoundedRect(place, hintCorner, hintCorner);
        painter.setFont(font);
        painter.setPen(Qt::white);
        painter.drawText(place, Qt::AlignCenter, hintText);
    }
    bool event(QEvent* event) override {
        // The keys are the run's unless another window of the program has them.
        if (!m_released && event->type() == QEvent::WindowActivate) m_owner.listen();
        if (!m_released && event->type() == QEvent::WindowDeactivate) m_owner.m_keys.stop();
        return QWidget::event(event);
    }
    void mousePressEvent(QMouseEvent* event) override {
        if (!m_released && event->button() == Qt::LeftButton) m_owner.advance(1);
    }
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void mouseMoveEvent(QMouseEvent* event) override {
        if (event->globalPosition().toPoint() != m_pointer) unsetCursor();
    }
    void closeEvent(QCloseEvent* event) override {
        event->accept();
        if (!m_released) m_owner.close();
    }

private:
    ColorScreen& m_owner;
    QPoint m_pointer;
    QColor m_color;
    bool m_hint = true;
    bool m_released = false;
};

ColorScreen::ColorScreen(KeyEvents& keys, Desktop& desktop, Scheduler& scheduler, QObject* parent)
    : QObject(parent), m_keys(keys), m_desktop(desktop), m_scheduler(scheduler) {
    connect(qApp, &QGuiApplication::screenRemoved, this, [this](QScreen* screen) {
        if (screen == m_screen) close();
    });
}

ColorScreen::~ColorScreen() {
    close();
}

void ColorScreen::show(QScreen& screen, OnShow onShow) {
    close();
    m_run = {};
    m_onShow = std::move(onShow);
    m_screen = &screen;
    m_window = new Window(*this, screen);
    m_window->winId(); // makes the window that the desktop knows
    m_desktop.coverScreen(*m_window->windowHandle(), screen);
    m_window->raise();
    m_window->activateWindow();
    m_window->setFocus();
    listen();
    showColor();
    m_hintTask = m_scheduler.after(hintTime, [this] {
        if (m_window) m_window->hideHint();
    });
}

void ColorScreen::close() {
    if (!m_window) return;
    m_keys.stop();
    m_window->release();
    m_window = nullptr;
    m_screen = nullptr;
    m_hintTask.reset();
    m_onShow = nullptr;
}

void ColorScreen::listen() {
    m_keys.start(
        [this](KeyMark mark, KeyCode code) {
            handle(mark, code);
            return true;
        },
        [] { return KeyboardLayout::ID::ansi; });
}

void ColorScreen::handle(KeyMark mark, KeyCode code) {
    constexpr KeyCode returnKey = 36, space = 49, escape = 53, left = 123, right = 124;
    // The colours are to be looked at; a held key must not run through them.
    if (mark != KeyMark::press) return;
    if (code == returnKey || code == space || code == right)
        advance(1);
    else if (code == left)
        advance(-1);
    else if (code == escape)
        close();
}

void ColorScreen::advance(int step) {
    if (!m_run.advance(step)) {
        close();
        return;
    }
    m_hintTask.reset();
    m_window->hideHint();
    showColor();
}

void ColorScreen::showColor() {
    m_window->setColor(m_run.name());
    // A copy: whoever is told may end the run.
    if (const auto onShow = m_onShow) onShow(m_run.name());
}

} // namespace tessivo
