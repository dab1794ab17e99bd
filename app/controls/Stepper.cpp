#include "app/controls/Stepper.h"

#include "app/controls/TextLabel.h"
#include "app/look/Metrics.h"
#include "app/look/Paint.h"
#include "app/look/Symbols.h"

#include <QHBoxLayout>
#include <QKeyEvent>

namespace tessivo {

/// One half of the control, which the whole paints as one box.
class Stepper::Half final : public ClickControl {
public:
    Half(const QString& name, const QString& symbol, QWidget* parent)
        : ClickControl(parent), m_symbol(symbol) {
        setAccessibleName(name);
        setFocusPolicy(Qt::NoFocus);
        setAutoRepeat(true);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }
    QSize sizeHint() const override { return {theme().scaled(33), theme().scaled(Height::control)}; }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setOpacity(opacityOf(*this));
        if (isEnabled() && (isDown() || isHovered()))
            paintRounded(painter, QRectF(rect()).adjusted(2, 2, -2, -2), Corner::checkbox,
                         theme().color(isDown() ? ColorRole::controlPressed : ColorRole::controlHover));
        const double side = theme().scaled(SymbolSize::button);
        drawSymbol(painter, QRectF((width() - side) / 2, (height() - side) / 2, side, side), m_symbol,
                   theme().color(ColorRole::text1));
    }

private:
    QString m_symbol;
};

Stepper::Stepper(const QString& format, int minimum, int maximum, int labelWidth, QWidget* parent)
    : QWidget(parent),
      m_format(format),
      m_minimum(minimum),
      m_maximum(maximum),
      m_label(new TextLabel),
      m_minus(new Half(QStringLiteral("Decrement"), QStringLiteral("minus"), this)),
      m_plus(new Half(QStringLiteral("Increment"), QStringLiteral("plus"), this)) {
    setFocusPolicy(Qt::TabFocus);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    m_label->setTabularDigits(true);
    m_label->setMinimumWidth(theme().scaled(labelWidth));
    row->addWidget(m_label);
    row->addWidget(m_minus);
    row->addWidget(m_plus);
    connect(m_minus, &QAbstractButton::clicked, this, [this] { step(-1); });
    connect(m_plus, &QAbstractButton::clicked, this, [this] { step(1); });
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setValue(minimum);
}

void Stepper::setValue(int value) {
    m_value = value;
    QString text = m_format;
    text.replace(QStringLiteral("%lld"), QString::number(value));
    if (text == m_label->text()) return;
    m_label->setText(text);
    m_minus->setEnabled(value > m_minimum);
    m_plus->setEnabled(value < m_maximum);
    announceNameChange(this);
    announceValueChange(this);
}

void Stepper::step(int by) {
    const int value = std::clamp(m_value + by, m_minimum, m_maximum);
    if (value == m_value) return;
    setValue(value);
    Q_EMIT stepped(value);
}

QString Stepper::spokenName() const {
    return m_label->text();
}

QStringList Stepper::spokenActions() const {
    return {QAccessibleActionInterface::increaseAction(), QAccessibleActionInterface::decreaseAction()};
}

void Stepper::actOn(const QString& action) {
    step(action == QAccessibleActionInterface::increaseAction() ? 1 : -1);
}

QRectF Stepper::focusShapeRect() const {
    return m_minus->geometry().united(m_plus->geometry());
}

void Stepper::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Right:
    case Qt::Key_Plus:
        step(1);
        break;
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Minus:
        step(-1);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void Stepper::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(opacityOf(*this));
    const QRectF box = focusShapeRect();
    paintRounded(painter, box, Corner::button, theme().color(ColorRole::control),
                 theme().color(ColorRole::controlBorder));
    painter.fillRect(QRectF(m_plus->x(), box.top() + 1, 1, box.height() - 2),
                     theme().color(ColorRole::controlBorder));
}

} // namespace tessivo
