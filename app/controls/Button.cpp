#include "app/controls/Button.h"

#include "app/look/Metrics.h"
#include "app/look/Paint.h"
#include "app/look/Symbols.h"

#include <QShortcut>

namespace tessivo {
namespace {

constexpr int symbolGap = 6;
constexpr int narrowPadding = 8;
constexpr int wrapFlags = Qt::AlignCenter | Qt::TextWordWrap | Qt::TextHideMnemonic;

} // namespace

Button::Button(const QString& text, const QString& symbol, Kind kind, QWidget* parent)
    : ClickControl(parent), m_kind(kind), m_symbol(symbol) {
    setText(text);
    setCorner(Corner::button);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void Button::setLabel(const QString& text, const QString& symbol) {
    if (text == this->text() && symbol == m_symbol) return;
    m_symbol = symbol;
    setText(text);
    updateGeometry();
    update();
}

void Button::setWidthTexts(const QStringList& texts) {
    m_widthTexts = texts;
    updateGeometry();
}

void Button::setLeading(bool leading) {
    m_leading = leading;
    update();
}

void Button::setDefaultAction(bool isDefault) {
    if (isDefault == !m_returnKeys.isEmpty()) return;
    qDeleteAll(m_returnKeys);
    m_returnKeys.clear();
    if (!isDefault) return;
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* shortcut = new QShortcut(QKeySequence(key), this);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, this, &Button::click);
        m_returnKeys.append(shortcut);
    }
}

void Button::setCheckedTint(ColorRole tint) {
    m_tint = tint;
    setCheckable(true);
}

TextRole Button::textRole() const {
    return m_kind == Kind::prominent || isChecked() ? TextRole::controlStrong : TextRole::control;
}

int Button::padding() const {
    return m_kind == Kind::prominent ? 18 : 13;
}

int Button::leadingPadding() const {
    if (m_symbol.isEmpty()) return padding();
    return m_kind == Kind::prominent ? 14 : 11;
}

int Button::symbolRoom() const {
    return m_symbol.isEmpty() ? 0 : theme().scaled(SymbolSize::button) + symbolGap;
}

int Button::baseHeight() const {
    return theme().scaled(m_kind == Kind::prominent ? Height::prominent : Height::control);
}

int Button::naturalWidth(const QString& text) const {
    return leadingPadding() + symbolRoom() +
           theme().textWidth(m_tint ? TextRole::controlStrong : textRole(), text) + padding();
}

QSize Button::sizeHint() const {
    int width = naturalWidth(text());
    for (const QString& other : m_widthTexts)
        width = std::max(width, naturalWidth(other));
    // A layout that knows only hints learns here how high the present width makes it.
    return {width, testAttribute(Qt::WA_Resized) ? std::max(baseHeight(), heightForWidth(this->width()))
                                                 : baseHeight()};
}

void Button::resizeEvent(QResizeEvent* event) {
    ClickControl::resizeEvent(event);
    if (heightForWidth(event->size().width()) != heightForWidth(event->oldSize().width())) updateGeometry();
}

int Button::widestWord() const {
    int widest = 0;
    for (const QString& word : text().split(QLatin1Char(' ')))
        widest = std::max(widest, theme().textWidth(TextRole::controlStrong, word));
    return widest;
}

QSize Button::minimumSizeHint() const {
    return {std::min(naturalWidth(text()), widestWord() + 2 * narrowPadding), baseHeight()};
}

/// What the words get of a width: all they ask for, else lines between narrower paddings, in the end without
/// the symbol.
Button::Fit Button::fitTo(int width) const {
    if (width >= naturalWidth(text()))
        return {leadingPadding(), symbolRoom(), width - leadingPadding() - symbolRoom() - padding(), false};
    const int inner = std::max(1, width - 2 * narrowPadding);
    const int symbol = widestWord() + symbolRoom() <= inner ? symbolRoom() : 0;
    return {narrowPadding, symbol, inner - symbol, true};
}

int Button::heightForWidth(int width) const {
    const Fit fit = fitTo(width);
    if (!fit.wraps) return baseHeight();
    const QFontMetrics metrics(theme().font(textRole()));
    const int line = theme().lineHeight(textRole());
    return baseHeight() - line +
           std::max(line, metrics.boundingRect(QRect(0, 0, fit.room, 10000), wrapFlags, text()).height());
}

void Button::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(opacityOf(*this));
    const bool prominent = m_kind == Kind::prominent;
    QColor words = theme().color(prominent                     ? ColorRole::onAccent
                                 : m_kind == Kind::destructive ? ColorRole::red
                                                               : ColorRole::text1);
    const bool tinted = m_tint && isChecked();
    paintRounded(painter, rect(), Corner::button, controlFill(prominent, isDown(), isHovered()),
                 prominent || tinted ? QColor() : theme().color(ColorRole::controlBorder));
    if (tinted) {
        words = theme().color(*m_tint);
        paintRounded(painter, rect(), Corner::button, theme().color(*m_tint, 14), theme().color(*m_tint, 60),
                     1.5);
    }

    const Fit fit = fitTo(width());
    painter.setFont(theme().font(textRole()));
    const double textWidth = fit.wraps ? fit.room : theme().textWidth(textRole(), text());
    double x = fit.left + (m_leading ? 0.0 : std::max(0.0, (fit.room - textWidth) / 2));
    if (fit.symbolRoom > 0) {
        const double side = theme().scaled(SymbolSize::button);
        drawSymbol(painter, QRectF(x, (height() - side) / 2, side, side), m_symbol, words);
        x += fit.symbolRoom;
    }
    painter.setPen(words);
    if (fit.wraps)
        painter.drawText(QRectF(x, 0, fit.room, height()), wrapFlags, text());
    else
        paintLine(painter, x, height(), text());
}

} // namespace tessivo
