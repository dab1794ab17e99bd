#include "app/controls/SymbolView.h"
#include "app/look/Paint.h"
#include "app/look/Symbols.h"

namespace tessivo {

SymbolView::SymbolView(const QString& name, int size, ColorRole color, QWidget* parent)
    : QWidget(parent), m_name(name), m_size(size), m_color(color) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SymbolView::setSymbol(const QString& name, ColorRole color) {
    if (name == m_name && color == m_color) return;
    m_name = name;
    m_color = color;
    update();
}

void SymbolView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(opacityOf(*this));
    drawSymbol(painter, rect(), m_name, theme().color(m_color));
}

} // namespace tessivo
