#pragma once

#include "app/look/Theme.h"

#include <QColor>
#include <QFontMetrics>
#include <QPainter>
#include <QRectF>
#include <QStyle>
#include <QWidget>

#include <cmath>

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

/// A bar with round ends and its filled part, 0 to 1; a small part is as long as it is high, so that it is
/// round too.
inline void paintBar(QPainter& painter, const QRectF& bar, double part, const QColor& groove,
                     const QColor& fill, const QColor& border = {}) {
    paintRounded(painter, bar, bar.height() / 2, groove, border);
    if (part <= 0) return;
    QRectF filled = bar;
    filled.setWidth(std::max(bar.height(), bar.width() * std::min(part, 1.0)));
    paintRounded(painter, filled, bar.height() / 2, fill);
}

/// The surface of a control under the pointer, pressed or at rest; `accented` is the prominent kind.
inline QColor controlFill(bool accented, bool pressed, bool hovered, ColorRole resting = ColorRole::control) {
    if (pressed) return theme().color(accented ? ColorRole::accentFillPressed : ColorRole::controlPressed);
    if (hovered) return theme().color(accented ? ColorRole::accentFillHover : ColorRole::controlHover);
    return theme().color(accented ? ColorRole::accentFill : resting);
}

/// The hairline between two parts.
inline void paintHairline(QPainter& painter, const QRect& line) {
    painter.fillRect(line, theme().color(ColorRole::text1, theme().isDark() ? 12 : 10));
}

/// A card's surface and the line inside its edge. Where what changed lies within the edge, as a badge does,
/// only that much of the surface.
inline void paintCard(QPainter& painter, const QWidget& card, const QRect& changed, double corner,
                      const QColor& fill) {
    const int round = int(std::ceil(corner));
    if (card.rect().adjusted(round, 1, -round, -1).contains(changed)) {
        painter.fillRect(changed, fill);
        return;
    }
    paintRounded(painter, card.rect(), corner, fill);
    // In strips of whole pixels: the hundreds of spans of a tall line Qt would hand to other threads, and
    // waiting for them takes longer than drawing it.
    const double ratio = card.devicePixelRatioF();
    const int strip = std::fmod(16 * ratio, 1) == 0 ? 16 : changed.height();
    for (int top = changed.top(); top <= changed.bottom(); top += strip) {
        painter.save();
        painter.setClipRect(QRect(changed.left(), top, changed.width(), strip), Qt::IntersectClip);
        paintRounded(painter, card.rect(), corner, {}, theme().color(ColorRole::text1, 8),
                     ratio >= 2 ? 0.5 : 1);
        painter.restore();
    }
}

/// One line of text from `x` on, in the middle of `height`: placed by its baseline on a whole pixel, so that
/// it stands still between weights.
inline void paintLine(QPainter& painter, double x, double height, const QString& text) {
    const QFontMetricsF metrics(painter.font());
    painter.drawText(
        QPointF(x, std::round((height - metrics.ascent() - metrics.descent()) / 2 + metrics.ascent())), text);
}

/// A text beside a mark, from the top of `room`: on one line of this height, or wrapped where it doesn't fit.
inline void paintWords(QPainter& painter, const QRectF& room, double lineHeight, bool fits,
                       const QString& text) {
    if (fits) return paintLine(painter, room.left(), lineHeight, text);
    const QFontMetricsF metrics(painter.font());
    const double top = (lineHeight - metrics.ascent() - metrics.descent()) / 2;
    painter.drawText(room.adjusted(0, top, 0, 0), Qt::AlignLeading | Qt::AlignTop | Qt::TextWordWrap, text);
}

/// The height that wrapped words take with the room above and below them.
inline int wordsHeight(const QFont& font, int width, const QString& text) {
    return 4 + QFontMetrics(font)
                   .boundingRect(QRect(0, 0, width, 10000), Qt::AlignLeading | Qt::TextWordWrap, text)
                   .height();
}

/// A place within a widget, mirrored where it reads from right to left.
inline QRect mirrored(const QWidget& widget, const QRect& place) {
    return QStyle::visualRect(widget.layoutDirection(), widget.rect(), place);
}

/// A disabled control is drawn as a whole at 45 %.
inline double opacityOf(bool enabled) {
    return enabled ? 1 : 0.45;
}
inline double opacityOf(const QWidget& widget) {
    return opacityOf(widget.isEnabled());
}

} // namespace tessivo
