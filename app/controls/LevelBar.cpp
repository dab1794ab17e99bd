#include "app/controls/LevelBar.h"

#include "app/look/Metrics.h"
#include "app/look/Paint.h"

namespace tessivo {

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
