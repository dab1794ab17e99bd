#include "app/pages/display/ColorRun.h"

#include "kit/session/DisplayTest.h"

#include <algorithm>

namespace tessivo {

QColor ColorRun::color(const std::string& name) {
    if (name == "White") return QColor(255, 255, 255);
    if (name == "Red") return QColor(255, 0, 0);
    if (name == "Green") return QColor(0, 255, 0);
    if (name == "Blue") return QColor(0, 0, 255);
    if (name == "Gray") return QColor::fromRgbF(0.5f, 0.5f, 0.5f);
    return QColor(0, 0, 0);
}

const std::string& ColorRun::name() const {
    return DisplayTest::colors().at(m_index);
}

bool ColorRun::advance(int step) {
    const auto next = static_cast<std::int64_t>(m_index) + step;
    if (next >= static_cast<std::int64_t>(DisplayTest::colors().size())) return false;
    m_index = static_cast<std::size_t>(std::max<std::int64_t>(next, 0));
    return true;
}

QRectF hintPlace(QSizeF screen, QSizeF hint) {
    constexpr double lowerEdge = 0.12;
    const QSizeF size = hint.boundedTo(screen);
    const double top = screen.height() * (1 - lowerEdge) - size.height();
    return QRectF(QPointF((screen.width() - size.width()) / 2, std::max(0.0, top)), size);
}

} // namespace tessivo
