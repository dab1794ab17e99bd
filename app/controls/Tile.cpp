#include "app/controls/Tile.h"
#include "app/controls/StatusColors.h"
#include "app/controls/TextLabel.h"
#include "app/look/Metrics.h"
#include "app/look/Paint.h"
#include "app/look/Symbols.h"

#include <QPaintEvent>

namespace tessivo {
namespace {

constexpr int padding = 12;
constexpr int edge = 13; // the padding inside the hairline
constexpr int symbolGap = 10;
constexpr int glyphGap = 8;
constexpr int summaryGap = 3;

} // namespace

Tile::Tile(const QString& title, const QString& symbol, QWidget* parent)
    : ClickControl(parent),
      m_title(title),
      m_symbol(symbol),
      m_heading(new TextLabel(title, TextRole::headline)),
      m_summary(new TextLabel({}, TextRole::callout, ColorRole::text2)) {
    setText(title);
    setCorner(Corner::tile);
    for (TextLabel* label : {m_heading, m_summary}) {
        label->setParent(this);
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    m_heading->setMaximumLines(1);
    m_summary->setMaximumLines(2);
    m_summary->setReservedLines(2);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void Tile::setStatus(TestStatus status, const QString& summary) {
    if (status == m_status && summary == m_summary->text()) return;
    m_status = status;
    m_summary->setText(summary);
    setToolTip(m_summary->isElided() ? summary : QString());
    update(glyphPlace());
    announceNameChange(this);
}

QString Tile::summary() const {
    return m_summary->text();
}

QString Tile::spokenName() const {
    return m_title + QStringLiteral(": ") + QString::fromUtf8(label(m_status)) + QStringLiteral(". ") +
           m_summary->text();
}

int Tile::textLeft() const {
    return padding + theme().scaled(SymbolSize::tile) + symbolGap;
}

QRect Tile::glyphPlace() const {
    const int side = theme().scaled(SymbolSize::tileGlyph);
    return mirrored(*this, QRect(width() - padding - side, padding, side, side));
}

int Tile::heightForWidth(int) const {
    return 2 * padding + theme().lineHeight(TextRole::headline) + summaryGap + 1 +
           2 * theme().lineHeight(TextRole::callout);
}

QSize Tile::sizeHint() const {
    return {theme().scaled(Width::tileMinimum), heightForWidth(0)};
}

QSize Tile::minimumSizeHint() const {
    return {theme().scaled(160), heightForWidth(0)};
}

void Tile::resizeEvent(QResizeEvent*) {
    const int left = textLeft();
    const int room = width() - left - padding - theme().scaled(SymbolSize::tileGlyph) - glyphGap;
    const int line = theme().lineHeight(TextRole::headline);
    m_heading->setGeometry(mirrored(*this, QRect(left, edge, room, line)));
    m_summary->setGeometry(mirrored(
        *this, QRect(left, edge + line + summaryGap, room, 2 * theme().lineHeight(TextRole::callout))));
    setToolTip(m_summary->isElided() ? m_summary->text() : QString());
}

void Tile::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setOpacity(opacityOf(*this));
    paintCard(painter, *this, event->rect(), Corner::tile, theme().color(ColorRole::card));
    if (isDown() || isHovered())
        paintRounded(painter, rect(), Corner::tile, theme().color(ColorRole::text1, isDown() ? 9 : 5));
    const int side = theme().scaled(SymbolSize::tile);
    const int line = theme().lineHeight(TextRole::headline);
    drawSymbol(painter, mirrored(*this, QRect(padding, edge + (line - side) / 2, side, side)), m_symbol,
               theme().color(ColorRole::accent));
    drawSymbol(painter, glyphPlace(), QString::fromUtf8(symbol(m_status)),
               theme().color(glyphColor(m_status)));
}

} // namespace tessivo
