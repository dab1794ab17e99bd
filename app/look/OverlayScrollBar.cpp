#include "app/look/OverlayScrollBar.h"

#include <QAbstractScrollArea>
#include <QEvent>

namespace tessivo {

OverlayScrollBar::OverlayScrollBar(QAbstractScrollArea* area) : QScrollBar(Qt::Vertical, area), m_area(area) {
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->installEventFilter(this);
    area->viewport()->installEventFilter(this);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::ArrowCursor);
    QScrollBar* own = area->verticalScrollBar();
    connect(own, &QScrollBar::rangeChanged, this, &OverlayScrollBar::copyRange);
    connect(own, &QScrollBar::valueChanged, this, &QScrollBar::setValue);
    connect(this, &QScrollBar::valueChanged, own, &QScrollBar::setValue);
    copyRange();
    place();
}

void OverlayScrollBar::copyRange() {
    const QScrollBar* own = m_area->verticalScrollBar();
    setRange(own->minimum(), own->maximum());
    // The area tells its range before it sets its own step.
    setPageStep(m_area->viewport()->height());
    setSingleStep(own->singleStep());
    setValue(own->value());
    setVisible(own->maximum() > own->minimum());
    raise();
}

void OverlayScrollBar::place() {
    const int width = sizeHint().width();
    setGeometry(m_area->width() - width, 0, width, m_area->height());
}

bool OverlayScrollBar::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        place();
        copyRange();
    }
    return QScrollBar::eventFilter(watched, event);
}

} // namespace tessivo
