#include "app/controls/GrowingTextField.h"
#include "app/pages/Pages.h"
#include "platform/simulated/MachineFile.h"
#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedControls.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "tests/app/ScriptedDialogs.h"
#include "tests/window/XServer.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenuBar>
#include <QScreen>
#include <QTest>
#include <gmock/gmock.h>

namespace tessivo::windowtest {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

QString nameOf(QWidget* widget) {
    auto* spoken = QAccessible::queryAccessibleInterface(widget);
    return spoken ? spoken->text(QAccessible::Name) : QString();
}

bool eventually(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 10'000);
}

/// Events that the server sent already are handled, and those that follow from them.
void settle() {
    QTest::qWait(60);
}

/// One page in a window with menus, on the real server.
class PageWindow : public ::testing::Test {
protected:
    void open(Page page) {
        window.setWindowTitle(QStringLiteral("Tessivo under test"));
        QMenu* file = window.menuBar()->addMenu(QStringLiteral("&File"));
        file->addAction(QStringLiteral("Close"), QKeySequence(Qt::CTRL | Qt::Key_W), [this] { ++closes; });
        file->addAction(QStringLiteral("Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), [this] { ++quits; });
        window.setCentralWidget(makePage(page, {model, dialogs}, nullptr));
        window.setGeometry(40, 40, 960, 1100);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window, 20'000));
        settle();
    }
    QAbstractButton* button(const QString& name) {
        for (auto* each : window.findChildren<QAbstractButton*>())
            if (each->isVisible() && nameOf(each) == name) return each;
        return nullptr;
    }
    GrowingTextField* note() { return window.findChild<GrowingTextField*>(); }
    const SessionState& state() const { return model.state(); }

    ManualScheduler clock;
    SimulatedPlatform platform{loadMachineFile(TESSIVO_MACHINES "/macbook-air-m2.json"), clock};
    SimulatedControls controls{platform};
    AppModel model{platform};
    pagetest::ScriptedDialogs dialogs;
    QMainWindow window;
    int closes = 0, quits = 0;
};

class KeyboardWindow : public PageWindow {
protected:
    void SetUp() override { open(Page::keyboard); }
    const std::set<KeyCode>& pressed() const { return state().keyboard.pressed; }
    bool runs() { return button(QStringLiteral("Stop")); }
    void start() {
        ASSERT_TRUE(clickWith(button(QStringLiteral("Start"))));
        ASSERT_TRUE(eventually([this] { return runs(); }));
    }
    void stop() {
        ASSERT_TRUE(key(QStringLiteral("Escape")) && key(QStringLiteral("Escape")));
        ASSERT_TRUE(eventually([this] { return !runs(); }));
    }
};

/// The server's own names of the keys, where they aren't ours.
const std::map<std::string, const char*> keyNames = {
    {"esc", "Escape"},
    {"delete", "BackSpace"},
    {"tab", "Tab"},
    {"lbracket", "bracketleft"},
    {"quote", "apostrophe"},
    {"rbracket", "bracketright"},
    {"caps", "Caps_Lock"},
    {"return", "Return"},
    {"shift", "Shift_L"},
    {"rshift", "Shift_R"},
    {"control", "Control_L"},
    {"option", "Alt_L"},
    {"command", "Super_L"},
    {"rcommand", "Super_R"},
    {"roption", "Alt_R"},
    {"left", "Left"},
    {"up", "Up"},
    {"down", "Down"},
    {"right", "Right"},
};

QString keyName(const KeySpec& key, KeyboardLayout::ID layout) {
    // The two keys that ANSI and ISO keyboards swap.
    if (key.id == "section") return QStringLiteral("grave"); // left of 1
    if (key.id == "grave" && layout == KeyboardLayout::ID::iso) return QStringLiteral("94");
    if (const auto known = keyNames.find(key.id); known != keyNames.end())
        return QString::fromLatin1(known->second);
    const QString id = QString::fromStdString(key.id);
    return key.kind == KeyKind::function ? id.toUpper() : id;
}

class EveryKey : public KeyboardWindow, public ::testing::WithParamInterface<KeyboardLayout::ID> {};

TEST_P(EveryKey, turnsTheDiagramGreen) {
    model.change([](SessionState& state) { state.keyboard.layout = GetParam(); });
    const KeyboardLayout& layout = KeyboardLayout::named(GetParam());
    start();
    for (const KeySpec& spec : layout.testableKeys()) {
        if (spec.id == "fn") continue; // no X server delivers it
        ASSERT_TRUE(key(keyName(spec, GetParam())));
        EXPECT_TRUE(eventually([&] { return pressed().contains(*spec.code); })) << spec.id;
    }
    key(QStringLiteral("Caps_Lock")); // off again
    EXPECT_TRUE(runs());
    EXPECT_THAT(state().keyboard.offDiagram(), IsEmpty());
    stop();
    ASSERT_TRUE(clickWith(button(QStringLiteral("fn, not tested"))));
    const auto total = std::int64_t(layout.codes().size());
    EXPECT_TRUE(
        eventually([&] { return state().keyboard.progress() == KeyboardTest::Progress{total, total}; }));
    for (const KeySpec& spec : layout.testableKeys()) {
        const QString name =
            QString::fromStdString(spec.name()) +
            (spec.id == "fn" ? QStringLiteral(", ticked by hand") : QStringLiteral(", tested"));
        QAbstractButton* shown = button(name);
        ASSERT_TRUE(shown) << spec.id;
        const QColor cap = shown->grab().toImage().pixelColor(shown->width() - 6, 4);
        EXPECT_EQ(cap, theme().color(ColorRole::keyDone)) << spec.id;
    }
    EXPECT_TRUE(quits == 0 && closes == 0 && note()->text().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Layouts, EveryKey,
                         ::testing::Values(KeyboardLayout::ID::ansi, KeyboardLayout::ID::iso),
                         [](const auto& layout) { return std::string(rawValue(layout.param)); });

/// Counts the repeats that the window system sends; asked before the page's own monitor.
class Repeats final : public QObject {
public:
    Repeats() { qApp->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->isAutoRepeat()) ++count;
        return false;
    }
    int count = 0;
};

TEST_F(KeyboardWindow, theReturnThatStartsIsNoKeySeen) {
    Repeats repeats;
    ASSERT_TRUE(xdotool({QStringLiteral("keydown"), QStringLiteral("Return")}));
    ASSERT_TRUE(eventually([this] { return runs(); }));
    ASSERT_TRUE(eventually([&] { return repeats.count >= 2; }));
    ASSERT_TRUE(xdotool({QStringLiteral("keyup"), QStringLiteral("Return")}));
    settle();
    EXPECT_TRUE(runs()) << "its repeats press nothing either";
    EXPECT_THAT(pressed(), IsEmpty());
    ASSERT_TRUE(key(QStringLiteral("Return")));
    EXPECT_TRUE(eventually([this] { return pressed().contains(36); }));
}

TEST_F(KeyboardWindow, aHeldEscCountsOnce) {
    start();
    Repeats repeats;
    ASSERT_TRUE(xdotool({QStringLiteral("keydown"), QStringLiteral("Escape")}));
    ASSERT_TRUE(eventually([&] { return repeats.count >= 3; })) << "the server repeats held keys";
    EXPECT_TRUE(runs());
    EXPECT_THAT(pressed(), ElementsAre(53));
    ASSERT_TRUE(xdotool({QStringLiteral("keyup"), QStringLiteral("Escape")}));
    ASSERT_TRUE(key(QStringLiteral("a")));
    ASSERT_TRUE(key(QStringLiteral("Escape")));
    ASSERT_TRUE(eventually([this] { return pressed().size() == 2; }));
    settle();
    EXPECT_TRUE(runs()) << "A stood between";
}

TEST_F(KeyboardWindow, shortcutsMenusAndFocusKeysDoNothingElse) {
    start();
    note()->setFocus();
    for (const char* name :
         {"ctrl+q", "ctrl+w", "alt+f", "Alt_L", "Tab", "shift+Tab", "Return", "Menu", "F10"}) {
        ASSERT_TRUE(key(QString::fromLatin1(name)));
        settle();
        EXPECT_TRUE(runs()) << name;
        EXPECT_FALSE(QApplication::activePopupWidget()) << name;
        EXPECT_EQ(QApplication::focusWidget(), note()) << name;
    }
    EXPECT_TRUE(quits == 0 && closes == 0 && note()->text().isEmpty());
    for (const KeyCode code : {12, 13, 3, 58, 48, 56, 36, 110, 109})
        EXPECT_TRUE(pressed().contains(code)) << code;

    // The same shortcut works again as soon as the run is over.
    stop();
    ASSERT_TRUE(key(QStringLiteral("ctrl+q")));
    EXPECT_TRUE(eventually([this] { return quits == 1; }));
}

TEST_F(KeyboardWindow, theRunWaitsWhileAnotherProgramHasTheKeyboard) {
    start();
    ASSERT_TRUE(xdotool({QStringLiteral("keydown"), QStringLiteral("Shift_L")}));
    ASSERT_TRUE(eventually([this] { return pressed().contains(56); }));
    {
        Bystander other;
        ASSERT_TRUE(eventually([] { return QGuiApplication::applicationState() != Qt::ApplicationActive; }));
        ASSERT_TRUE(xdotool({QStringLiteral("keyup"), QStringLiteral("Shift_L")}));
        ASSERT_TRUE(key(QStringLiteral("s")));
        settle();
        EXPECT_THAT(pressed(), ElementsAre(56)) << "that key was the other program's";
        EXPECT_TRUE(runs());
    }
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window, 20'000));
    ASSERT_TRUE(key(QStringLiteral("d")));
    EXPECT_TRUE(eventually([this] { return pressed().contains(2); }));
    stop();
    note()->setFocus();
    ASSERT_TRUE(key(QStringLiteral("d")));
    EXPECT_TRUE(eventually([this] { return note()->text() == QStringLiteral("d"); })) << "no shift is stuck";
}

class DisplayWindow : public PageWindow {
protected:
    void SetUp() override { open(Page::display); }
    static QWidget* colors() {
        for (QWidget* each : QApplication::topLevelWidgets())
            if (each->isVisible() && (each->windowFlags() & Qt::WindowStaysOnTopHint)) return each;
        return nullptr;
    }
};

TEST_F(DisplayWindow, realKeysAndClicksStepOverTheWholeScreen) {
    // Return, the default action.
    ASSERT_TRUE(key(QStringLiteral("Return")));
    ASSERT_TRUE(eventually([] { return colors() != nullptr; }));
    ASSERT_TRUE(QTest::qWaitForWindowActive(colors(), 20'000));
    EXPECT_TRUE(
        eventually([] { return colors()->geometry() == QGuiApplication::primaryScreen()->geometry(); }));
    // Any pixel of the real screen, also where the window manager might have kept a border.
    const auto showing = [](const QColor& color) {
        return eventually([&] {
            const QImage screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
            const int right = screen.width() - 1, bottom = screen.height() - 1;
            for (const QPoint at : {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom), QPoint(right, bottom)})
                if (screen.pixelColor(at) != color) return false;
            return true;
        });
    };
    EXPECT_TRUE(showing(Qt::black));
    const QColor red(255, 0, 0);
    const std::pair<const char*, QColor> steps[] = {
        {"space", Qt::white}, {"Right", red}, {"Left", Qt::white}};
    for (const auto& [name, color] : steps) {
        ASSERT_TRUE(key(QString::fromLatin1(name)));
        EXPECT_TRUE(showing(color)) << name;
    }
    ASSERT_TRUE(key(QStringLiteral("ctrl+q")));
    ASSERT_TRUE(key(QStringLiteral("x")));
    ASSERT_TRUE(clickWith(colors()));
    EXPECT_TRUE(showing(red));
    ASSERT_TRUE(key(QStringLiteral("Escape")));
    EXPECT_TRUE(eventually([] { return !colors(); }));
    EXPECT_EQ(state().display.shown.size(), 3u);
    EXPECT_EQ(quits, 0);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window, 20'000)) << "the keyboard goes back to the page";
}

class TrackpadWindow : public PageWindow {
protected:
    void SetUp() override { open(Page::trackpad); }
    QWidget* surface() {
        for (QWidget* each : window.findChildren<QWidget*>())
            if (each->accessibleName() == QStringLiteral("Trackpad test area")) return each;
        return nullptr;
    }
};

TEST_F(TrackpadWindow, aMouseClicksButNeitherTouchesNorScrolls) {
    // Fingers count over the surface, and nowhere else.
    const auto touch = [this](double x) {
        controls.touch({{x, 0}});
        controls.touch({});
    };
    ASSERT_TRUE(clickWith(surface(), 4)); // the wheel
    {
        Bystander other;
        ASSERT_TRUE(eventually([] { return QGuiApplication::applicationState() != Qt::ApplicationActive; }));
        touch(0);
    }
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window, 20'000));
    ASSERT_TRUE(eventually([this] { return surface()->underMouse(); }));
    touch(0.2);
    EXPECT_THAT(state().trackpad.touched, ElementsAre(1));
    ASSERT_TRUE(clickWith(button(QStringLiteral("Clear"))));
    touch(0.4);
    EXPECT_EQ(state().trackpad, TrackpadTest()) << "the pointer is beside the surface";
    ASSERT_TRUE(clickWith(surface(), 4)); // the wheel
    ASSERT_TRUE(clickWith(surface(), 5));
    settle();
    EXPECT_EQ(state().trackpad, TrackpadTest());
    ASSERT_TRUE(clickWith(surface(), 3));
    EXPECT_TRUE(eventually([this] { return state().trackpad.secondaryClicked; }));
    EXPECT_FALSE(state().trackpad.clicked);
    ASSERT_TRUE(clickWith(surface(), 1));
    EXPECT_TRUE(eventually([this] { return state().trackpad.clicked; }));
    ASSERT_TRUE(xdotool({QStringLiteral("mousemove_relative"), QStringLiteral("60"), QStringLiteral("30")}));
    settle();
    EXPECT_THAT(state().trackpad.touched, IsEmpty());
    EXPECT_FALSE(state().trackpad.scrolled);
}

} // namespace
} // namespace tessivo::windowtest
