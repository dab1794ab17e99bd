#include "app/pages/cameras/CameraPreview.h"

#include "app/look/Metrics.h"

#include <QPainter>
#include <QPainterPath>

namespace tessivo {

namespace {

// As often as cameras send frames.
constexpr auto refreshInterval = std::chrono::milliseconds(33);
constexpr int leastWidth = 160;

} // namespace

CameraPreview::CameraPreview(const CameraMonitor& monitor, Scheduler& scheduler, QWidget* parent)
    : QWidget(parent), m_monitor(monitor), m_poll(scheduler, refreshInterval, [this] { refresh(); }) {
    setAccessibleName("Camera picture");
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

int CameraPreview::heightForWidth(int width) const {
    return width * 9 / 16;
}

QSize CameraPreview::sizeHint() const {
    return {largestWidth, heightForWidth(largestWidth)};
}

QSize CameraPreview::minimumSizeHint() const {
    return {leastWidth, heightForWidth(leastWidth)};
}

void CameraPreview::refresh() {
    QImage picture = m_monitor.picture();
    if (picture.cacheKey() == m_picture.cacheKey()) return;
    m_picture = std::move(picture);
    m_scaled = {};
    update();
}

void CameraPreview::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath all;
    all.addRoundedRect(rect(), Corner::picture, Corner::picture);
    const double ratio = devicePixelRatioF();
    const QSize most = (QSizeF(size()) * ratio).toSize();
    QSize room = m_picture.size().scaled(most, Qt::KeepAspectRatio);
    if (m_picture.isNull() || room.isEmpty()) return painter.fillPath(all, Qt::black);
    // Rounding alone leaves no bar at the side.
    if (most.width() - room.width() <= 1 && most.height() - room.height() <= 1) room = most;
    // Averaged over all pixels, so that a single bad one still shows.
    if (m_scaled.size() != room)
        m_scaled = m_picture.scaled(room, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);

    const QSizeF shown = QSizeF(room) / ratio;
    const QPointF corner((width() - shown.width()) / 2, (height() - shown.height()) / 2);
    QPainterPath area;
    area.addRect(QRectF(corner, shown));
    if (room != most) painter.fillPath(all.subtracted(area), Qt::black);
    QBrush brush(m_scaled);
    brush.setTransform(QTransform::fromTranslate(corner.x(), corner.y()).scale(1 / ratio, 1 / ratio));
    painter.fillPath(room == most ? all : area.intersected(all), brush);
}

} // namespace tessivo
