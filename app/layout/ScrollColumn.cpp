#include "app/layout/ScrollColumn.h"

#include <QApplication>
#include <QEvent>
#include <QScrollBar>

namespace tessivo {
namespace {

constexpr int focusMargin = 24;

/// Never wider than the viewport, and as high as that asks for: what is in it wraps.
class Content final : public Column {
public:
    using Column::Column;
    QSize sizeHint() const override { return {0, 0}; }
    QSize minimumSizeHint() const override { return {0, 0}; }
};

} // namespace

ScrollColumn::ScrollColumn(QWidget* parent, int maximumWidth, int padding)
    : QScrollArea(parent), m_content(new Content) {
    m_content->setMaximumWidth(maximumWidth);
    setAlignment(Qt::AlignHCenter);
    setPadding(padding, padding, padding);
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setWidget(m_content);
    viewport()->setAutoFillBackground(false);
    m_content->setAutoFillBackground(false);
    m_content->installEventFilter(this);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    verticalScrollBar()->setSingleStep(Space::xxl);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { keepInView(now); });
}

ScrollColumn::~ScrollColumn() {
    // The focus moves while a widget is taken apart, when this is no scroll column any more.
    disconnect(qApp, nullptr, this, nullptr);
}

void ScrollColumn::keepInView(QWidget* focused) {
    if (!focused || !isVisible() || !m_content->isAncestorOf(focused)) return;
    if (QApplication::mouseButtons() != Qt::NoButton) return;
    ensureWidgetVisible(focused, 0, focusMargin);
}

bool ScrollColumn::eventFilter(QObject* watched, QEvent* event) {
    // A field that grows while typed into must not grow out of sight.
    if (watched == m_content && event->type() == QEvent::Resize) keepInView(QApplication::focusWidget());
    return QScrollArea::eventFilter(watched, event);
}

} // namespace tessivo
