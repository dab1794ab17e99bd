#include "app/controls/ListRows.h"

#include "app/controls/Metrics.h"
#include "app/controls/Paint.h"
#include "app/controls/StatusBadge.h"
#include "app/controls/Symbols.h"

#include <QKeyEvent>

#include <cmath>

namespace tessivo {
namespace {

constexpr int rowInset = 8;
constexpr int symbolGap = 9;
constexpr int glyphInset = 8;
constexpr int twoLineInset = 8;
constexpr double ringWidth = 2;

void drawLine(QPainter& painter, const QRectF& room, TextRole role, ColorRole color, const QString& text) {
    painter.setFont(theme().font(role));
    painter.setPen(theme().color(color));
    const QFontMetricsF metrics(painter.font());
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeading | Qt::TextSingleLine,
                     metrics.elidedText(text, Qt::ElideRight, room.width()));
}

} // namespace

ListRow::ListRow(QWidget* parent) : ClickControl(parent) {
    setCorner(Corner::row);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ListRow::setSelected(bool selected) {
    if (selected == m_selected) return;
    m_selected = selected;
    selectionHasChanged();
    update();
    QAccessible::State changed;
    changed.selected = true;
    announceStateChange(this, changed);
}

void ListRow::addSpokenState(QAccessible::State& state) const {
    state.selectable = true;
    state.selected = m_selected;
}

void ListRow::focusInEvent(QFocusEvent* event) {
    ClickControl::focusInEvent(event);
    update();
}

void ListRow::focusOutEvent(QFocusEvent* event) {
    ClickControl::focusOutEvent(event);
    update();
}

void ListRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(disabledOpacity());
    if (m_selected) paintRounded(painter, rect(), Corner::row, theme().color(ColorRole::accent, 14));
    if (isDown() || (isHovered() && !m_selected))
        paintRounded(painter, rect(), Corner::row, theme().color(ColorRole::text1, isDown() ? 9 : 5));
    if (hasFocus())
        paintRounded(painter, rect(), Corner::row, {}, theme().color(ColorRole::focus), ringWidth);
}

SidebarRow::SidebarRow(const QString& title, const QString& symbol, QWidget* parent)
    : ListRow(parent), m_title(title), m_symbol(symbol) {
    setText(title);
}

void SidebarRow::setStatus(std::optional<TestStatus> status) {
    if (status == m_status) return;
    m_status = status;
    update();
    announceNameChange(this);
}

QString SidebarRow::spokenName() const {
    return m_status ? m_title + QStringLiteral(", ") + QString::fromUtf8(label(*m_status)) : m_title;
}

QSize SidebarRow::sizeHint() const {
    const QFontMetricsF metrics(theme().font(TextRole::sidebarRowSelected));
    const int words = int(std::ceil(metrics.horizontalAdvance(m_title)));
    return {rowInset + theme().scaled(SymbolSize::sidebar) + symbolGap + words + Space::s +
                theme().scaled(SymbolSize::glyph) + glyphInset,
            theme().scaled(Height::sidebarRow)};
}

QSize SidebarRow::minimumSizeHint() const {
    return {theme().scaled(90), sizeHint().height()};
}

void SidebarRow::resizeEvent(QResizeEvent*) {
    setToolTip(width() < sizeHint().width() ? m_title : QString());
}

void SidebarRow::paintEvent(QPaintEvent* event) {
    ListRow::paintEvent(event);
    QPainter painter(this);
    painter.setOpacity(disabledOpacity());
    const auto put = [this](const QRect& place) {
        return QStyle::visualRect(layoutDirection(), rect(), place);
    };
    const int side = theme().scaled(SymbolSize::sidebar);
    const int glyph = theme().scaled(SymbolSize::glyph);
    drawSymbol(painter, put(QRect(rowInset, (height() - side) / 2, side, side)), m_symbol,
               theme().color(isSelected() ? ColorRole::accent : ColorRole::text2));
    const int left = rowInset + side + symbolGap;
    const int right = glyphInset + glyph + Space::xs;
    drawLine(painter, put(QRect(left, 0, width() - left - right, height())),
             isSelected() ? TextRole::sidebarRowSelected : TextRole::sidebarRow, ColorRole::text1, m_title);
    if (m_status)
        drawSymbol(painter, put(QRect(width() - glyphInset - glyph, (height() - glyph) / 2, glyph, glyph)),
                   QString::fromUtf8(symbol(*m_status)), theme().color(glyphColor(*m_status)));
}

