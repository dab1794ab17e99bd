#include "app/controls/Meters.h"

#include "app/look/Metrics.h"
#include "app/look/Paint.h"

namespace tessivo {
namespace {

/// A filled part of a round-ended bar; clipped by the bar, so a small part never bulges out of it.
void paintBar(QPainter& painter, const QRectF& bar, double part, const QColor& groove, const QColor& fill,
              const QColor& border) {
    paintRounded(painter, bar, bar.height() / 2, groove, border);
    if (part <= 0) return;
    QRectF filled = bar;
    filled.setWidth(std::max(bar.height(), bar.width() * std::min(part, 1.0)));
    paintRounded(painter, filled, bar.height() / 2, fill);
}

} // namespace

ProgressBar::ProgressBar(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ProgressBar::setProgress(int value, int total) {
    if (value == m_value && total == m_total) return;
    m_value = value;
    m_total = total;
    update();
    announceValueChange(this);
}

QSize ProgressBar::sizeHint() const {
    return {160, theme().scaled(Height::progress)};
}

QSize ProgressBar::minimumSizeHint() const {
    return {40, sizeHint().height()};
}

QString ProgressBar::spokenValue() const {
    return QStringLiteral("%1 of %2").arg(m_value).arg(m_total);
}

void ProgressBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintBar(painter, rect(), m_total > 0 ? double(m_value) / m_total : 0,
             theme().color(ColorRole::text1, 12), theme().color(ColorRole::accent), {});
}

LevelBar::LevelBar(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName(QStringLiteral("Level"));
}

void LevelBar::setLevel(double level, const QString& spoken) {
    level = std::clamp(level, 0.0, 1.0);
    if (level != m_level) {
        m_level = level;
        update();
    }
    if (spoken != m_spoken) {
        m_spoken = spoken;
        announceValueChange(this);
    }
}

QSize LevelBar::sizeHint() const {
    return {160, theme().scaled(Height::meter)};
}

QSize LevelBar::minimumSizeHint() const {
    return {60, sizeHint().height()};
}

void LevelBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintBar(painter, rect(), m_level, theme().color(ColorRole::track), theme().color(ColorRole::meter),
             theme().color(ColorRole::text1, 8));
}

} // namespace tessivo
