// The program itself, as the desktop starts and ends it: on no screen, with folders of its own.

#include "kit/Samples.h"
#include "kit/session/SessionState.h"
#include "platform/linux/LinuxDefaults.h"
#include "tests/TemporaryFolder.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTest>
#include <csignal>
#include <gtest/gtest.h>

namespace tessivo {
namespace {

constexpr int patience = 20000; // milliseconds; a sanitized build is slow

class ApplicationTests : public testing::Test {
protected:
    ApplicationTests() {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* name :
             {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR", "HOME"})
            environment.insert(name, QString::fromStdString(folder.path().string()));
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        process.setProcessEnvironment(environment);
    }
    ~ApplicationTests() override {
        process.kill();
        process.waitForFinished();
    }

    std::filesystem::path settings() const { return folder / "Tessivo" / "Tessivo.json"; }
    LinuxDefaults defaults() const { return LinuxDefaults(settings()); }
    SessionState stored() const { return SessionState::decode(defaults().data("session").value_or("")); }

    /// Starts the program and waits until it has stored what it reads at a start.
    void start() {
        const auto before = std::filesystem::exists(settings()) ? bytesOf(settings()) : std::string();
        process.start(TESSIVO_BUILD "/tessivo", QStringList());
        ASSERT_TRUE(QTest::qWaitFor(
            [&] { return std::filesystem::exists(settings()) && bytesOf(settings()) != before; }, patience))
            << process.readAllStandardError().toStdString();
    }
    int end(int signal) {
        ::kill(pid_t(process.processId()), signal);
        if (!process.waitForFinished(patience)) return -1;
        return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -2;
    }

    TemporaryFolder folder;
    QProcess process;
};

TEST_F(ApplicationTests, aRequestToEndStoresTheSessionFirstAndSaysNothing) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        start();
        // What is stored at the end is seen by its being there again.
        std::filesystem::remove(settings());
        EXPECT_EQ(end(signal), 0) << signal;
        EXPECT_TRUE(stored().battery) << signal;
        EXPECT_EQ(process.readAll().toStdString() + process.readAllStandardError().toStdString(), "");
        std::filesystem::remove(settings());
    }
}

TEST_F(ApplicationTests, theSessionIsFoundAgainByTheNextLaunch) {
    start();
    EXPECT_EQ(end(SIGTERM), 0);
    SessionState session = stored();
    session.keyboard.press(0);
    session.battery.reset(); // so that the launch has something to store
    defaults().setData("session", session.encode());
    defaults().setText("notes", "scratched");
    start();
    EXPECT_EQ(end(SIGTERM), 0);
    EXPECT_EQ(stored().started, session.started);
    EXPECT_EQ(stored().keyboard, session.keyboard);
    EXPECT_EQ(defaults().text("notes"), "scratched");
}

TEST_F(ApplicationTests, aBrokenSettingsFileIsReplacedByANewSession) {
    std::filesystem::create_directories(settings().parent_path());
    for (const std::string& bytes : {std::string("\0\xFF[[[", 5), std::string(1 << 20, '['),
                                     std::string(R"({"session": {"data": "eyJtYWNoaW5lIjoxfQ=="}})")}) {
        std::ofstream(settings(), std::ios::binary | std::ios::trunc) << bytes;
        start();
        EXPECT_EQ(end(SIGTERM), 0);
        EXPECT_EQ(stored().keyboard, KeyboardTest{});
    }
}

TEST_F(ApplicationTests, aSecondStartLeavesTheSessionToTheFirst) {
    start();
    // The session and the notes are two writes.
    ASSERT_TRUE(QTest::qWaitFor([&] { return defaults().text("notes").has_value(); }, patience));
    const std::string before = bytesOf(settings());
    QProcess second;
    second.setProcessEnvironment(process.processEnvironment());
    second.start(TESSIVO_BUILD "/tessivo", QStringList());
    ASSERT_TRUE(second.waitForFinished(patience));
    EXPECT_EQ(second.exitCode(), 0);
    EXPECT_EQ(bytesOf(settings()), before);
    EXPECT_EQ(process.state(), QProcess::Running);
    // One that was killed keeps nobody off.
    EXPECT_EQ(end(SIGKILL), -2);
    std::filesystem::remove(settings());
    start();
    EXPECT_EQ(end(SIGTERM), 0);
}

TEST_F(ApplicationTests, withoutADisplayItSaysSo) {
    QProcessEnvironment environment = process.processEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY"})
        environment.remove(name);
    environment.insert("QT_QPA_PLATFORM", "xcb");
    process.setProcessEnvironment(environment);
    process.start(TESSIVO_BUILD "/tessivo", QStringList());
    ASSERT_TRUE(process.waitForFinished(patience));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_TRUE(process.readAllStandardError().contains("Tessivo can't start: there is no display"));
}

} // namespace
} // namespace tessivo
