#include "app/model/Updater.h"
#include "platform/simulated/ManualScheduler.h"

#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <gtest/gtest.h>

using namespace tessivo;
using namespace std::chrono_literals;

namespace {

constexpr int patience = 5000; // milliseconds that the network stack may take

/// A web server on this computer that gives every request the same answer.
class Server final {
public:
    explicit Server(QByteArray answer = {}) : m_answer(std::move(answer)) {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            while (QTcpSocket* socket = m_server.nextPendingConnection())
                QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { hear(socket); });
        });
    }

    std::string url() const {
        return "http://127.0.0.1:" + std::to_string(m_server.serverPort()) + "/appcast.xml";
    }
    const QList<QByteArray>& requests() const { return m_requests; }
    void answerPath(const QByteArray& path, const QByteArray& answer) { m_paths[path] = answer; }
    void setEndless() { m_endless = true; }

private:
    void hear(QTcpSocket* socket) {
        m_requests.append(socket->readAll());
        const QByteArray path = m_requests.last().split(' ').value(1);
        socket->write(m_paths.value(path, m_answer));
        if (!m_endless) return;
        QObject::connect(socket, &QTcpSocket::bytesWritten, socket,
                         [socket] { socket->write(QByteArray(64 << 10, 'x')); });
    }

    QTcpServer m_server;
    QByteArray m_answer;
    QHash<QByteArray, QByteArray> m_paths;
    QList<QByteArray> m_requests;
    bool m_endless = false;
};

QByteArray status(int code) {
    return "HTTP/1.1 " + QByteArray::number(code) + " Word\r\nContent-Length: 0\r\n\r\n";
}

class Framework final : public UpdateFramework {
public:
    std::optional<std::string> feedURL() const override { return feed; }
    void checkForUpdates() override { ++checks; }

    std::optional<std::string> feed;
    int checks = 0;
};

class UpdaterTests : public testing::Test {
protected:
    UpdaterTests() {
        QObject::connect(&updater, &Updater::alert, &updater,
                         [this](const Updater::Alert& alert) { alerts.append(alert); });
    }
    /// How the check ended: "framework", or the alert's message.
    QString outcome(const std::string& feed) {
        framework = {};
        framework.feed = feed;
        alerts.clear();
        updater.checkForUpdates();
        if (!QTest::qWaitFor([this] { return !updater.checking(); }, patience)) return "nothing";
        if (framework.checks == 1 && alerts.isEmpty()) return "framework";
        return framework.checks == 0 && alerts.size() == 1 ? alerts.first().message : "both or neither";
    }

    ManualScheduler clock;
    Framework framework;
    Updater updater{framework, clock, "Tessivo", "2.1"};
    QList<Updater::Alert> alerts;
};

const QString upToDate = "You’re up to date";
const QString couldNot = "Couldn’t check for updates";

TEST_F(UpdaterTests, theFeedsStatusDecidesWhatIsTold) {
    const std::pair<int, QString> rows[] = {
        {200, "framework"}, {204, "framework"}, {299, "framework"}, {405, "framework"}, {501, "framework"},
        {404, upToDate},    {410, upToDate},    {304, couldNot},    {400, couldNot},    {401, couldNot},
        {403, couldNot},    {407, couldNot},    {500, couldNot},    {502, couldNot},    {503, couldNot}};
    for (const auto& [code, expected] : rows) {
        const Server server(status(code));
        EXPECT_EQ(outcome(server.url()), expected) << code;
        ASSERT_EQ(server.requests().size(), 1) << code;
        EXPECT_TRUE(server.requests().first().startsWith("HEAD /appcast.xml HTTP/1.1")) << code;
    }
}

TEST_F(UpdaterTests, theAlertsNameTheApplicationAndItsVersion) {
    const Server gone(status(404)), broken(status(500));
    outcome(gone.url());
    EXPECT_EQ(alerts.first().text, "Tessivo 2.1 is the newest version. Tessivo checks for updates on its own "
                                   "and will let you know when there’s a new one.");
    outcome(broken.url());
    EXPECT_EQ(
        alerts.first().text,
        "Check your internet connection and try again. Tessivo also checks on its own about once a day.");
}

