#include "app/controls/StatusBadge.h"

#include "app/look/Metrics.h"
#include "app/look/Paint.h"
#include "app/look/Symbols.h"

namespace tessivo {
namespace {

constexpr int padding = 10;
constexpr int gap = 5;

} // namespace

ColorRole wordColor(TestStatus status) {
    switch (tint(status)) {
    case Tint::green:
        return ColorRole::green;
    case Tint::red:
        return ColorRole::red;
    case Tint::orange:
        return ColorRole::orange;
    case Tint::blue:
        return ColorRole::blue;
    case Tint::secondary:
        return ColorRole::gray;
    }
    return ColorRole::gray;
}

ColorRole glyphColor(TestStatus status) {
    switch (tint(status)) {
    case Tint::green:
        return ColorRole::greenGlyph;
    case Tint::red:
        return ColorRole::redGlyph;
    case Tint::orange:
        return ColorRole::orangeGlyph;
    case Tint::blue:
        return ColorRole::blueGlyph;
    case Tint::secondary:
        return ColorRole::grayGlyph;
    }
    return ColorRole::grayGlyph;
}

StatusBadge::StatusBadge(TestStatus status, QWidget* parent) : QWidget(parent), m_status(status) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void StatusBadge::setStatus(TestStatus status) {
    if (status == m_status) return;
    m_status = status;
    updateGeometry();
    update();
    announceNameChange(this);
}

QString StatusBadge::spokenName() const {
    return QString::fromUtf8(label(m_status));
}

QSize StatusBadge::sizeHint() const {
    return {padding + theme().scaled(SymbolSize::badge) + gap +
                theme().textWidth(TextRole::badge, spokenName()) + padding,
            theme().scaled(Height::badge)};
}

void StatusBadge::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor words = theme().color(wordColor(m_status));
    paintRounded(painter, rect(), height() / 2.0, theme().color(wordColor(m_status), 12));
    const double side = theme().scaled(SymbolSize::badge);
    drawSymbol(painter, QRectF(padding, (height() - side) / 2, side, side),
               QString::fromUtf8(symbol(m_status)), words);
    painter.setFont(theme().font(TextRole::badge));
    painter.setPen(words);
    paintLine(painter, padding + side + gap, height(), spokenName());
}

StatusGlyph::StatusGlyph(std::optional<TestStatus> status, int size, QWidget* parent)
    : QWidget(parent), m_status(status), m_size(size) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void StatusGlyph::setStatus(std::optional<TestStatus> status) {
    if (status == m_status) return;
    m_status = status;
    update();
    announceNameChange(this);
}

QSize StatusGlyph::sizeHint() const {
    return QSize(1, 1) * theme().scaled(m_size);
}

QString StatusGlyph::spokenName() const {
    return m_status ? QString::fromUtf8(label(*m_status)) : QString();
}

void StatusGlyph::paintEvent(QPaintEvent*) {
    if (!m_status) return;
    QPainter painter(this);
    drawSymbol(painter, rect(), QString::fromUtf8(symbol(*m_status)), theme().color(glyphColor(*m_status)));
}

SymbolView::SymbolView(const QString& name, int size, ColorRole color, QWidget* parent)
    : QWidget(parent), m_name(name), m_size(size), m_color(color) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SymbolView::setSymbol(const QString& name, ColorRole color) {
    if (name == m_name && color == m_color) return;
    m_name = name;
    m_color = color;
    update();
}

QSize SymbolView::sizeHint() const {
    return QSize(1, 1) * theme().scaled(m_size);
}

void SymbolView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(opacityOf(*this));
    drawSymbol(painter, rect(), m_name, theme().color(m_color));
}

} // namespace tessivo
