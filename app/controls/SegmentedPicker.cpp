#include "app/controls/SegmentedPicker.h"

#include "app/controls/ClickControl.h"
#include "app/look/Metrics.h"
#include "app/look/Paint.h"

#include <utility>

namespace tessivo {
namespace {

constexpr int padding = 17;
constexpr int inset = 1;

} // namespace

class SegmentedPicker::Segment final : public ClickControl {
public:
    Segment(const QString& text, QWidget* parent) : ClickControl(parent) {
        setText(text);
        setCorner(Corner::segment);
        setCheckable(true);
        setAutoExclusive(true);
        setFocusPolicy(Qt::NoFocus);
        // The chosen one is the picker's one stop also before the focus has been there, and takes it along.
        connect(this, &QAbstractButton::toggled, this, [this](bool chosen) {
            setFocusPolicy(chosen ? Qt::TabFocus : Qt::NoFocus);
            const QWidget* focused = window()->focusWidget();
            if (chosen && focused && focused != this && focused->parentWidget() == parentWidget())
                setFocus(Qt::OtherFocusReason);
        });
    }

    QSize sizeHint() const override {
        return {theme().textWidth(TextRole::controlStrong, text()) + 2 * padding,
                theme().scaled(Height::control) - 2 * inset};
    }

    QAccessible::Role spokenRole() const override { return QAccessible::RadioButton; }
    void addSpokenState(QAccessible::State& state) const override {
        state.selectable = true;
        state.selected = isChecked();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setOpacity(opacityOf(*this));
        if (isChecked())
            paintRounded(painter, rect(), Corner::segment, theme().color(ColorRole::segment),
                         theme().color(ColorRole::controlBorder));
        else if (isDown() || isHovered())
            paintRounded(painter, rect(), Corner::segment, theme().color(ColorRole::text1, isDown() ? 9 : 5));
        painter.setFont(theme().font(isChecked() ? TextRole::controlStrong : TextRole::control));
        painter.setPen(theme().color(isChecked() ? ColorRole::text1 : ColorRole::text2));
        const QFontMetricsF metrics(painter.font());
        const QString shown = metrics.elidedText(text(), Qt::ElideRight, width() - 8);
        paintLine(painter, (width() - metrics.horizontalAdvance(shown)) / 2, height(), shown);
    }
};

SegmentedPicker::SegmentedPicker(const QString& name, const QStringList& choices, QWidget* parent)
    : QWidget(parent) {
    setAccessibleName(name);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    for (const QString& choice : choices) {
        auto* segment = new Segment(choice, this);
        const int index = int(m_segments.size());
        connect(segment, &QAbstractButton::clicked, this, [this, index] {
            if (std::exchange(m_current, index) != index) Q_EMIT chosen(index);
        });
        m_segments.append(segment);
    }
    setCurrent(0);
}

void SegmentedPicker::setCurrent(int index) {
    m_current = index;
    m_segments[index]->setChecked(true);
}

QSize SegmentedPicker::sizeHint() const {
    int width = 2 * inset;
    for (const Segment* segment : m_segments)
        width += segment->sizeHint().width();
    return {width, theme().scaled(Height::control)};
}

QSize SegmentedPicker::minimumSizeHint() const {
    int widest = 0;
    for (const Segment* segment : m_segments)
        widest = std::max(widest, segment->sizeHint().width());
    return {widest + 2 * inset, theme().scaled(Height::control)};
}

bool SegmentedPicker::isStacked(int width) const {
    return width < sizeHint().width();
}

int SegmentedPicker::heightForWidth(int width) const {
    const int one = theme().scaled(Height::control);
    return isStacked(width) ? int(m_segments.size()) * (one - 2 * inset) + 2 * inset : one;
}

void SegmentedPicker::resizeEvent(QResizeEvent*) {
    const bool stacked = isStacked(width());
    int x = inset, y = inset;
    for (Segment* segment : m_segments) {
        const QSize size(stacked ? width() - 2 * inset : segment->sizeHint().width(),
                         segment->sizeHint().height());
        segment->setGeometry(mirrored(*this, QRect(QPoint(x, y), size)));
        if (stacked)
            y += size.height();
        else
            x += size.width();
    }
}

void SegmentedPicker::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setOpacity(opacityOf(*this));
    QRectF box = rect();
    if (!isStacked(width())) box.setWidth(std::min(width(), sizeHint().width()));
    paintRounded(painter, mirrored(*this, box.toRect()), Corner::track, theme().color(ColorRole::track),
                 theme().isDark() ? theme().color(ColorRole::text1, 8)
                                  : theme().color(ColorRole::controlBorder));
}

} // namespace tessivo
