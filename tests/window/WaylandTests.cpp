// The program itself in a Wayland session, driven by real keys.

#include "kit/session/SessionState.h"
#include "platform/linux/LinuxDefaults.h"
#include "tests/window/Weston.h"
#include "tests/window/XServer.h"

#include <QTest>
#include <gtest/gtest.h>

namespace tessivo::windowtest {
namespace {

constexpr int patience = 20'000; // milliseconds; a sanitized build is slow

class WaylandSession : public ::testing::Test {
protected:
    ~WaylandSession() override {
        program.kill();
        program.waitForFinished();
    }

    void start(QProcess& process) {
        process.setProcessEnvironment(session.environment());
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(TESSIVO_BUILD "/tessivo", QStringList());
    }
    SessionState stored() const {
        const LinuxDefaults defaults(session.folder() / "Tessivo" / "Tessivo.json");
        const auto data = defaults.data("session");
        return data ? SessionState::decode(*data) : SessionState();
    }
    bool press(std::initializer_list<const char*> names) {
        QStringList arguments{QStringLiteral("key")};
        for (const char* name : names)
            arguments.append(QString::fromLatin1(name));
        return xdotool(arguments);
    }
    /// Whether the keys do it, pressed once more where the window wasn't up for them yet.
    bool bringsAbout(std::initializer_list<const char*> names, const std::function<bool()>& outcome) {
        for (int tries = 0; tries < 5; ++tries)
            if (press(names) && QTest::qWaitFor(outcome, patience / 5)) return true;
        return false;
    }
    Weston session;
    QProcess program;
};

TEST_F(WaylandSession, keysColorsASecondStartAndQuitting) {
    start(program);
    ASSERT_TRUE(QTest::qWaitFor([&] { return stored().battery.has_value(); }, patience))
        << program.readAll().toStdString();

    // The keyboard page, its default action, and keys under the codes of this keyboard.
    EXPECT_TRUE(bringsAbout({"ctrl+2", "Return", "a", "Up", "Super_L"}, [&] {
        const std::set<KeyCode> pressed = stored().keyboard.pressed;
        return pressed.contains(0) && pressed.contains(126) && pressed.contains(55);
    }));
    // The display page shows its colours on the screen that is chosen in its list. Keys come to a window that
    // opened only once the compositor gives them to it.
    ASSERT_TRUE(press({"Escape", "Escape", "ctrl+4", "Tab", "Tab", "Tab", "Down", "shift+Tab", "Return"}));
    const auto becomes = [&](const QColor& color) { return [&, color] { return session.shows(1, color); }; };
    EXPECT_TRUE(QTest::qWaitFor(becomes(Qt::black), patience));
    EXPECT_TRUE(bringsAbout({"space"}, becomes(Qt::white)));
    EXPECT_TRUE(bringsAbout({"Right"}, becomes(QColor(255, 0, 0))));
    EXPECT_TRUE(bringsAbout({"Escape"}, [&] { return !session.shows(1, QColor(255, 0, 0)); }));

    // A second start leaves the work to the first, which still takes keys.
    QProcess second;
    start(second);
    ASSERT_TRUE(second.waitForFinished(patience));
    EXPECT_EQ(second.exitCode(), 0);
    EXPECT_EQ(program.state(), QProcess::Running);

    EXPECT_TRUE(bringsAbout({"ctrl+q"}, [&] { return program.state() == QProcess::NotRunning; }));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(stored().display.screenName, "screen1");
    EXPECT_EQ(stored().display.shown.size(), 3u);
    EXPECT_EQ((program.readAll() + second.readAll()).toStdString(), "");
}

} // namespace
} // namespace tessivo::windowtest
