#include "app/controls/LinkLabel.h"

#include "app/look/Metrics.h"
#include "app/look/Paint.h"
#include "app/look/Symbols.h"

namespace tessivo {
namespace {

constexpr int gap = 6;

} // namespace

LinkLabel::LinkLabel(const QString& text, QWidget* parent) : ClickControl(parent) {
    setText(text);
    setCorner(Corner::trackpadCell);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize LinkLabel::sizeHint() const {
    return {theme().textWidth(TextRole::control, text()) + gap + theme().scaled(SymbolSize::link),
            theme().lineHeight(TextRole::body)};
}

QSize LinkLabel::minimumSizeHint() const {
    return {std::min(sizeHint().width(), theme().scaled(120)), sizeHint().height()};
}

int LinkLabel::heightForWidth(int width) const {
    if (width >= sizeHint().width()) return sizeHint().height();
    const int room = std::max(1, width - gap - theme().scaled(SymbolSize::link));
    return std::max(sizeHint().height(), wordsHeight(theme().font(TextRole::control), room, text()));
}

QRectF LinkLabel::focusShapeRect() const {
    return QRectF(0, 0, std::min(width(), sizeHint().width()), height());
}

void LinkLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(opacityOf(*this));
    const QColor words = theme().color(ColorRole::accent);
    QFont font = theme().font(TextRole::control);
    font.setUnderline(isHovered() || isDown());
    painter.setFont(font);
    painter.setPen(words);
    const double line = theme().lineHeight(TextRole::body);
    const double side = theme().scaled(SymbolSize::link);
    const double room = std::min(width(), sizeHint().width()) - gap - side;
    paintWords(painter, {0, 0, room, double(height())}, line, width() >= sizeHint().width(), text());
    drawSymbol(painter, QRectF(room + gap, (line - side) / 2, side, side),
               QStringLiteral("arrow.up.right.square"), words);
}

} // namespace tessivo
