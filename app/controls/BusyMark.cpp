#include "app/controls/BusyMark.h"

#include "app/look/Metrics.h"
#include "app/look/Theme.h"

#include <QPainter>

namespace tessivo {
namespace {

constexpr int stepsARound = 12;
constexpr std::chrono::milliseconds stepTime(100);
constexpr int partSteps = 4; // as long as so many steps
constexpr double line = 2;
constexpr int fullCircle = 360 * 16; // in the painter's units

} // namespace

BusyMark::BusyMark(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_steps.setInterval(stepTime);
    m_steps.callOnTimeout(this, [this] {
        m_step = (m_step + 1) % stepsARound;
        update();
    });
}

QSize BusyMark::sizeHint() const {
    return QSize(1, 1) * theme().scaled(SymbolSize::button);
}

void BusyMark::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double inset = line / 2 + 1;
    const QRectF ring = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
    painter.setPen(QPen(theme().color(ColorRole::text1, 12), line));
    painter.drawEllipse(ring);
    painter.setPen(QPen(theme().color(ColorRole::accent), line, Qt::SolidLine, Qt::RoundCap));
    const int top = fullCircle / 4, stepAngle = fullCircle / stepsARound;
    painter.drawArc(ring, top - m_step * stepAngle, -partSteps * stepAngle);
}

} // namespace tessivo
