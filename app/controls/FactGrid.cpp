#include "app/controls/FactGrid.h"

#include "app/controls/SelectableText.h"
#include "app/look/Paint.h"

namespace tessivo {
namespace {

constexpr int columnGap = 32;

} // namespace

class FactGrid::Row final : public QWidget, public AccessibleTraits {
public:
    Row(const QString& label, const QString& value, bool monospaced, const Look& look, QWidget* parent)
        : QWidget(parent),
          m_look(look),
          m_label(new TextLabel(label, TextRole::body, ColorRole::text2, this)),
          m_value(new SelectableText(value, monospaced ? TextRole::monospaced : TextRole::body,
                                     ColorRole::text1, this)) {
        m_value->setAccessibleName(label);
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    }

    TextLabel& value() const { return *m_value; }

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override {
        const int line = theme().lineHeight(TextRole::body);
        const int text =
            std::max(m_value->heightForWidth(valueWidth(width)), m_label->heightForWidth(labelWidth()));
        return theme().scaled(m_look.rowHeight) - line + text;
    }
    QSize sizeHint() const override {
        const int width = valueLeft() + m_value->sizeHint().width();
        return {width, heightForWidth(width)};
    }
    QSize minimumSizeHint() const override {
        return {valueLeft() + m_value->minimumSizeHint().width(), theme().scaled(m_look.rowHeight)};
    }

    QAccessible::Role spokenRole() const override { return QAccessible::StaticText; }
    QString spokenName() const override { return m_label->text() + QStringLiteral(", ") + m_value->text(); }
    QString spokenValue() const override { return m_value->text(); }
    bool isOneElement() const override { return true; }

protected:
    void resizeEvent(QResizeEvent*) override {
        const int top = (theme().scaled(m_look.rowHeight) - theme().lineHeight(TextRole::body)) / 2;
        const int label = labelWidth(), value = valueWidth(width());
        m_label->setGeometry(mirrored(*this, QRect(0, top, label, m_label->heightForWidth(label))));
        m_value->setGeometry(mirrored(*this, QRect(valueLeft(), top, value, m_value->heightForWidth(value))));
    }

private:
    int labelWidth() const { return theme().scaled(m_look.labelWidth); }
    int valueLeft() const { return labelWidth() + m_look.gap; }
    int valueWidth(int width) const { return std::max(40, width - valueLeft()); }

    Look m_look;
    TextLabel* m_label;
    TextLabel* m_value;
};

class FactGrid::GridLayout final : public FlowingLayout {
public:
    GridLayout(QWidget* parent, const Look& look)
        : FlowingLayout(parent), m_twoColumns(look.twoColumns), m_dividerRoom(look.dividerRoom) {}

    const QList<QRect>& dividers() const { return m_dividers; }

protected:
    int naturalWidth() const override {
        int width = 0;
        for (const QLayoutItem* item : m_items)
            width = std::max(width, item->sizeHint().width());
        return m_twoColumns ? 2 * width + columnGap : width;
    }

    int arrange(const QRect& rect, bool apply) const override {
        const int columns = m_twoColumns && rect.width() >= Width::twoColumns ? 2 : 1;
        const int width = (rect.width() - (columns - 1) * columnGap) / columns;
        std::vector<QLayoutItem*> shown;
        for (QLayoutItem* item : m_items)
            if (!item->isEmpty()) shown.push_back(item);
        int y = rect.top();
        if (apply) m_dividers.clear();
        for (size_t start = 0; start < shown.size(); start += size_t(columns)) {
            const size_t end = std::min(shown.size(), start + size_t(columns));
            int height = 0;
            if (start > 0) {
                for (size_t i = start; apply && i < end; ++i)
                    m_dividers.append(
                        visual(rect, {rect.left() + int(i - start) * (width + columnGap), y, width, 1}));
                y += m_dividerRoom;
            }
            for (size_t i = start; i < end; ++i)
                height = std::max(height, itemHeight(shown[i], width));
            for (size_t i = start; apply && i < end; ++i) {
                const QRect cell(rect.left() + int(i - start) * (width + columnGap), y, width, height);
                put(shown[i], visual(rect, cell));
            }
            y += height;
        }
        return y - rect.top();
    }

private:
    QRect visual(const QRect& rect, const QRect& place) const {
        return QStyle::visualRect(parentWidget()->layoutDirection(), rect, place);
    }

    bool m_twoColumns;
    int m_dividerRoom;
    mutable QList<QRect> m_dividers;
};

FactGrid::FactGrid(const Look& look, QWidget* parent)
    : QWidget(parent), m_look(look), m_grid(new GridLayout(this, look)) {}

FactGrid::FactGrid(QWidget* parent) : FactGrid(Look{}, parent) {}

int FactGrid::addFact(const QString& label, const QString& value, bool monospaced) {
    auto* row = new Row(label, value, monospaced, m_look, this);
    m_rows.append(row);
    m_grid->addWidget(row);
    return int(m_rows.size()) - 1;
}

void FactGrid::setValue(int index, const QString& value) {
    Row* row = m_rows.value(index);
    if (!row || row->value().text() == value) return;
    row->value().setText(value);
    row->updateGeometry();
    announceNameChange(row);
}

void FactGrid::setFactVisible(int index, bool visible) {
    if (Row* row = m_rows.value(index)) row->setVisible(visible);
}

void FactGrid::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    for (const QRect& divider : m_grid->dividers())
        painter.fillRect(divider, theme().divider());
}

QString FactGrid::value(int index) const {
    const Row* row = m_rows.value(index);
    return row ? row->value().text() : QString();
}

} // namespace tessivo
