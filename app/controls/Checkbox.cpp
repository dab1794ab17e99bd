#include "app/controls/Checkbox.h"

#include "app/look/Metrics.h"
#include "app/look/Paint.h"
#include "app/look/Symbols.h"

#include <cmath>

namespace tessivo {
namespace {

constexpr int textGap = 10;
constexpr double tickWeight = 3.2;

} // namespace

Checkbox::Checkbox(const QString& text, QWidget* parent) : ClickControl(parent) {
    setCheckable(true);
    setText(text);
    setCorner(Corner::checkbox);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QRectF Checkbox::focusShapeRect() const {
    const double side = theme().scaled(Height::checkbox);
    const double line = text().isEmpty() ? side : theme().lineHeight(TextRole::body);
    return {0, std::floor((line - side) / 2), side, side};
}

QSize Checkbox::sizeHint() const {
    const int side = theme().scaled(Height::checkbox);
    if (text().isEmpty()) return {side, side};
    return {side + textGap + theme().textWidth(TextRole::body, text()), theme().lineHeight(TextRole::body)};
}

QSize Checkbox::minimumSizeHint() const {
    return {std::min(sizeHint().width(), theme().scaled(120)), sizeHint().height()};
}

int Checkbox::heightForWidth(int width) const {
    if (text().isEmpty() || width >= sizeHint().width()) return sizeHint().height();
    const int room = std::max(1, width - theme().scaled(Height::checkbox) - textGap);
    return std::max(theme().lineHeight(TextRole::body),
                    wordsHeight(theme().font(TextRole::body), room, text()));
}

void Checkbox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(opacityOf(*this));
    const QRectF box = focusShapeRect();
    paintRounded(painter, box, Corner::checkbox,
                 controlFill(isChecked(), isDown(), isHovered(), ColorRole::field),
                 isChecked() ? QColor() : theme().color(ColorRole::fieldBorder));
    if (isChecked()) {
        const double inset = box.width() / 9;
        drawSymbol(painter, box.adjusted(inset, inset, -inset, -inset), QStringLiteral("checkmark"),
                   theme().color(ColorRole::onAccent), tickWeight);
    }
    if (text().isEmpty()) return;
    painter.setFont(theme().font(TextRole::body));
    painter.setPen(theme().color(ColorRole::text1));
    paintWords(painter, {box.width() + textGap, 0, width() - box.width() - textGap, double(height())},
               theme().lineHeight(TextRole::body), width() >= sizeHint().width(), text());
}

} // namespace tessivo