TwoLineRow::TwoLineRow(const QString& title, const QString& detail, QWidget* parent)
    : ListRow(parent), m_title(title), m_detail(detail) {
    setText(title);
}

QSize TwoLineRow::sizeHint() const {
    return {theme().scaled(200), theme().scaled(Height::historyRow)};
}

QSize TwoLineRow::minimumSizeHint() const {
    return {theme().scaled(80), sizeHint().height()};
}

void TwoLineRow::resizeEvent(QResizeEvent*) {
    const QFontMetricsF metrics(theme().font(TextRole::callout));
    setToolTip(metrics.horizontalAdvance(m_detail) > width() - 2 * twoLineInset ? m_detail : QString());
}

void TwoLineRow::paintEvent(QPaintEvent* event) {
    ListRow::paintEvent(event);
    QPainter painter(this);
    painter.setOpacity(disabledOpacity());
    const int upper = theme().lineHeight(TextRole::body), lower = theme().lineHeight(TextRole::callout);
    const int top = (height() - upper - lower) / 2;
    drawLine(painter, QRectF(twoLineInset, top, width() - 2 * twoLineInset, upper),
             isSelected() ? TextRole::controlStrong : TextRole::control, ColorRole::text1, m_title);
    drawLine(painter, QRectF(twoLineInset, top + upper, width() - 2 * twoLineInset, lower), TextRole::callout,
             ColorRole::text2, m_detail);
}

RowList::RowList(const QString& name, QWidget* parent) : Column(parent) {
    setAccessibleName(name);
}

void RowList::addRow(ListRow* row, int gapAbove) {
    add(row, gapAbove);
    m_rows.append(row);
    row->installEventFilter(this);
    connect(row, &QAbstractButton::clicked, this, [this, row] { Q_EMIT chosen(row); });
    updateTabStops();
}

void RowList::clear() {
    m_current = nullptr;
    m_rows.clear();
    while (QLayoutItem* item = column().takeAt(0)) {
        item->widget()->hide();
        item->widget()->deleteLater();
        delete item;
    }
}

void RowList::setCurrent(ListRow* row) {
    if (row == m_current) return;
    const bool hadFocus = m_current && m_current->hasFocus();
    m_current = row;
    for (ListRow* each : std::as_const(m_rows))
        each->setSelected(each == row);
    updateTabStops();
    if (hadFocus && row) row->setFocus(Qt::OtherFocusReason);
}

void RowList::updateTabStops() {
    // The current row is the list's one stop; without one it is the first that shows.
    const ListRow* stop = m_current;
    for (auto row = m_rows.cbegin(); !stop && row != m_rows.cend(); ++row)
        if (!(*row)->isHidden()) stop = *row;
    for (ListRow* row : std::as_const(m_rows))
        row->setFocusPolicy(row == stop ? Qt::TabFocus : Qt::NoFocus);
}

bool RowList::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent) updateTabStops();
    if (event->type() != QEvent::KeyPress) return Column::eventFilter(watched, event);
    QList<ListRow*> shown;
    for (ListRow* row : std::as_const(m_rows))
        if (!row->isHidden() && row->isEnabled()) shown.append(row);
    const auto* key = static_cast<QKeyEvent*>(event);
    qsizetype index = shown.indexOf(static_cast<ListRow*>(watched));
    if (index < 0 || key->modifiers() & ~Qt::KeypadModifier) return Column::eventFilter(watched, event);
    switch (key->key()) {
    case Qt::Key_Up:
        index = std::max<qsizetype>(0, index - 1);
        break;
    case Qt::Key_Down:
        index = std::min(shown.size() - 1, index + 1);
        break;
    case Qt::Key_Home:
        index = 0;
        break;
    case Qt::Key_End:
        index = shown.size() - 1;
        break;
    default:
        return Column::eventFilter(watched, event);
    }
    ListRow* row = shown.at(index);
    row->setFocusPolicy(Qt::TabFocus);
    row->setFocus(Qt::TabFocusReason);
    if (row != m_current) Q_EMIT chosen(row);
    return true;
}

} // namespace tessivo
