#include "app/pages/display/ColorSwatch.h"

#include "app/look/Metrics.h"
#include "app/look/Paint.h"
#include "app/look/Symbols.h"
#include "app/look/Theme.h"
#include "app/pages/display/ColorRun.h"

namespace tessivo {
namespace {

constexpr int swatchHeight = 76;
constexpr int shownMark = 14; // the side of its symbol

} // namespace

ColorSwatch::ColorSwatch(const std::string& color, QWidget* parent) : QWidget(parent), m_color(color) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(&theme(), &Theme::changed, this, [this] { updateGeometry(); });
}

void ColorSwatch::setShown(bool shown) {
    if (shown == m_shown) return;
    m_shown = shown;
    update();
    announceValueChange(this);
}

QSize ColorSwatch::sizeHint() const {
    return {134, minimumSizeHint().height()};
}

QSize ColorSwatch::minimumSizeHint() const {
    return {60, swatchHeight + Space::s + theme().lineHeight(TextRole::body) + Space::xxs +
                    theme().scaled(shownMark)};
}

QString ColorSwatch::spokenValue() const {
    return m_shown ? "shown" : "not shown yet";
}

void ColorSwatch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintRounded(painter, QRectF(0, 0, width(), swatchHeight), Corner::swatch, ColorRun::color(m_color),
                 theme().color(ColorRole::text1, 20));
    const double line = theme().lineHeight(TextRole::body);
    painter.setFont(theme().font(TextRole::body));
    painter.setPen(theme().color(ColorRole::text1));
    painter.drawText(QRectF(0, swatchHeight + Space::s, width(), line), Qt::AlignLeft | Qt::AlignVCenter,
                     spokenName());
    const double side = theme().scaled(shownMark);
    drawSymbol(painter, QRectF(0, height() - side, side, side), "checkmark.circle.fill",
               theme().color(m_shown ? ColorRole::greenGlyph : ColorRole::grayGlyph));
}

} // namespace tessivo
