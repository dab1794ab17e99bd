#include "app/controls/Chip.h"

#include "app/look/Metrics.h"
#include "app/look/Paint.h"
#include "app/look/Symbols.h"

namespace tessivo {
namespace {

constexpr int padding = 10;
constexpr int chipPaddingDown = 6, tagPaddingDown = 4;
constexpr int gap = 6;

/// As high as the symbol or the line, with the padding above and below.
QSize capsuleSize(const QString& text, TextRole role, int symbol, int paddingDown) {
    const int side = theme().scaled(symbol);
    return {2 * padding + (side > 0 ? side + gap : 0) + theme().textWidth(role, text),
            2 * paddingDown + std::max(side, int(theme().lineHeight(role)))};
}

} // namespace

Chip::Chip(const QString& text, const QString& pendingSymbol, QWidget* parent)
    : QWidget(parent), m_text(text), m_pending(pendingSymbol) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Chip::setMet(bool met) {
    if (met == m_met) return;
    m_met = met;
    update();
    announceValueChange(this);
}

void Chip::setText(const QString& text) {
    if (text == m_text) return;
    m_text = text;
    updateGeometry();
    update();
    announceNameChange(this);
}

QSize Chip::sizeHint() const {
    return capsuleSize(m_text, TextRole::control, SymbolSize::chip, chipPaddingDown);
}

QSize Chip::minimumSizeHint() const {
    return sizeHint();
}

QString Chip::spokenValue() const {
    return m_met ? QStringLiteral("seen") : QStringLiteral("not yet");
}

void Chip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintRounded(painter, rect(), height() / 2.0,
                 m_met ? theme().color(ColorRole::green, 12) : theme().color(ColorRole::text1, 5));
    const double side = theme().scaled(SymbolSize::chip);
    drawSymbol(painter, QRectF(padding, (height() - side) / 2, side, side),
               m_met ? QStringLiteral("checkmark.circle.fill") : m_pending,
               theme().color(m_met ? ColorRole::greenGlyph : ColorRole::grayGlyph));
    painter.setFont(theme().font(TextRole::control));
    painter.setPen(theme().color(m_met ? ColorRole::text1 : ColorRole::text2));
    paintLine(painter, padding + side + gap, height(), m_text);
}

Tag::Tag(const QString& text, const QString& symbol, QWidget* parent)
    : QWidget(parent), m_text(text), m_symbol(symbol) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Tag::sizeHint() const {
    return capsuleSize(m_text, TextRole::badge, m_symbol.isEmpty() ? 0 : SymbolSize::glyph, tagPaddingDown);
}

QSize Tag::minimumSizeHint() const {
    return sizeHint();
}

void Tag::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintRounded(painter, rect(), height() / 2.0, theme().color(ColorRole::orange, 15));
    painter.setFont(theme().font(TextRole::badge));
    painter.setPen(theme().color(ColorRole::orange));
    double x = padding;
    if (!m_symbol.isEmpty()) {
        const double side = theme().scaled(SymbolSize::glyph);
        drawSymbol(painter, QRectF(padding, (height() - side) / 2, side, side), m_symbol,
                   theme().color(ColorRole::orange));
        x = padding + side + gap;
    }
    paintLine(painter, x, height(), m_text);
}

} // namespace tessivo
