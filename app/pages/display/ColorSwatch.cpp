#include "app/pages/display/ColorSwatch.h"

#include "app/controls/Metrics.h"
#include "app/controls/Paint.h"
#include "app/controls/Symbols.h"
#include "app/controls/Theme.h"
#include "app/pages/display/ColorRun.h"

namespace tessivo {
namespace {

constexpr int swatchHeight = 76;

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
    return {60, swatchHeight + Space::s + theme().lineHeight(TextRole::body)};
}

QString ColorSwatch::spokenValue() const {
    return m_shown ? QStringLiteral("shown") : QStringLiteral("not shown yet");
}

void ColorSwatch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintRounded(painter, QRectF(0, 0, width(), swatchHeight), Corner::swatch, ColorRun::color(m_color),
                 theme().color(ColorRole::text1, 20));
    const double line = theme().lineHeight(TextRole::body);
    const double top = height() - line;
    const double side = theme().scaled(SymbolSize::glyph);
    drawSymbol(painter, QRectF(width() - side, top + (line - side) / 2, side, side),
               m_shown ? QStringLiteral("checkmark.circle.fill") : QStringLiteral("circle"),
               theme().color(m_shown ? ColorRole::greenGlyph : ColorRole::grayGlyph));
    painter.setFont(theme().font(TextRole::body));
    painter.setPen(theme().color(ColorRole::text1));
    painter.drawText(QRectF(0, top, width() - side - Space::xxs, line), Qt::AlignLeft | Qt::AlignVCenter,
                     spokenName());
}

} // namespace tessivo
