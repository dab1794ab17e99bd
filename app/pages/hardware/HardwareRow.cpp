#include "app/pages/hardware/HardwareRow.h"

#include "app/controls/Button.h"
#include "app/controls/SymbolView.h"
#include "app/controls/TextLabel.h"
#include "app/layout/SplitLayout.h"
#include "app/layout/WrapRow.h"
#include "app/look/Metrics.h"

#include <QHBoxLayout>
#include <QPainter>

namespace tessivo {

namespace {

constexpr double activeTint = 7; // percent

} // namespace

HardwareRow::HardwareRow(int height, QWidget* parent)
    : QWidget(parent),
      m_symbol(new SymbolView("circle", SymbolSize::row, ColorRole::text2)),
      m_name(new TextLabel({}, TextRole::headline)),
      m_text(new TextLabel({}, TextRole::body, ColorRole::text2)),
      m_buttons(new WrapRow(nullptr, Space::l)) {
    auto* words = new QWidget;
    auto* row = new QHBoxLayout(words);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Space::l);
    row->addWidget(m_symbol);
    row->addWidget(m_name, 0, Qt::AlignVCenter);
    row->addWidget(m_text, 1, Qt::AlignVCenter);
    m_name->setMaximumLines(1);
    auto* split = new SplitLayout(this, words, m_buttons, 0, Space::l);
    split->setContentsMargins(Space::xl, Space::xs, Space::xl, Space::xs);
    setMinimumHeight(theme().scaled(height));
}

void HardwareRow::setSymbol(const QString& symbol, ColorRole color) {
    m_symbol->setSymbol(symbol, color);
}

void HardwareRow::setTexts(const QString& name, const QString& text, ColorRole color, TextOf of) {
    m_name->setText(name);
    m_text->setMaximumLines(of == TextOf::device ? 1 : 0);
    m_text->setText(text);
    m_text->setColorRole(color);
}

void HardwareRow::setNameWidth(int width) {
    m_name->setMinimumWidth(theme().scaled(width));
}

void HardwareRow::setActive(bool active) {
    if (m_active == active) return;
    m_active = active;
    update();
}

void HardwareRow::setEdges(bool first, bool last) {
    m_first = first;
    m_last = last;
    update();
}

void HardwareRow::addButton(Button* button) {
    m_buttons->add(button);
}

void HardwareRow::paintEvent(QPaintEvent*) {
    if (!m_active) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QRectF area(rect());
    // Of a rounded shape that reaches past the row, only the corners at the card's edge are seen.
    if (!m_first) area.setTop(area.top() - Corner::panel * 2);
    if (!m_last) area.setBottom(area.bottom() + Corner::panel * 2);
    painter.setClipRect(rect());
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme().color(ColorRole::accent, activeTint));
    painter.drawRoundedRect(area, Corner::panel, Corner::panel);
}

} // namespace tessivo
