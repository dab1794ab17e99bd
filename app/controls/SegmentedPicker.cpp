#include "app/controls/SegmentedPicker.h"

#include "app/controls/ClickControl.h"
#include "app/look/Metrics.h"
#include "app/look/Paint.h"

#include <QKeyEvent>

namespace tessivo {
namespace {

constexpr int padding = 17;
constexpr int inset = 1;

} // namespace

class SegmentedPicker::Segment final : public ClickControl {
public:
    Segment(const QString& text, SegmentedPicker& picker) : ClickControl(&picker), m_picker(picker) {
        setText(text);
        setCorner(Corner::segment);
    }

    void setChosen(bool chosen) {
        setFocusPolicy(chosen ? Qt::TabFocus : Qt::NoFocus);
        if (chosen == m_chosen) return;
        m_chosen = chosen;
        update();
        announceChoice(this);
    }

    QSize sizeHint() const override {
        return {theme().textWidth(TextRole::controlStrong, text()) + 2 * padding,
                theme().scaled(Height::control) - 2 * inset};
    }

    QAccessible::Role spokenRole() const override { return QAccessible::RadioButton; }
    void addSpokenState(QAccessible::State& state) const override {
        state.checkable = true;
        state.checked = m_chosen;
        state.selectable = true;
        state.selected = m_chosen;
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setOpacity(opacityOf(*this));
        if (m_chosen)
            paintRounded(painter, rect(), Corner::segment, theme().color(ColorRole::segment),
                         theme().color(ColorRole::controlBorder));
        else if (isDown() || isHovered())
            paintRounded(painter, rect(), Corner::segment, theme().color(ColorRole::text1, isDown() ? 9 : 5));
        painter.setFont(theme().font(m_chosen ? TextRole::controlStrong : TextRole::control));
        painter.setPen(theme().color(m_chosen ? ColorRole::text1 : ColorRole::text2));
        const QFontMetricsF metrics(painter.font());
        const QString shown = metrics.elidedText(text(), Qt::ElideRight, width() - 8);
        paintLine(painter, (width() - metrics.horizontalAdvance(shown)) / 2, height(), shown);
    }

    void keyPressEvent(QKeyEvent* event) override {
        const bool rightward = layoutDirection() == Qt::LeftToRight;
        switch (event->key()) {
        case Qt::Key_Left:
            m_picker.chooseFrom(this, rightward ? -1 : 1);
            break;
        case Qt::Key_Up:
            m_picker.chooseFrom(this, -1);
            break;
        case Qt::Key_Right:
            m_picker.chooseFrom(this, rightward ? 1 : -1);
            break;
        case Qt::Key_Down:
            m_picker.chooseFrom(this, 1);
            break;
        default:
            ClickControl::keyPressEvent(event);
        }
    }

private:
    SegmentedPicker& m_picker;
    bool m_chosen = false;
};

SegmentedPicker::SegmentedPicker(const QString& name, const QStringList& choices, QWidget* parent)
    : QWidget(parent) {
    setAccessibleName(name);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    for (const QString& choice : choices) {
        auto* segment = new Segment(choice, *this);
        connect(segment, &QAbstractButton::clicked, this,
                [this, segment] { choose(int(m_segments.indexOf(segment))); });
        m_segments.append(segment);
    }
    setCurrent(0);
}

void SegmentedPicker::setCurrent(int index) {
    m_current = index;
    for (int i = 0; i < m_segments.size(); ++i)
        m_segments[i]->setChosen(i == index);
}

void SegmentedPicker::choose(int index) {
    if (index < 0 || index >= m_segments.size() || index == m_current) return;
    setCurrent(index);
    Q_EMIT chosen(index);
}

void SegmentedPicker::chooseFrom(Segment* segment, int by) {
    const int index = std::clamp(int(m_segments.indexOf(segment)) + by, 0, int(m_segments.size()) - 1);
    m_segments[index]->setFocus(Qt::TabFocusReason);
    choose(index);
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

void SegmentedPicker::place() {
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

void SegmentedPicker::resizeEvent(QResizeEvent*) {
    place();
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
