#include "app/pages/keyboard/KeyboardTestView.h"

#include "app/controls/Button.h"
#include "app/controls/Divider.h"
#include "app/controls/Panel.h"
#include "app/controls/Picker.h"
#include "app/controls/SectionHeading.h"
#include "app/controls/SymbolView.h"
#include "app/controls/TextLabel.h"
#include "app/layout/SplitRow.h"
#include "app/layout/WrapRow.h"
#include "app/look/Metrics.h"
#include "app/model/QtText.h"
#include "app/pages/frame/AnswerButtons.h"
#include "app/pages/keyboard/KeyboardDiagram.h"

#include <QApplication>
#include <QHBoxLayout>

namespace tessivo {
namespace {

constexpr int layoutPickerWidth = 210; // 260 with its label
constexpr int runningLineHeight = 20;

} // namespace

const char* const KeyboardTestView::how =
    "Choose Start, then press every key until the whole diagram turns green. Hold fn (🌐︎) for F1–F12. "
    "While the test runs, keys are only tested and do nothing else; press Esc twice to stop. If macOS "
    "keeps a key for itself (F11 shows the desktop), see it work, then click it on the diagram to tick it "
    "by hand.";

KeyboardTestView::KeyboardTestView(const PageContext& context, QWidget* parent)
    : LiveContent(parent), m_model(context.model), m_capture([this] { runHasChanged(); }) {
    add(makeControls());
    add(makeRunningLine(), Space::s);
    m_diagram = new KeyboardDiagram;
    connect(m_diagram, &KeyboardDiagram::tick, this, [this](KeyCode code) {
        m_model.change([code](SessionState& state) { state.keyboard.toggleHandChecked(code); });
    });
    add(m_diagram, Space::s);
    m_alsoPressed = new TextLabel({}, TextRole::callout, ColorRole::text2);
    add(m_alsoPressed, Space::m);
    add(new SectionHeading("Checks by hand"), Space::xxl);
    add(new TextLabel("macOS keeps these from apps, so look for them working and say what you saw.",
                      TextRole::body, ColorRole::text2));
    add(makeHandChecks(), Space::heading);

    connect(&m_model, &AppModel::stateChanged, this, &KeyboardTestView::follow);
    follow();
}

KeyboardTestView::~KeyboardTestView() {
    m_capture.stop();
}

QWidget* KeyboardTestView::makeControls() {
    auto* row = new WrapRow(nullptr, Space::block, Space::m);
    m_start = new Button("Start", "play.fill", Button::Kind::prominent);
    m_start->setWidthTexts({"Start", "Stop"});
    m_start->setDefaultAction(true);
    connect(m_start, &Button::clicked, this, &KeyboardTestView::startOrStop);
    row->add(m_start);

    auto* picking = new QWidget;
    auto* pickingRow = new QHBoxLayout(picking);
    pickingRow->setContentsMargins(0, 0, 0, 0);
    pickingRow->setSpacing(Space::s);
    pickingRow->addWidget(new TextLabel("Layout", TextRole::body, ColorRole::text2), 0, Qt::AlignVCenter);
    QStringList titles;
    for (const auto id : allCases<KeyboardLayout::ID>())
        titles.append(qt(KeyboardLayout::title(id)));
    m_layout = new Picker("Layout", titles);
    m_layout->setPreferredWidth(layoutPickerWidth);
    connect(m_layout, &Picker::activated, this, [this](int index) {
        m_model.change([index](SessionState& state) {
            state.keyboard.layout = allCases<KeyboardLayout::ID>().at(std::size_t(index));
        });
    });
    pickingRow->addWidget(m_layout);
    row->add(picking, Space::xxxl);

    m_count = new TextLabel;
    m_count->setTabularDigits(true);
    row->add(m_count);
    m_clear = new Button("Clear");
    connect(m_clear, &Button::clicked, this, [this] {
        m_model.change([](SessionState& state) {
            KeyboardTest fresh;
            fresh.layout = state.keyboard.layout;
            state.keyboard = fresh;
        });
    });
    row->add(m_clear, {}, Qt::AlignRight);
    return row;
}

QWidget* KeyboardTestView::makeRunningLine() {
    m_runningLine = new QWidget;
    auto* row = new QHBoxLayout(m_runningLine);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Space::s);
    row->addWidget(new SymbolView("keyboard.badge.ellipsis", SymbolSize::sidebar, ColorRole::accent), 0,
                   Qt::AlignVCenter);
    row->addWidget(new TextLabel("Testing keys. Press Esc twice to stop.", TextRole::body, ColorRole::accent),
                   1, Qt::AlignVCenter);
    m_runningLine->setMinimumHeight(theme().scaled(runningLineHeight));
    // The diagram below stays where it is when the line comes and goes.
    QSizePolicy policy = m_runningLine->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_runningLine->setSizePolicy(policy);
    m_runningLine->hide();
    return m_runningLine;
}

