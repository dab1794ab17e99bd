#include "app/pages/shared/SheetView.h"

#include "app/look/Theme.h"

#include <QPainter>
#include <QResizeEvent>
#include <QScrollBar>

namespace tessivo {

SheetView::SheetView(QWidget* parent) : ScrollColumn(parent, fullWidth), m_preview(new ReportPreview) {
    setFocusPolicy(Qt::TabFocus);
    add(m_preview);
}

void SheetView::setReport(const ConditionReport& report) {
    m_preview->setReport(report);
    setAccessibleName(m_preview->accessibleName());
}

void SheetView::scrollToTop() {
    verticalScrollBar()->setValue(0);
}

void SheetView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), theme().color(ColorRole::well));
    ScrollColumn::paintEvent(event);
}

void SheetView::resizeEvent(QResizeEvent* event) {
    // The room at the sides shrinks with the sheet.
    constexpr int side = (fullWidth - ReportPreview::sheetWidth) / 2;
    const int width = std::min(event->size().width(), fullWidth);
    setPadding((side * width + fullWidth / 2) / fullWidth, Space::xl, Space::xl);
    ScrollColumn::resizeEvent(event);
}

} // namespace tessivo
