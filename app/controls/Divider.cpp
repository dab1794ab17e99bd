#include "app/controls/Divider.h"
#include "app/look/Paint.h"

namespace tessivo {

Divider::Divider(int left, int right, QWidget* parent) : QWidget(parent), m_left(left), m_right(right) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMinimumHeight(1);
}

void Divider::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintHairline(painter, mirrored(*this, rect().adjusted(m_left, 0, -m_right, 0)));
}

} // namespace tessivo
