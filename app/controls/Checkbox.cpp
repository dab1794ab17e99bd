#include "app/controls/Checkbox.h"

#include "app/controls/Metrics.h"
#include "app/controls/Paint.h"
#include "app/controls/Symbols.h"

#include <cmath>

namespace tessivo {
namespace {

constexpr int textGap = 10;
constexpr double tickWeight = 3.2;
constexpr int wrapFlags = Qt::AlignLeading | Qt::AlignTop | Qt::TextWordWrap;

} // namespace

Checkbox::Checkbox(const QString& text, QWidget* parent) : ClickControl(parent) {
    setCheckable(true);
    setText(text);
    setCorner(Corner::checkbox);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(!text.isEmpty());
    setSizePolicy(policy);
    connect(this, &QAbstractButton::toggled, this, [this] {
        QAccessible::State changed;
        changed.checked = true;
        announceStateChange(this, changed);
    });
}

void Checkbox::addSpokenState(QAccessible::State& state) const {
    state.checkable = true;
    state.checked = isChecked();
}

QRectF Checkbox::focusShapeRect() const {
    const double side = theme().scaled(Height::checkbox);
    const double line = text().isEmpty() ? side : theme().lineHeight(TextRole::body);
    return {0, std::floor((line - side) / 2), side, side};
}

QSize Checkbox::sizeHint() const {
    const int side = theme().scaled(Height::checkbox);
    if (text().isEmpty()) return {side, side};
    const QFontMetricsF metrics(theme().font(TextRole::body));
    return {side + textGap + int(std::ceil(metrics.horizontalAdvance(text()))),
            theme().lineHeight(TextRole::body)};
}

QSize Checkbox::minimumSizeHint() const {
    return {std::min(sizeHint().width(), theme().scaled(120)), sizeHint().height()};
}

int Checkbox::heightForWidth(int width) const {
    if (text().isEmpty() || width >= sizeHint().width()) return sizeHint().height();
    const int room = std::max(1, width - theme().scaled(Height::checkbox) - textGap);
    const QFontMetrics metrics(theme().font(TextRole::body));
    return std::max(theme().lineHeight(TextRole::body),
                    4 + metrics.boundingRect(QRect(0, 0, room, 10000), wrapFlags, text()).height());
}

void Checkbox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(disabledOpacity());
    const QRectF box = focusShapeRect();
    if (isChecked()) {
        const ColorRole fill = isDown()      ? ColorRole::accentFillPressed
                               : isHovered() ? ColorRole::accentFillHover
                                             : ColorRole::accentFill;
        paintRounded(painter, box, Corner::checkbox, theme().color(fill));
        const double inset = box.width() / 9;
        drawSymbol(painter, box.adjusted(inset, inset, -inset, -inset), QStringLiteral("checkmark"),
                   theme().color(ColorRole::onAccent), tickWeight);
    } else {
        const ColorRole fill = isDown()      ? ColorRole::controlPressed
                               : isHovered() ? ColorRole::controlHover
                                             : ColorRole::field;
        paintRounded(painter, box, Corner::checkbox, theme().color(fill),
                     theme().color(ColorRole::fieldBorder));
    }
    if (text().isEmpty()) return;
    painter.setFont(theme().font(TextRole::body));
    painter.setPen(theme().color(ColorRole::text1));
    const QFontMetricsF metrics(painter.font());
    const double left = box.width() + textGap;
    const double line = theme().lineHeight(TextRole::body);
    const double top = (line - metrics.ascent() - metrics.descent()) / 2;
    if (width() >= sizeHint().width())
        painter.drawText(QPointF(left, std::round(top + metrics.ascent())), text());
    else
        painter.drawText(QRectF(left, top, width() - left, height() - top), wrapFlags, text());
}

} // namespace tessivo
