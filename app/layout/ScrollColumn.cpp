#include "app/layout/ScrollColumn.h"

#include <QApplication>
#include <QEvent>

namespace tessivo {
namespace {

constexpr int focusMargin = 24;

/// One item at most so wide, in the middle of what there is.
class CenteringLayout final : public FlowingLayout {
public:
    CenteringLayout(QWidget* parent, int maximumWidth)
        : FlowingLayout(parent), m_maximumWidth(maximumWidth) {}

protected:
    int naturalWidth() const override { return m_maximumWidth; }
    int arrange(const QRect& rect, bool apply) const override {
        QLayoutItem* item = m_items.front();
        const int width = std::min(rect.width(), m_maximumWidth);
        const int height = itemHeight(item, width);
        if (apply) put(item, QRect(rect.left() + (rect.width() - width) / 2, rect.top(), width, height));
        return height;
    }

private:
    int m_maximumWidth;
};

} // namespace

class ScrollColumn::Content final : public QWidget {
public:
    using QWidget::QWidget;
    // Never wider than the viewport: what is in it wraps.
    QSize minimumSizeHint() const override { return {0, 0}; }
};

ScrollColumn::ScrollColumn(QWidget* parent, int maximumWidth, int padding)
    : QScrollArea(parent), m_content(new Content) {
    auto* inner = new Column;
    m_column = &inner->column();
    auto* centering = new CenteringLayout(m_content, maximumWidth);
    centering->addWidget(inner);
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

void ScrollColumn::add(QWidget* widget, int gapAbove, Qt::Alignment alignment) {
    m_column->add(widget, gapAbove, alignment);
}

void ScrollColumn::setPadding(int horizontal, int top, int bottom) {
    m_column->setContentsMargins(horizontal, top, horizontal, bottom);
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
