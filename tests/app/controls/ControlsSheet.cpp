#include "tests/app/controls/ControlsSheet.h"

#include "app/controls/AnswerButtons.h"
#include "app/controls/Button.h"
#include "app/controls/Checkbox.h"
#include "app/controls/Chip.h"
#include "app/controls/FactGrid.h"
#include "app/controls/FocusRing.h"
#include "app/controls/GrowingTextField.h"
#include "app/controls/LinkLabel.h"
#include "app/controls/ListRows.h"
#include "app/controls/Meters.h"
#include "app/controls/Panel.h"
#include "app/controls/Picker.h"
#include "app/controls/SegmentedPicker.h"
#include "app/controls/StatusBadge.h"
#include "app/controls/Stepper.h"
#include "app/controls/TextLabel.h"
#include "app/controls/TileGrid.h"

namespace tessivo::pagetest {
namespace {

QString text(const char* words) {
    return QString::fromUtf8(words);
}

QWidget* captioned(const char* caption, QWidget* control) {
    auto* column = new Column;
    column->add(new TextLabel(text(caption), TextRole::callout, ColorRole::text2));
    column->add(control, 8, Qt::AlignLeft);
    return column;
}

QWidget* row(const QList<QWidget*>& widgets, int gap = 10) {
    auto* line = new WrapRow(nullptr, gap);
    for (QWidget* widget : widgets)
        line->add(widget);
    return line;
}

class Surface final : public Column {
public:
    explicit Surface(ColorRole role) : m_role(role) { column().setContentsMargins(10, 10, 10, 10); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), theme().color(m_role));
    }

private:
    ColorRole m_role;
};

QWidget* badges() {
    auto* line = new WrapRow(nullptr, 10, 10);
    for (const TestStatus status : allCases<TestStatus>())
        line->add(new StatusBadge(status));
    return line;
}

SidebarRow* sidebarRow(const char* title, TestStatus status) {
    auto* row = new SidebarRow(text(title), text("keyboard"));
    row->setStatus(status);
    return row;
}

} // namespace

