#include "app/controls/Panel.h"

#include "app/controls/Divider.h"
#include "app/look/Metrics.h"
#include "app/look/Paint.h"

#include <QPaintEvent>

namespace tessivo {

Panel::Panel(Kind kind, QWidget* parent) : QWidget(parent), m_kind(kind), m_layout(new ColumnLayout(this)) {
    if (kind != Kind::list) setPadding(Space::block, Space::block);
}

void Panel::addRow(QWidget* row, int left, int right) {
    if (m_layout->count() > 0) {
        auto* divider = new Divider(left, right < 0 ? left : right);
        m_layout->add(divider);
        row->installEventFilter(this);
        m_dividers.append(std::pair<QWidget*, QWidget*>(row, divider));
    }
    m_layout->add(row);
}

bool Panel::eventFilter(QObject* watched, QEvent* event) {
    // A row that is hidden takes the divider above it along.
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent)
        for (const auto& [row, divider] : std::as_const(m_dividers))
            if (row == watched) divider->setVisible(event->type() == QEvent::ShowToParent);
    return QWidget::eventFilter(watched, event);
}

void Panel::clear() {
    m_dividers.clear();
    while (QLayoutItem* item = m_layout->takeAt(0)) {
        // Rows may be cleared from a click on one of them.
        item->widget()->hide();
        item->widget()->deleteLater();
        delete item;
    }
}

void Panel::setPadding(int horizontal, int vertical) {
    m_layout->setContentsMargins(horizontal, vertical, horizontal, vertical);
}

void Panel::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const bool inner = m_kind == Kind::inner;
    paintCard(painter, *this, event->rect(), inner ? Corner::innerPanel : Corner::panel,
              theme().color(inner ? ColorRole::window : ColorRole::card));
}

} // namespace tessivo
