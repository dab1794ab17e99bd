#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QRectF>
#include <QString>

class QPainter;

namespace tessivo {

/// Draws the symbol of this name (":/symbols/NAME.svg") into the rectangle, tinted, sharp at the painter's
/// device pixels. Its lines are as heavy as its size asks for, or `weight` on its grid of 24. An unknown name
/// draws nothing. Main thread.
void drawSymbol(QPainter& painter, const QRectF& rect, const QString& name, const QColor& color,
                double weight = 0);

/// The symbol as a square pixmap of `size` logical pixels.
QPixmap symbolPixmap(const QString& name, int size, const QColor& color, double devicePixelRatio);

/// The symbol as an icon in the theme's present text colour, for menus.
QIcon symbolIcon(const QString& name);

bool hasSymbol(const QString& name);

} // namespace tessivo