QWidget* KeyboardTestView::makeHandChecks() {
    auto* card = new Panel;
    card->setPadding(Space::block, Space::l);
    for (const ManualKeyCheck& check : ManualKeyCheck::all()) {
        auto* text = new Column;
        text->add(new TextLabel(qt(check.title), TextRole::headline));
        text->add(new TextLabel(qt(check.how), TextRole::callout, ColorRole::text2));
        auto* answers = new AnswerButtons("Works", "Problem", "Not on this keyboard");
        answers->setQuestion(qt(check.title));
        connect(answers, &AnswerButtons::answered, this, [this, id = check.id](ManualAnswer answer) {
            m_model.change([&](SessionState& state) { state.keyboard.manual[id] = answer; });
        });
        if (!m_answers.empty()) card->add(new Divider, Space::l);
        card->add(new SplitRow(text, answers, Width::twoColumns, Space::xxxl),
                  m_answers.empty() ? 0 : Space::l);
        m_answers.emplace(check.id, answers);
    }
    return card;
}

void KeyboardTestView::startOrStop() {
    if (m_capture.running()) {
        m_capture.stop();
        return;
    }
    // An input method would keep keys for itself while a text field has the focus.
    if (QWidget* focus = QApplication::focusWidget();
        focus && focus->testAttribute(Qt::WA_InputMethodEnabled))
        focus->clearFocus();
    m_capture.start([this](KeyCode code) { press(code); });
    m_model.platform().keyEvents().start(
        [this](KeyMark mark, KeyCode code) {
            m_capture.handle(mark, code);
            return true;
        },
        [this] { return m_model.state().keyboard.layout; });
}

void KeyboardTestView::press(KeyCode code) {
    // A key seen before changes nothing, and so saves nothing.
    if (m_model.state().keyboard.pressed.contains(code)) return showKeys();
    m_model.change([code](SessionState& state) { state.keyboard.press(code); });
}

void KeyboardTestView::runHasChanged() {
    const bool running = m_capture.running();
    m_start->setLabel(running ? "Stop" : "Start", running ? "stop.fill" : "play.fill");
    m_runningLine->setVisible(running);
    if (!running) m_model.platform().keyEvents().stop();
    showKeys();
}

void KeyboardTestView::showKeys() {
    m_diagram->show(m_model.state().keyboard, m_capture.running(), m_capture.flash());
}

void KeyboardTestView::follow() {
    const KeyboardTest& test = m_model.state().keyboard;
    m_layout->setCurrentIndex(int(test.layout));
    const auto progress = test.progress();
    m_count->setText(QString("%1 of %2 keys").arg(progress.done).arg(progress.total));
    m_clear->setEnabled(test.started());
    showKeys();
    const auto off = test.offDiagram().size();
    m_alsoPressed->setVisible(off > 0);
    m_alsoPressed->setText(QString("Also pressed: %1 key%2 that aren't on this diagram (a keypad, or "
                                   "another layout).")
                               .arg(off)
                               .arg(off == 1 ? QString() : "s"));
    for (const auto& [id, answers] : m_answers)
        answers->setAnswer(test.answer(id));
}

} // namespace tessivo
