#include "app/controls/LinkLabel.h"

#include "app/controls/Metrics.h"
#include "app/controls/Symbols.h"

#include <QPainter>

#include <cmath>

namespace tessivo {
namespace {

constexpr int gap = 6;
constexpr int wrapFlags = Qt::AlignLeading | Qt::AlignTop | Qt::TextWordWrap;

} // namespace

LinkLabel::LinkLabel(const QString& text, QWidget* parent) : ClickControl(parent) {
    setText(text);
    setCorner(Corner::trackpadCell);
    setCursor(Qt::PointingHandCursor);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

QSize LinkLabel::sizeHint() const {
    const QFontMetricsF metrics(theme().font(TextRole::control));
    return {int(std::ceil(metrics.horizontalAdvance(text()))) + gap + theme().scaled(SymbolSize::link),
            theme().lineHeight(TextRole::body)};
}

QSize LinkLabel::minimumSizeHint() const {
    return {std::min(sizeHint().width(), theme().scaled(120)), sizeHint().height()};
}

int LinkLabel::heightForWidth(int width) const {
    if (width >= sizeHint().width()) return sizeHint().height();
    const QFontMetrics metrics(theme().font(TextRole::control));
    const int room = std::max(1, width - gap - theme().scaled(SymbolSize::link));
    return std::max(sizeHint().height(),
                    4 + metrics.boundingRect(QRect(0, 0, room, 10000), wrapFlags, text()).height());
}

QRectF LinkLabel::focusShapeRect() const {
    return QRectF(0, 0, std::min(width(), sizeHint().width()), height());
}

void LinkLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(disabledOpacity());
    const QColor words = theme().color(ColorRole::accent);
    QFont font = theme().font(TextRole::control);
    font.setUnderline(isHovered() || isDown());
    painter.setFont(font);
    painter.setPen(words);
    const QFontMetricsF metrics(font);
    const double line = theme().lineHeight(TextRole::body);
    const double side = theme().scaled(SymbolSize::link);
    const double top = (line - metrics.ascent() - metrics.descent()) / 2;
    if (width() >= sizeHint().width()) {
        painter.drawText(QPointF(0, std::round(top + metrics.ascent())), text());
        drawSymbol(painter,
                   QRectF(std::ceil(metrics.horizontalAdvance(text())) + gap, (line - side) / 2, side, side),
                   QStringLiteral("arrow.up.right.square"), words);
        return;
    }
    const double room = width() - gap - side;
    painter.drawText(QRectF(0, top, room, height() - top), wrapFlags, text());
    drawSymbol(painter, QRectF(width() - side, (line - side) / 2, side, side),
               QStringLiteral("arrow.up.right.square"), words);
}

} // namespace tessivo
