#include "app/controls/FactGrid.h"

#include "app/controls/SelectableText.h"
#include "app/controls/TextLabel.h"
#include "app/layout/TileLayout.h"
#include "app/look/Accessible.h"
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

FactGrid::FactGrid(const Look& look, QWidget* parent) : QWidget(parent), m_look(look) {
    new TileLayout(this, (Width::twoColumns - columnGap) / 2, columnGap, look.twoColumns ? 2 : 1,
                   look.dividerRoom);
}

FactGrid::FactGrid(QWidget* parent) : FactGrid(Look{}, parent) {}

int FactGrid::addFact(const QString& label, const QString& value, bool monospaced) {
    auto* row = new Row(label, value, monospaced, m_look, this);
    m_rows.append(row);
    layout()->addWidget(row);
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
    for (const Row* row : m_rows)
        if (!row->isHidden() && row->y() > contentsRect().top())
            paintHairline(painter, QRect(row->x(), row->y() - m_look.dividerRoom, row->width(), 1));
}

QString FactGrid::value(int index) const {
    const Row* row = m_rows.value(index);
    return row ? row->value().text() : QString();
}

} // namespace tessivo
