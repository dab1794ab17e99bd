#include "app/controls/ListRows.h"

#include "app/controls/StatusBadge.h"
#include "app/look/Metrics.h"
#include "app/look/Paint.h"
#include "app/look/Symbols.h"

#include <QKeyEvent>

namespace tessivo {
namespace {

constexpr int rowInset = 8;
constexpr int symbolGap = 9;
constexpr int glyphInset = 8;
constexpr double ringWidth = 2;

} // namespace

ListRow::ListRow(QWidget* parent) : ClickControl(parent) {
    setCorner(Corner::row);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ListRow::setSelected(bool selected) {
    if (selected == m_selected) return;
    m_selected = selected;
    update();
    announceChoice(this);
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
    painter.setOpacity(opacityOf(*this));
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
    return {rowInset + theme().scaled(SymbolSize::sidebar) + symbolGap +
                theme().textWidth(TextRole::sidebarRowSelected, m_title) + Space::s +
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
    painter.setOpacity(opacityOf(*this));
    const int side = theme().scaled(SymbolSize::sidebar);
    const int glyph = theme().scaled(SymbolSize::glyph);
    drawSymbol(painter, mirrored(*this, QRect(rowInset, (height() - side) / 2, side, side)), m_symbol,
               theme().color(isSelected() ? ColorRole::accent : ColorRole::text2));
    const int left = rowInset + side + symbolGap;
    const QRect room(left, 0, width() - left - glyphInset - glyph - Space::xs, height());
    painter.setFont(theme().font(isSelected() ? TextRole::sidebarRowSelected : TextRole::sidebarRow));
    painter.setPen(theme().color(ColorRole::text1));
    painter.drawText(mirrored(*this, room), Qt::AlignVCenter | Qt::AlignLeading | Qt::TextSingleLine,
                     width() >= sizeHint().width()
                         ? m_title
                         : QFontMetricsF(painter.font()).elidedText(m_title, Qt::ElideRight, room.width()));
    if (m_status)
        drawSymbol(painter,
                   mirrored(*this, QRect(width() - glyphInset - glyph, (height() - glyph) / 2, glyph, glyph)),
                   QString::fromUtf8(symbol(*m_status)), theme().color(glyphColor(*m_status)));
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
