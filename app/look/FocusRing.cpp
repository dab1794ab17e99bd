#include "app/look/FocusRing.h"

#include "app/look/Theme.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QPainter>

namespace tessivo {
namespace {

constexpr double ringWidth = 2;
constexpr double ringGap = 2;
constexpr double cornerMore = 4;

/// The furthest ancestor that scrolls or moves together with the widget.
QWidget* hostOf(QWidget* widget) {
    QWidget* host = widget;
    while (QWidget* parent = host->parentWidget()) {
        if (host->isWindow()) break;
        if (const auto* area = qobject_cast<QAbstractScrollArea*>(parent->parentWidget());
            area && area->viewport() == parent)
            break;
        host = parent;
    }
    return host;
}

} // namespace

FocusRing::FocusRing() {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

void FocusRing::follow(QWidget* widget) {
    letGo();
    auto* shape = dynamic_cast<FocusShape*>(widget);
    if (!shape || !shape->hasOuterRing()) return;
    QWidget* shaped = shape->focusShapeWidget();
    QWidget* host = hostOf(shaped);
    if (host == shaped) return;
    m_target = widget;
    m_shaped = shaped;
    for (QWidget* each = shaped; each; each = each->parentWidget()) {
        each->installEventFilter(this);
        m_watched.append(each);
        if (each == host) break;
    }
    setParent(host);
    place();
}

void FocusRing::letGo() {
    for (const auto& each : std::as_const(m_watched))
        if (each) each->removeEventFilter(this);
    m_watched.clear();
    m_target = nullptr;
    m_shaped = nullptr;
    hide();
    // A ring must outlive whatever it lay in.
    setParent(nullptr);
}

void FocusRing::place() {
    auto* shape = dynamic_cast<FocusShape*>(m_target.data());
    if (!shape || !m_shaped || !parentWidget()) return;
    if (!m_shaped->isVisibleTo(parentWidget()) || !shape->hasOuterRing()) {
        hide();
        return;
    }
    const QRectF edge = shape->focusShapeRect().translated(m_shaped->mapTo(parentWidget(), QPoint()));
    const double reach = ringGap + ringWidth;
    m_corner = shape->focusShapeCorner() + cornerMore;
    setGeometry(edge.adjusted(-reach, -reach, reach, reach).toAlignedRect());
    raise();
    show();
    update();
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::LayoutRequest:
    case QEvent::ZOrderChange:
        if (watched != this) place();
        break;
    case QEvent::ParentChange:
        if (m_target) follow(m_target);
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void FocusRing::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme().color(ColorRole::focus), ringWidth));
    const double half = ringWidth / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(half, half, -half, -half), m_corner - half,
                            m_corner - half);
}

} // namespace tessivo
