#include "app/pages/trackpad/TrackpadSurface.h"

#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QWheelEvent>

namespace tessivo {

TrackpadSurface::TrackpadSurface(QWidget* parent) : QWidget(parent) {
    setAccessibleName(QStringLiteral("Trackpad test area"));
    setAttribute(Qt::WA_AcceptTouchEvents);
}

bool TrackpadSurface::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        if (touch(static_cast<QTouchEvent&>(*event))) return true;
        break;
    case QEvent::NativeGesture:
        if (static_cast<QNativeGestureEvent*>(event)->gestureType() == Qt::ZoomNativeGesture) {
            event->accept();
            Q_EMIT gesture(Gesture::zoom);
            return true;
        }
        break;
    case QEvent::Show:
        watchAncestors();
        look();
        break;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Hide:
        look();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

bool TrackpadSurface::eventFilter(QObject* watched, QEvent* event) {
    // What scrolls or covers it moves and resizes what it stands in.
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize) look();
    return QWidget::eventFilter(watched, event);
}

void TrackpadSurface::watchAncestors() {
    for (QWidget* each = parentWidget(); each; each = each->parentWidget())
        each->installEventFilter(this);
}

QRect TrackpadSurface::visiblePart() const {
    const QRect part = visibleRegion().boundingRect();
    return part.isEmpty() ? QRect() : QRect(mapTo(window(), part.topLeft()), part.size());
}

void TrackpadSurface::look() {
    if (const QRect place = visiblePart(); place != m_place) {
        m_place = place;
        Q_EMIT placed(place);
    }
}

bool TrackpadSurface::touch(QTouchEvent& event) {
    if (!event.pointingDevice() || event.pointingDevice()->type() != QInputDevice::DeviceType::TouchPad) {
        event.ignore();
        return true;
    }
    event.accept();
    std::vector<FingerPosition> fingers;
    if (event.type() != QEvent::TouchCancel)
        for (const QEventPoint& point : event.points())
            if (point.state() != QEventPoint::State::Released)
                fingers.push_back(
                    {point.normalizedPosition().x(), point.normalizedPosition().y(), point.id()});
    Q_EMIT touches(m_gate.admit(fingers, isOpen()));
    return true;
}

void TrackpadSurface::mousePressEvent(QMouseEvent* event) {
    event->accept();
    // The window system also makes clicks out of taps on a touch screen or with a pen.
    const QPointingDevice* device = event->pointingDevice();
    const auto type = device ? device->type() : QInputDevice::DeviceType::Unknown;
    if (event->source() != Qt::MouseEventNotSynthesized || type == QInputDevice::DeviceType::TouchScreen ||
        type == QInputDevice::DeviceType::Stylus)
        return;
    const bool control = event->modifiers() & Qt::ControlModifier;
    if (event->button() == Qt::RightButton || (event->button() == Qt::LeftButton && control))
        Q_EMIT gesture(Gesture::secondary);
    else if (event->button() == Qt::LeftButton)
        Q_EMIT gesture(Gesture::click);
}

void TrackpadSurface::wheelEvent(QWheelEvent* event) {
    if (event->pixelDelta().isNull() || event->phase() == Qt::NoScrollPhase) {
        event->ignore();
        return;
    }
    event->accept();
    Q_EMIT gesture(Gesture::scroll);
}

} // namespace tessivo