ControlsSheet::ControlsSheet(QWidget* parent) : QWidget(parent) {
    auto* column = new ColumnLayout(this);
    column->setContentsMargins(28, 28, 28, 28);
    column->add(new TextLabel(text("Controls and states"), TextRole::pageTitle));

    auto* card = new Panel;
    column->add(card, 16);
    auto* states = new WrapRow(nullptr, 40, 16);
    const char* captions[] = {"Normal", "Hover", "Pressed", "Focus", "Disabled"};
    for (int i = 0; i < 5; ++i) {
        auto* start = new Button(text("Start"), text("play.fill"), Button::Kind::prominent);
        auto* clear = new Button(text("Clear"));
        for (Button* button : {start, clear}) {
            button->setHoverShown(i == 1);
            button->setDown(i == 2);
            if (i == 3) m_focused.append(button);
            button->setEnabled(i != 4);
        }
        states->add(captioned(captions[i], row({start, clear})));
    }
    card->add(states);

    QList<QWidget*> answers;
    for (const ManualAnswer answer : allCases<ManualAnswer>()) {
        auto* buttons = new AnswerButtons(text("Works"), text("Problem"), text("Not on this keyboard"));
        buttons->setAnswer(answer);
        answers.append(buttons);
    }
    card->add(captioned("Answers: none, and each one chosen", row(answers, 30)), 12);

    auto* segmented = new SegmentedPicker(text("System Information shows"),
                                          {text("Not checked yet"), text("Disabled"), text("Enabled")});
    segmented->setCurrent(1);
    auto* picker = new Picker(text("Layout"), {text("US (ANSI)"), text("International (ISO)")});
    picker->setPreferredWidth(200);
    auto* stepper = new Stepper(text("Ports on this Mac: %lld"), 0, 8, 194);
    stepper->setValue(4);
    card->add(row({captioned("Segmented picker", segmented), captioned("Picker", picker),
                   captioned("Stepper", stepper),
                   captioned("Link", new LinkLabel(text("How to back up your Mac")))},
                  40),
              12);

    QList<QWidget*> boxes;
    for (int i = 0; i < 4; ++i) {
        auto* box = new Checkbox;
        box->setAccessibleName(text("Step"));
        box->setChecked(i == 1 || i == 2);
        if (i == 2) m_focused.append(box);
        box->setEnabled(i != 3);
        boxes.append(box);
    }
    auto* progress = new ProgressBar;
    progress->setProgress(6, 10);
    auto* meter = new LevelBar;
    meter->setLevel(0.62, text("-23 decibels"));
    auto* met = new Chip(text("Click"));
    met->setMet(true);
    card->add(
        row({captioned("Checkbox: off, on, focus, disabled", row(boxes)),
             captioned("Destructive", new Button(text("Delete"), text("trash"), Button::Kind::destructive)),
             captioned("Progress", progress), captioned("Level meter", meter),
             captioned("Chips",
                       row({met, new Chip(text("Scroll")), new Chip(text("Pinch"), text("circle.dotted"))})),
             captioned("Tag", new Tag(text("Draft: check before posting"), text("exclamationmark.bubble")))},
            40),
        12);

    QList<QWidget*> fields;
    for (int i = 0; i < 3; ++i) {
        auto* field = new GrowingTextField(text("Describe it here."));
        field->setAccessibleName(text("Problem note"));
        if (i > 0) field->setText(text("One green dot near the left edge."));
        if (i == 2) m_focused.append(field);
        field->setFixedWidth(340);
        fields.append(field);
    }
    card->add(captioned("Text field: empty, with text, focus", row(fields, 20)), 12);

    auto* sidebar = new Surface(ColorRole::sidebar);
    sidebar->setFixedWidth(230);
    auto* selected = sidebarRow("Selected", TestStatus::works);
    selected->setSelected(true);
    auto* hovered = sidebarRow("Hover", TestStatus::unfinished);
    hovered->setHoverShown(true);
    sidebar->add(sidebarRow("Normal", TestStatus::notRun));
    sidebar->add(hovered, 4);
    sidebar->add(selected, 4);
    sidebar->add(sidebarRow("Not included", TestStatus::notIncluded), 4);
    auto* badgeCard = new Panel;
    badgeCard->add(new TextLabel(text("Status badges, on the card and on the window"), TextRole::callout,
                                 ColorRole::text2));
    badgeCard->add(badges(), 10);
    auto* onWindow = new Surface(ColorRole::window);
    onWindow->add(badges());
    badgeCard->add(onWindow, 10);
    badgeCard->setFixedWidth(590);
    column->add(row({sidebar, badgeCard}, 16), 16);

    auto* tiles = new TileGrid;
    const char* titles[] = {"Normal", "Hover", "Pressed", "Focus"};
    const TestStatus statuses[] = {TestStatus::works, TestStatus::unfinished, TestStatus::problem,
                                   TestStatus::checkByHand};
    for (int i = 0; i < 4; ++i) {
        auto* tile = new Tile(text(titles[i]), text("keyboard"));
        tile->setStatus(statuses[i], text("Every key works (77 keys, plus 3 checks by hand)"));
        tile->setHoverShown(i == 1);
        tile->setDown(i == 2);
        if (i == 3) m_focused.append(tile);
        tiles->add(tile);
    }
    column->add(tiles, 16);

    auto* facts = new Panel;
    facts->setPadding(16, 8);
    auto* grid = new FactGrid(FactGrid::identity());
    grid->addFact(text("Serial number"), text("J4N7WQX2PL"), true);
    grid->addFact(text("Model ID"), text("Mac14,2"), true);
    grid->addFact(text("Chip"), text("Apple M2"));
    grid->addFact(text("Memory"), text("16 GB"));
    facts->add(grid);
    column->add(facts, 16);
}

void ControlsSheet::showRings() {
    for (QWidget* widget : std::as_const(m_focused))
        (new FocusRing)->follow(widget);
}

} // namespace tessivo::pagetest
