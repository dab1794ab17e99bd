#include "app/pages/display/DisplayTestView.h"

#include "app/controls/Button.h"
#include "app/controls/Panel.h"
#include "app/controls/Picker.h"
#include "app/controls/TextLabel.h"
#include "app/controls/TileGrid.h"
#include "app/layout/WrapRow.h"
#include "app/pages/display/ColorSwatch.h"
#include "app/pages/frame/AnswerButtons.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QScreen>
#include <algorithm>

namespace tessivo {
namespace {

constexpr int screenPickerWidth = 255; // 280 with its label
constexpr int leastSwatchWidth = 72;
const QString describeText = "Describe where in the note below, so a buyer knows what to expect.";

/// The name that the system gives a screen, or its model where it gives none.
QString localizedName(const QScreen& screen) {
    return screen.name().isEmpty() ? screen.model() : screen.name();
}

} // namespace

const char* const DisplayTestView::how =
    "Clean the screen, then show each color full screen. Look closely across the whole screen for dots "
    "that stay lit or stay dark (dead or stuck pixels), and for patches or bright edges on black. Click "
    "or press Space for the next color, Esc to stop.";

DisplayTestView::DisplayTestView(const PageContext& context, Screens screens, QWidget* parent)
    : LiveContent(parent),
      m_model(context.model),
      m_screens(screens ? std::move(screens) : [] { return QGuiApplication::screens(); }),
      m_colorScreen(context.model.platform().keyEvents(), context.model.platform().desktop(),
                    context.model.platform().scheduler()) {
    add(makeColors());
    add(makeQuestion(), Space::block);

    connect(qApp, &QGuiApplication::screenAdded, this, &DisplayTestView::listScreens);
    connect(qApp, &QGuiApplication::primaryScreenChanged, this, &DisplayTestView::listScreens);
    // The list still holds the screen while its going is told.
    connect(qApp, &QGuiApplication::screenRemoved, this, &DisplayTestView::listScreens, Qt::QueuedConnection);
    connect(&m_model, &AppModel::stateChanged, this, &DisplayTestView::follow);
    listScreens();
    follow();
}

QWidget* DisplayTestView::makeColors() {
    const auto& colors = DisplayTest::colors();
    auto* row = new TileGrid(nullptr, leastSwatchWidth, Space::tile, int(colors.size()));
    row->layout()->setContentsMargins(Space::block, Space::block, Space::block, Space::block);
    for (const std::string& color : colors) {
        m_swatches.push_back(new ColorSwatch(color));
        row->add(m_swatches.back());
    }

    auto* buttons = new WrapRow(nullptr, Space::block, Space::m);
    buttons->layout()->setContentsMargins(Space::block, Space::l + 2, Space::block, Space::l + 2);
    auto* show = new Button("Show Colors Full Screen", "rectangle.inset.filled", Button::Kind::prominent);
    show->setDefaultAction(true);
    connect(show, &Button::clicked, this, &DisplayTestView::showColors);
    buttons->add(show);

    m_on = new QWidget;
    auto* on = new QHBoxLayout(m_on);
    on->setContentsMargins(0, 0, 0, 0);
    on->setSpacing(Space::s);
    on->addWidget(new TextLabel("On", TextRole::body, ColorRole::text2), 0, Qt::AlignVCenter);
    m_picker = new Picker("On");
    m_picker->setPreferredWidth(screenPickerWidth);
    connect(m_picker, &Picker::activated, this, [this](int index) { m_screenIndex = index; });
    on->addWidget(m_picker);
    buttons->add(m_on);

    auto* card = new Panel(Panel::Kind::list);
    card->addRow(row);
    card->addRow(buttons);
    return card;
}

QWidget* DisplayTestView::makeQuestion() {
    auto* card = new Panel;
    const auto question = "Did you see any dots that stayed lit or dark?";
    card->add(new TextLabel(question, TextRole::headline));
    m_answer = new AnswerButtons("None seen", "Yes, I saw some");
    m_answer->setQuestion(question);
    connect(m_answer, &AnswerButtons::answered, this, [this](ManualAnswer answer) {
        m_model.change([answer](SessionState& state) { state.display.answer = answer; });
    });
    card->add(m_answer, Space::m);
    m_describe = new TextLabel({}, TextRole::callout, ColorRole::text2);
    m_describe->setReservedLines(1);
    card->add(m_describe, Space::m);
    return card;
}

void DisplayTestView::listScreens() {
    QStringList names;
    for (const QScreen* screen : m_screens())
        names.append(localizedName(*screen));
    m_picker->setChoices(names);
    m_picker->setCurrentIndex(int(std::min(m_screenIndex, names.size() - 1)));
    m_on->setVisible(names.size() >= 2);
}

void DisplayTestView::showColors() {
    const QList<QScreen*> screens = m_screens();
    if (screens.isEmpty()) return;
    QScreen& screen = *screens[std::min(m_screenIndex, screens.size() - 1)];
    m_model.change(
        [&screen](SessionState& state) { state.display.screenName = localizedName(screen).toStdString(); });
    m_colorScreen.show(screen, [this](const std::string& color) {
        m_model.change([&color](SessionState& state) { state.display.shown.insert(color); });
    });
}

void DisplayTestView::follow() {
    const DisplayTest& test = m_model.state().display;
    const auto& colors = DisplayTest::colors();
    for (std::size_t i = 0; i < colors.size(); ++i)
        m_swatches[i]->setShown(test.shown.contains(colors[i]));
    m_answer->setAnswer(test.answer);
    m_describe->setText(test.answer == ManualAnswer::problem ? describeText : QString());
}

} // namespace tessivo
