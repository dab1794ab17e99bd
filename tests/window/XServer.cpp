#include "tests/window/XServer.h"

#include <QCoreApplication>
#include <QTest>
#include <QWidget>
#include <chrono>
#include <stdexcept>
#include <thread>

namespace tessivo::windowtest {
namespace {

bool managesScreen() {
    QProcess tool;
    tool.setStandardErrorFile(QProcess::nullDevice());
    tool.start(QStringLiteral("xdotool"), {QStringLiteral("get_desktop")});
    if (tool.waitForFinished(5'000) && tool.exitCode() == 0) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    return false;
}

} // namespace

QByteArray startServer(QProcess& server, const QString& size, const QStringList& arguments) {
    // The server writes the number of the display it took once it can be used.
    server.setStandardErrorFile(QProcess::nullDevice());
    server.start(QStringLiteral("Xvfb"),
                 QStringList{QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-noreset"),
                             QStringLiteral("-nolisten"), QStringLiteral("tcp"), QStringLiteral("-screen"),
                             QStringLiteral("0"), size + QStringLiteral("x24")} +
                     arguments);
    while (!server.canReadLine())
        if (!server.waitForReadyRead(20'000)) throw std::runtime_error("Xvfb doesn't start");
    return ":" + server.readLine().trimmed();
}

XServer::XServer() {
    qputenv("DISPLAY", startServer(m_server, QStringLiteral("1280x1200")));
    m_windowManager.setStandardErrorFile(QProcess::nullDevice());
    m_windowManager.start(QStringLiteral("openbox"), QStringList());
    m_windowManager.waitForStarted(20'000);
    // Before it manages the screen, a window would never be made active.
    for (int tries = 0; !managesScreen(); ++tries)
        if (m_windowManager.state() == QProcess::NotRunning || tries > 200)
            throw std::runtime_error("openbox doesn't start");
}

XServer::~XServer() {
    for (QProcess* process : {&m_windowManager, &m_server}) {
        process->terminate();
        if (!process->waitForFinished(5'000)) process->kill();
        process->waitForFinished(5'000);
    }
}

Bystander::Bystander() {
    m_program.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(bystanderArgument)});
    m_program.waitForStarted();
}

Bystander::~Bystander() {
    m_program.terminate();
    if (!m_program.waitForFinished(5'000)) m_program.kill();
    m_program.waitForFinished(5'000);
}

bool xdotool(const QStringList& arguments) {
    QProcess tool;
    tool.start(QStringLiteral("xdotool"), arguments);
    return QTest::qWaitFor([&tool] { return tool.state() == QProcess::NotRunning; }, 20'000) &&
           tool.error() == QProcess::UnknownError && tool.exitCode() == 0;
}

bool key(const QString& name) {
    return xdotool({QStringLiteral("key"), name});
}

bool clickWith(QWidget* widget, int button) {
    if (!widget || !widget->isVisible()) return false;
    const QPoint middle = widget->mapToGlobal(widget->rect().center());
    return xdotool({QStringLiteral("mousemove"), QString::number(middle.x()), QString::number(middle.y()),
                    QStringLiteral("click"), QString::number(button)});
}

} // namespace tessivo::windowtest
