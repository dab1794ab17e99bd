#include "app/pages/compare/ComparisonView.h"

#include "app/controls/Button.h"
#include "app/controls/FactGrid.h"
#include "app/controls/Panel.h"
#include "app/controls/SelectableText.h"
#include "app/controls/TextLabel.h"
#include "app/model/QtText.h"
#include "kit/report/ComparisonText.h"
#include "kit/support/Text.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tessivo {

namespace {

constexpr int sidePadding = 22;
constexpr int sideLabel = 56;            // "Before" and "After", at text scale 1
constexpr std::size_t longestLine = 600; // bytes
constexpr std::size_t mostLines = 6;

QString beginning(const std::string& text) {
    if (text.size() <= longestLine) return qt(Text::singleLine(text));
    return qt(Text::singleLine(Text::repaired(text.substr(0, longestLine)))) + u'…';
}

QString words(const std::vector<std::string>& lines) {
    if (lines.empty()) return qt(ComparisonText::notTold);
    QStringList shown;
    for (const std::string& line : lines) {
        if (std::size_t(shown.size()) == mostLines) {
            shown << QString("and %1 more lines").arg(lines.size() - mostLines);
            break;
        }
        shown << beginning(line);
    }
    return shown.join(u'\n');
}

ColorRole color(Change change) {
    switch (change) {
    case Change::worse:
        return ColorRole::red;
    case Change::notConfirmed:
        return ColorRole::orange;
    case Change::better:
        return ColorRole::green;
    case Change::changed:
    case Change::unchanged:
        break;
    }
    return ColorRole::text1;
}

/// "Before" or "After", and beside it the words.
QWidget* sideRow(const QString& name, const std::vector<std::string>& lines) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Space::s);
    auto* label = new TextLabel(name, TextRole::body, ColorRole::text2);
    label->setMaximumLines(1);
    label->setFixedWidth(theme().scaled(sideLabel));
    auto* text = new SelectableText(words(lines), TextRole::body, ColorRole::text1);
    layout->addWidget(label, 0, Qt::AlignTop);
    layout->addWidget(text, 1);
    return row;
}

Panel* itemPanel(const ComparedItem& item) {
    auto* panel = new Panel(Panel::Kind::inner);
    panel->setPadding(Space::block, Space::l);
    QString name = qt(item.name);
    if (item.remark) name += ": " + qt(*item.remark);
    auto* title = new TextLabel(name, TextRole::headline);
    title->setHeading(true);
    panel->add(title);
    panel->add(sideRow("Before", item.before), Space::xxs);
    panel->add(sideRow("After", item.after), Space::xxs);
    return panel;
}

TextLabel* groupHeading(const QString& text, ColorRole color) {
    auto* heading = new TextLabel(text, TextRole::headline, color);
    heading->setHeading(true);
    return heading;
}

Panel* factPanel(const std::vector<const ComparedItem*>& items) {
    auto* facts = new FactGrid;
    for (const ComparedItem* item : items)
        facts->addFact(qt(item->name), words(item->after));
    auto* panel = new Panel(Panel::Kind::inner);
    panel->setPadding(Space::block, Space::xxs);
    panel->add(facts);
    return panel;
}

/// The scrolling column as a stop of the Tab key.
class Items final : public ScrollColumn, public FocusShape {
public:
    explicit Items(QWidget* parent) : ScrollColumn(parent, QWIDGETSIZE_MAX) {
        setAccessibleName("Differences");
        setFocusPolicy(Qt::TabFocus);
        setPadding(sidePadding, Space::xs, Space::xl);
    }
    QWidget* focusShapeWidget() override { return this; }
    // Within its edges: it is as wide as the sheet.
    QRectF focusShapeRect() const override {
        return QRectF(rect()).adjusted(Space::m, 0, -Space::m, -Space::xxs);
    }
    double focusShapeCorner() const override { return Corner::textBox; }
};

/// Shows and hides what stands under it.
class FoldButton final : public Button {
public:
    FoldButton(const QString& text, QWidget* folded) : Button(text), m_folded(folded) {
        setLeading(true);
        connect(this, &Button::clicked, this, [this] { setOpen(!m_open); });
        setOpen(false);
    }

    void addSpokenState(QAccessible::State& state) const override {
        state.expandable = true;
        state.expanded = m_open;
        state.collapsed = !m_open;
    }

private:
    void setOpen(bool open) {
        m_open = open;
        m_folded->setVisible(open);
        setLabel(text(), open ? "chevron.down" : "chevron.right");
        QAccessible::State changed;
        changed.expanded = changed.collapsed = true;
        QAccessibleStateChangeEvent event(this, changed);
        QAccessible::updateAccessibility(&event);
    }

    QWidget* m_folded;
    bool m_open = false;
};

} // namespace

ComparisonView::ComparisonView(QWidget* parent) : QWidget(parent) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
}

ScrollColumn* ComparisonView::begin() {
    delete m_column;
    m_fold = nullptr;
    m_column = new Items(this);
    layout()->addWidget(m_column);
    return m_column;
}

void ComparisonView::setWords(const QString& words) {
    begin()->add(new TextLabel(words, TextRole::body, ColorRole::text2));
}

void ComparisonView::setComparison(const ReportComparison& comparison) {
    begin();
    addDifferences(comparison);
    addSame(comparison);
}

void ComparisonView::follow(QWidget* stop) {
    setTabOrder(stop, m_column);
    if (m_fold) setTabOrder(m_column, m_fold);
}

void ComparisonView::addDifferences(const ReportComparison& comparison) {
    const std::string caution = ComparisonText::caution(comparison);
    if (!caution.empty()) m_column->add(new TextLabel(qt(caution), TextRole::body, ColorRole::text2));
    const int firstGap = caution.empty() ? 0 : Space::xl;
    std::optional<Change> group;
    for (const ComparedItem& item : comparison.items) {
        const bool isFirst = group != item.change;
        if (isFirst)
            m_column->add(groupHeading(qt(ComparisonText::heading(item.change)), color(item.change)),
                          group ? Space::xl : firstGap);
        group = item.change;
        m_column->add(itemPanel(item), Space::s);
    }
    if (comparison.items.empty())
        m_column->add(
            new TextLabel("No difference in the words of the two reports.", TextRole::body, ColorRole::text2),
            firstGap);
}

void ComparisonView::addSame(const ReportComparison& comparison) {
    std::vector<const ComparedItem*> same, apart, folded;
    const auto sort = [&](const ComparedItem& item) {
        if (item.folded)
            folded.push_back(&item);
        else
            (item.before == item.after ? same : apart).push_back(&item);
    };
    for (const ComparedItem& item : comparison.identity)
        sort(item);
    if (!apart.empty()) m_column->add(groupHeading("Which Mac", ColorRole::text1), Space::xl);
    for (const ComparedItem* item : apart)
        m_column->add(itemPanel(*item), Space::s);
    apart.clear();
    for (const ComparedItem& item : comparison.unchanged)
        sort(item);
    if (!same.empty() || !apart.empty() || !folded.empty())
        m_column->add(groupHeading("The same in both", ColorRole::text1), Space::xl);
    if (!same.empty()) m_column->add(factPanel(same), Space::s);
    for (const ComparedItem* item : apart)
        m_column->add(itemPanel(*item), Space::s);
    if (folded.empty()) return;
    Panel* tests = factPanel(folded);
    const auto title = ComparisonText::foldedTitle(std::int64_t(folded.size()));
    m_fold = new FoldButton(qt(title), tests);
    m_column->add(m_fold, Space::s, Qt::AlignLeft);
    m_column->add(tests, Space::s);
}

} // namespace tessivo
