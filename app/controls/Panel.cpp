#include "app/controls/Panel.h"

#include "app/look/Paint.h"

#include <QPaintEvent>

namespace tessivo {
Divider::Divider(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMinimumHeight(1);
}

void Divider::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), theme().divider());
}

Panel::Panel(Kind kind, QWidget* parent) : QWidget(parent), m_kind(kind), m_layout(new ColumnLayout(this)) {
    if (kind != Kind::list) setPadding(Space::block, Space::block);
}

void Panel::add(QWidget* widget, int gapAbove, Qt::Alignment alignment) {
    m_layout->add(widget, gapAbove, alignment);
}

void Panel::addRow(QWidget* row, int dividerInset) {
    if (m_layout->count() > 0) {
        auto* inset = new QWidget(this);
        auto* line = new ColumnLayout(inset);
        line->setContentsMargins(dividerInset, 0, dividerInset, 0);
        line->add(new Divider);
        m_layout->add(inset);
        row->installEventFilter(this);
        m_dividers.append(std::pair<QWidget*, QWidget*>(row, inset));
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
