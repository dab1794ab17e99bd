#include "app/controls/Chip.h"

namespace tessivo {
namespace {

Capsule::Look pending(const QString& text, const QString& symbol) {
    return {symbol, text, ColorRole::text2, ColorRole::grayGlyph, ColorRole::text1, 5};
}

Capsule::Look met(const QString& text) {
    return {QStringLiteral("checkmark.circle.fill"),
            text,
            ColorRole::text1,
            ColorRole::greenGlyph,
            ColorRole::green,
            12};
}

} // namespace

Chip::Chip(const QString& text, const QString& pendingSymbol, QWidget* parent)
    : Capsule(Capsule::chip, pending(text, pendingSymbol), parent), m_text(text), m_pending(pendingSymbol) {}

void Chip::setMet(bool isMet) {
    if (isMet == m_met) return;
    m_met = isMet;
    setLook(isMet ? met(m_text) : pending(m_text, m_pending));
    announceValueChange(this);
}

QString Chip::spokenValue() const {
    return m_met ? QStringLiteral("seen") : QStringLiteral("not yet");
}

} // namespace tessivo
