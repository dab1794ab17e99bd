#include "app/pages/trackpad/TrackpadArea.h"

#include "app/look/Metrics.h"
#include "app/look/Paint.h"
#include "app/look/Theme.h"

#include <QPaintEvent>
#include <algorithm>
#include <cmath>

namespace tessivo {
namespace {

constexpr double aspect = 1.6;
constexpr int naturalWidth = 540;
constexpr double padding = 10;
constexpr double gap = 3;

} // namespace

TrackpadArea::TrackpadArea(QWidget* surface, QWidget* parent) : QWidget(parent), m_surface(surface) {
    surface->setParent(this);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

QRectF TrackpadArea::cellRect(QSizeF area, std::int64_t column, std::int64_t row) {
    const double width = (area.width() - 2 * padding + gap) / TrackpadTest::columns;
    const double height = (area.height() - 2 * padding + gap) / TrackpadTest::rows;
    return QRectF(padding + double(column) * width, padding + double(row) * height,
                  std::max(0.0, width - gap), std::max(0.0, height - gap));
}

void TrackpadArea::setTouched(const std::set<std::int64_t>& touched) {
    if (touched == m_touched) return;
    std::vector<std::int64_t> changed;
    std::ranges::set_symmetric_difference(touched, m_touched, std::back_inserter(changed));
    const int before = percent();
    m_touched = touched;
    for (const std::int64_t cell : changed)
        update(cellRect(size(), cell % TrackpadTest::columns, cell / TrackpadTest::columns).toAlignedRect());
    if (percent() != before) announceNameChange(this);
}

int TrackpadArea::percent() const {
    return int(m_touched.size()) * 100 / int(TrackpadTest::columns * TrackpadTest::rows);
}

QString TrackpadArea::spokenName() const {
    return QStringLiteral("Trackpad surface, %1 percent touched").arg(percent());
}

int TrackpadArea::heightForWidth(int width) const {
    return int(std::round(width / aspect));
}

QSize TrackpadArea::sizeHint() const {
    return {naturalWidth, heightForWidth(naturalWidth)};
}

QSize TrackpadArea::minimumSizeHint() const {
    return {120, heightForWidth(120)};
}

void TrackpadArea::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const double hairline = devicePixelRatioF() >= 2 ? 0.5 : 1;
    paintRounded(painter, rect(), Corner::trackpadArea, theme().color(ColorRole::track),
                 theme().color(ColorRole::text1, 8), hairline);
    const QColor done = theme().color(ColorRole::greenGlyph, 60), open = theme().color(ColorRole::text1, 6);
    for (std::int64_t row = 0; row < TrackpadTest::rows; ++row)
        for (std::int64_t column = 0; column < TrackpadTest::columns; ++column) {
            const QRectF cell = cellRect(size(), column, row);
            if (!event->rect().intersects(cell.toAlignedRect())) continue;
            const bool touched = m_touched.contains(row * TrackpadTest::columns + column);
            paintRounded(painter, cell, Corner::trackpadCell, touched ? done : open);
        }
}

void TrackpadArea::resizeEvent(QResizeEvent*) {
    m_surface->setGeometry(rect().adjusted(int(padding), int(padding), -int(padding), -int(padding)));
}

} // namespace tessivo
