#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>

namespace tessivo {

/// A filled rounded rectangle with an optional border inside its edge; an invalid colour draws none.
inline void paintRounded(QPainter& painter, const QRectF& rect, double corner, const QColor& fill,
                         const QColor& border = {}, double width = 1) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const double half = border.isValid() ? width / 2 : 0;
    const QRectF inner = rect.adjusted(half, half, -half, -half);
    painter.setBrush(fill.isValid() ? QBrush(fill) : QBrush(Qt::NoBrush));
    if (border.isValid()) painter.setPen(QPen(border, width));
    painter.drawRoundedRect(inner, corner - half, corner - half);
}

} // namespace tessivo
