#include "app/dialogs/Sheet.h"

#include "app/look/Paint.h"

#include <QApplication>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace tessivo {

namespace {

constexpr int windowInset = 40;
constexpr double scrimOpacity = 40; // percent

} // namespace

class Sheet::Card final : public QWidget {
public:
    explicit Card(QWidget* parent) : QWidget(parent), column(new QVBoxLayout(this)) {
        column->setContentsMargins(0, 0, 0, 0);
        column->setSpacing(0);
    }

    QVBoxLayout* column;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        paintRounded(painter, rect(), Corner::sheet, theme().color(ColorRole::card));
    }
};

Sheet::Sheet(QWidget* window)
    : QWidget(window), m_card(new Card(this)), m_focusBefore(QApplication::focusWidget()) {
    setFocusPolicy(Qt::StrongFocus);
    window->installEventFilter(this);
    place();
    raise();
}

void Sheet::add(QWidget* widget, int stretch) {
    m_card->column->addWidget(widget, stretch);
}

void Sheet::dismiss() {
    hide();
    if (m_focusBefore && m_focusBefore->window() == window()) m_focusBefore->setFocus();
    Q_EMIT dismissed();
}

void Sheet::place() {
    setGeometry(parentWidget()->rect());
    const QSize card(std::min(theme().scaled(Width::sheet), width() - windowInset),
                     std::min(theme().scaled(Height::sheet), height() - windowInset));
    m_card->setGeometry(QRect(QPoint((width() - card.width()) / 2, (height() - card.height()) / 2), card));
}

void Sheet::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    place();
    raise();
    setFocus();
}

bool Sheet::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parentWidget() && event->type() == QEvent::Resize) place();
    return QWidget::eventFilter(watched, event);
}

bool Sheet::focusNextPrevChild(bool next) {
    // Around within the sheet: what lies under the scrim can't be reached.
    QWidget* const start = isAncestorOf(QApplication::focusWidget()) ? QApplication::focusWidget() : this;
    for (QWidget* widget = start;;) {
        widget = next ? widget->nextInFocusChain() : widget->previousInFocusChain();
        if (widget == start) return true;
        if (isAncestorOf(widget) && widget->isVisible() && widget->isEnabled() &&
            (widget->focusPolicy() & Qt::TabFocus) && !widget->focusProxy()) {
            widget->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    }
}

void Sheet::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        dismiss();
    else
        event->accept();
}

void Sheet::mousePressEvent(QMouseEvent* event) {
    event->accept();
}

void Sheet::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), theme().color(ColorRole::scrim, scrimOpacity));
}

} // namespace tessivo