TEST_F(UpdaterTests, withoutAFeedTheFrameworkIsAskedAtOnce) {
    updater.checkForUpdates();
    EXPECT_EQ(framework.checks, 1);
    EXPECT_FALSE(updater.checking());
}

TEST_F(UpdaterTests, whatIsNoWebServerCouldNotBeChecked) {
    std::string closed;
    {
        const Server server;
        closed = server.url();
    }
    const Server gibberish("hello\r\n\r\n");
    for (const std::string& feed :
         {closed, gibberish.url(), std::string("file:///etc/hostname"), std::string("not an address"),
          std::string(), std::string("http://"), std::string("mailto:someone@example.org")})
        EXPECT_EQ(outcome(feed), couldNot) << feed;
}

TEST_F(UpdaterTests, aRedirectIsFollowedAndALoopOfThemEnds) {
    Server moved("HTTP/1.1 302 Found\r\nLocation: /new.xml\r\nContent-Length: 0\r\n\r\n");
    moved.answerPath("/new.xml", status(200));
    EXPECT_EQ(outcome(moved.url()), "framework");
    EXPECT_EQ(moved.requests().size(), 2);

    const Server loop("HTTP/1.1 302 Found\r\nLocation: /appcast.xml\r\nContent-Length: 0\r\n\r\n");
    EXPECT_EQ(outcome(loop.url()), couldNot);
    EXPECT_LT(loop.requests().size(), 20);
}

TEST_F(UpdaterTests, aBodyWithoutEndIsNotWaitedFor) {
    Server server("HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\n\r\n");
    server.setEndless();
    EXPECT_EQ(outcome(server.url()), "framework");
}

TEST_F(UpdaterTests, aServerThatNeverAnswersIsGivenFifteenSeconds) {
    for (const char* begun : {"", "HTTP/1.1 20", "HTTP/1.1 200 OK\r\nContent-Length: 0\r\n"}) {
        const Server server(begun);
        framework = {};
        framework.feed = server.url();
        alerts.clear();
        updater.checkForUpdates();
        ASSERT_TRUE(QTest::qWaitFor([&] { return server.requests().size() == 1; }, patience));
        QTest::qWait(20);
        clock.advance(14'999ms);
        EXPECT_TRUE(updater.checking()) << begun;
        EXPECT_TRUE(alerts.isEmpty());
        clock.advance(1ms);
        EXPECT_FALSE(updater.checking());
        ASSERT_EQ(alerts.size(), 1);
        EXPECT_EQ(alerts.first().message, couldNot);
        clock.advance(1h);
        QTest::qWait(20);
        EXPECT_EQ(alerts.size(), 1) << "told once";
    }
}

TEST_F(UpdaterTests, twoClicksStartOneProbeAndALaterOneAnother) {
    const Server silent;
    framework.feed = silent.url();
    updater.checkForUpdates();
    updater.checkForUpdates();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !silent.requests().isEmpty(); }, patience));
    updater.checkForUpdates();
    QTest::qWait(20);
    EXPECT_EQ(silent.requests().size(), 1);
    clock.advance(15s);
    EXPECT_EQ(alerts.size(), 1);

    const Server answers(status(200));
    EXPECT_EQ(outcome(answers.url()), "framework");
    EXPECT_EQ(clock.pending(), 0u) << "the probe's timeout went with it";
}

TEST_F(UpdaterTests, lettingGoWhileAProbeRunsIsQuiet) {
    const Server silent;
    framework.feed = silent.url();
    {
        Updater brief(framework, clock, "Tessivo", "1.0");
        brief.checkForUpdates();
        ASSERT_TRUE(QTest::qWaitFor([&] { return !silent.requests().isEmpty(); }, patience));
    }
    clock.advance(1h);
    EXPECT_EQ(framework.checks, 0);
}

} // namespace
