#include "tests/window/PageWindow.h"

#include <QApplication>
#include <QKeyEvent>

namespace tessivo::windowtest {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

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

/// Counts the repeats that the window system sends; made in a run, it is asked before the page is.
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
    ASSERT_TRUE(xdotool({QStringLiteral("keydown"), QStringLiteral("Return")}));
    ASSERT_TRUE(eventually([this] { return runs(); }));
    Repeats repeats;
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

} // namespace
} // namespace tessivo::windowtest
