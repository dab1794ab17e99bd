#include "app/controls/Capsule.h"

#include "app/look/Paint.h"
#include "app/look/Symbols.h"

namespace tessivo {
namespace {

constexpr int padding = 10;

} // namespace

Capsule::Capsule(const Shape& shape, Look look, QWidget* parent)
    : QWidget(parent), m_shape(shape), m_look(std::move(look)) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Capsule::setLook(Look look) {
    const bool reworded = look.text != m_look.text;
    m_look = std::move(look);
    update();
    if (!reworded) return;
    updateGeometry();
    announceNameChange(this);
}

int Capsule::textLeft() const {
    return padding + (m_look.symbol.isEmpty() ? 0 : theme().scaled(m_shape.symbol) + m_shape.gap);
}

QSize Capsule::sizeHint() const {
    return {textLeft() + theme().textWidth(m_shape.type, m_look.text) + padding,
            theme().scaled(m_shape.height)};
}

void Capsule::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintRounded(painter, rect(), height() / 2.0, theme().color(m_look.fill, m_look.fillPercent));
    const double side = theme().scaled(m_shape.symbol);
    drawSymbol(painter, QRectF(padding, (height() - side) / 2, side, side), m_look.symbol,
               theme().color(m_look.symbolInk));
    painter.setFont(theme().font(m_shape.type));
    painter.setPen(theme().color(m_look.ink));
    paintLine(painter, textLeft(), height(), m_look.text);
}

} // namespace tessivo
