#include "app/controls/SidebarRow.h"

#include "app/controls/StatusColors.h"
#include "app/look/Metrics.h"
#include "app/look/Paint.h"
#include "app/look/Symbols.h"

namespace tessivo {
namespace {

constexpr int rowInset = 8;
constexpr int symbolGap = 9;
constexpr int glyphInset = 8;
constexpr double ringWidth = 2;

} // namespace

SidebarRow::SidebarRow(const QString& title, const QString& symbol, QWidget* parent)
    : ClickControl(parent), m_symbol(symbol) {
    setText(title);
    setCheckable(true);
    setAutoExclusive(true);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::toggled, this, [this] { announceChoice(this); });
}

void SidebarRow::setStatus(std::optional<TestStatus> status) {
    if (status == m_status) return;
    m_status = status;
    update();
    announceNameChange(this);
}

QString SidebarRow::spokenName() const {
    return m_status ? text() + QStringLiteral(", ") + QString::fromUtf8(label(*m_status)) : text();
}

void SidebarRow::addSpokenState(QAccessible::State& state) const {
    // The item of a list is selected rather than checked.
    state.checkable = state.checked = false;
    state.selectable = true;
    state.selected = isChecked();
}

QSize SidebarRow::sizeHint() const {
    return {rowInset + theme().scaled(SymbolSize::sidebar) + symbolGap +
                theme().textWidth(TextRole::sidebarRowSelected, text()) + Space::s +
                theme().scaled(SymbolSize::glyph) + glyphInset,
            theme().scaled(Height::sidebarRow)};
}

QSize SidebarRow::minimumSizeHint() const {
    return {theme().scaled(90), sizeHint().height()};
}

void SidebarRow::resizeEvent(QResizeEvent*) {
    setToolTip(width() < sizeHint().width() ? text() : QString());
}

void SidebarRow::paintGround(QPainter& painter) const {
    if (isChecked()) paintRounded(painter, rect(), Corner::row, theme().color(ColorRole::accent, 14));
    if (isDown() || (isHovered() && !isChecked()))
        paintRounded(painter, rect(), Corner::row, theme().color(ColorRole::text1, isDown() ? 9 : 5));
    if (hasFocus())
        paintRounded(painter, rect(), Corner::row, {}, theme().color(ColorRole::focus), ringWidth);
}

void SidebarRow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(opacityOf(*this));
    paintGround(painter);
    const int side = theme().scaled(SymbolSize::sidebar);
    const int glyph = theme().scaled(SymbolSize::glyph);
    drawSymbol(painter, mirrored(*this, QRect(rowInset, (height() - side) / 2, side, side)), m_symbol,
               theme().color(isChecked() ? ColorRole::accent : ColorRole::text2));
    const int left = rowInset + side + symbolGap;
    const QRect room(left, 0, width() - left - glyphInset - glyph - Space::xs, height());
    painter.setFont(theme().font(isChecked() ? TextRole::sidebarRowSelected : TextRole::sidebarRow));
    painter.setPen(theme().color(ColorRole::text1));
    painter.drawText(mirrored(*this, room), Qt::AlignVCenter | Qt::AlignLeading | Qt::TextSingleLine,
                     width() >= sizeHint().width()
                         ? text()
                         : QFontMetricsF(painter.font()).elidedText(text(), Qt::ElideRight, room.width()));
    if (m_status)
        drawSymbol(painter,
                   mirrored(*this, QRect(width() - glyphInset - glyph, (height() - glyph) / 2, glyph, glyph)),
                   QString::fromUtf8(symbol(*m_status)), theme().color(glyphColor(*m_status)));
}

} // namespace tessivo
