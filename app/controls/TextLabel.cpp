#include "app/controls/TextLabel.h"

#include "app/look/Paint.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace tessivo {
namespace {

constexpr int leastWidth = 60;
constexpr double endless = 1e6;
/// Laying text out takes time by more than its length; of a longer one the beginning is shown.
constexpr qsizetype longestShown = 10'000;

QString beginning(const QString& text) {
    if (text.size() <= longestShown) return text;
    // Not between the halves of a surrogate pair.
    return text.left(longestShown - text.at(longestShown - 1).isHighSurrogate()) + QChar(0x2026);
}

} // namespace

TextLabel::TextLabel(const QString& text, TextRole role, ColorRole color, QWidget* parent)
    : QWidget(parent), m_text(text), m_role(role), m_color(color) {}

void TextLabel::setText(const QString& text) {
    if (text == m_text) return;
    m_text = text;
    textHasChanged();
    announceNameChange(this);
}

void TextLabel::setTextRole(TextRole role) {
    if (role == m_role) return;
    m_role = role;
    textHasChanged();
}

void TextLabel::setColorRole(ColorRole role) {
    if (role == m_color) return;
    m_color = role;
    update();
}

void TextLabel::setAlignment(Qt::Alignment horizontal) {
    m_alignment = horizontal;
    textHasChanged();
}

void TextLabel::setMaximumLines(int lines) {
    m_maximumLines = lines;
    textHasChanged();
}

void TextLabel::setReservedLines(int lines) {
    m_reservedLines = lines;
    textHasChanged();
}

void TextLabel::setTabularDigits(bool tabular) {
    m_tabular = tabular;
    textHasChanged();
}

void TextLabel::textHasChanged() {
    m_layout.clearLayout();
    m_brokenAt = m_naturalWidth = -1;
    updateToolTip();
    updateGeometry();
    update();
}

/// Breaks the text into lines of the given width at the role's line height.
void TextLabel::breakAt(double width) const {
    if (width == m_brokenAt) return;
    m_brokenAt = width;
    if (!m_elided && m_layout.lineCount() == 1 && m_layout.lineAt(0).naturalTextWidth() <= width) {
        // Shaping is what a layout costs, and a text that fits needs none anew.
        m_layout.lineAt(0).setLineWidth(width);
        return;
    }
    const QFont font = theme().font(m_role);
    const int lineHeight = theme().lineHeight(m_role);
    const double baselineInLine = baseline();
    QString shown = beginning(m_text);
    shown.replace(QLatin1Char('\n'), QChar::LineSeparator);
    QTextOption option(m_alignment);
    option.setWrapMode(m_maximumLines == 1 ? QTextOption::ManualWrap
                                           : QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_layout.setFont(font);
    m_layout.setTextOption(option);
    m_layout.setCacheEnabled(true);

    m_elided = false;
    for (;;) {
        m_layout.setText(shown);
        m_layout.beginLayout();
        int lines = 0, lastStart = 0;
        double widest = 0;
        for (QTextLine line = m_layout.createLine(); line.isValid(); line = m_layout.createLine()) {
            line.setLineWidth(width);
            line.setPosition(QPointF(0, lines * lineHeight + baselineInLine - line.ascent()));
            if (m_maximumLines > 0 && lines == m_maximumLines - 1) {
                lastStart = line.textStart();
                widest = line.naturalTextWidth();
            }
            ++lines;
        }
        m_layout.endLayout();
        const bool tooMany =
            m_maximumLines > 0 && (lines > m_maximumLines || (lines == m_maximumLines && widest > width));
        if (!tooMany || m_elided) return;
        QString rest = shown.mid(lastStart);
        rest.replace(QChar::LineSeparator, QLatin1Char(' '));
        shown = shown.left(lastStart) + QFontMetricsF(font).elidedText(rest, Qt::ElideRight, width);
        m_elided = true;
    }
}

bool TextLabel::isElided() const {
    if (m_maximumLines == 0) return false;
    breakAt(width());
    return m_elided;
}

void TextLabel::updateToolTip() {
    if (m_maximumLines > 0) setToolTip(isElided() ? beginning(m_text) : QString());
}

double TextLabel::baseline() const {
    const QFontMetricsF metrics(theme().font(m_role));
    return std::round((theme().lineHeight(m_role) - metrics.ascent() - metrics.descent()) / 2 +
                      metrics.ascent());
}

double TextLabel::naturalWidth() const {
    if (m_naturalWidth < 0) {
        if (m_tabular) {
            m_naturalWidth = drawTabular(nullptr, {});
        } else {
            breakAt(endless);
            m_naturalWidth = 0;
            m_naturalLines = m_layout.lineCount();
            for (int i = 0; i < m_layout.lineCount(); ++i)
                m_naturalWidth = std::max(m_naturalWidth, m_layout.lineAt(i).naturalTextWidth());
        }
    }
    return m_naturalWidth;
}

int TextLabel::heightForWidth(int width) const {
    int lines = 1;
    if (!singleLine()) {
        const bool fits = width >= naturalWidth();
        if (!fits) breakAt(width);
        lines = fits ? m_naturalLines : m_layout.lineCount();
    }
    return std::max({lines, m_reservedLines, 1}) * theme().lineHeight(m_role);
}

QSize TextLabel::sizeHint() const {
    const int width = int(std::ceil(naturalWidth()));
    return {width, heightForWidth(width)};
}

QSize TextLabel::minimumSizeHint() const {
    const int width = int(std::ceil(naturalWidth()));
    if (m_tabular) return {width, heightForWidth(width)};
    return {std::min(width, theme().scaled(leastWidth)),
            std::max(1, m_reservedLines) * theme().lineHeight(m_role)};
}

void TextLabel::resizeEvent(QResizeEvent*) {
    updateToolTip();
}

void TextLabel::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LayoutDirectionChange || event->type() == QEvent::FontChange)
        textHasChanged();
    QWidget::changeEvent(event);
}

void TextLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(opacityOf(*this));
    painter.setPen(theme().color(m_color));
    if (m_tabular) {
        double left = 0;
        if (m_alignment & Qt::AlignHCenter) left = (width() - naturalWidth()) / 2;
        if (m_alignment & Qt::AlignRight) left = width() - naturalWidth();
        drawTabular(&painter, {left, baseline() + topOf()});
        return;
    }
    breakAt(width());
    m_layout.draw(&painter, QPointF(0, topOf()), highlights());
}

/// In more room than the text needs, as beside a taller control, it stands in the middle.
int TextLabel::topOf() const {
    return std::max(0, (height() - heightForWidth(width())) / 2);
}

/// The font offers no way to its tabular digits here, so each digit is centred in the widest one's cell and
/// what stands between them is drawn as a whole. Draws nothing without a painter; returns the width.
double TextLabel::drawTabular(QPainter* painter, const QPointF& start) const {
    const QFont font = theme().font(m_role);
    const QFontMetricsF metrics(font);
    const double cell = metrics.horizontalAdvance(QLatin1Char('0'));
    if (painter) painter->setFont(font);
    double x = start.x();
    for (qsizetype i = 0, end = 0; i < m_text.size(); i = end) {
        const bool digit = m_text.at(i).isDigit();
        for (end = i + 1; !digit && end < m_text.size() && !m_text.at(end).isDigit();)
            ++end;
        const QString piece = m_text.mid(i, end - i);
        const double width = metrics.horizontalAdvance(piece);
        if (painter) painter->drawText(QPointF(x + (digit ? (cell - width) / 2 : 0), start.y()), piece);
        x += digit ? cell : width;
    }
    return x - start.x();
}

QAccessible::Role TextLabel::spokenRole() const {
    return m_heading ? QAccessible::Heading : QAccessible::StaticText;
}

int TextLabel::positionAt(const QPointF& point) const {
    breakAt(width());
    const int count = m_layout.lineCount();
    if (count == 0) return 0;
    const int line = std::clamp(int((point.y() - topOf()) / theme().lineHeight(m_role)), 0, count - 1);
    return std::min(m_layout.lineAt(line).xToCursor(point.x()), int(m_text.size()));
}

} // namespace tessivo
