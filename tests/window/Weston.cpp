#include "tests/window/Weston.h"

#include "tests/window/XServer.h"

#include <QRect>
#include <QTest>
#include <QtEndian>
#include <stdexcept>

namespace tessivo::windowtest {
namespace {

constexpr const char* socketName = "tessivo-wayland";
constexpr int width = 1000, height = 600; // of a screen; they stand side by side

void endProcess(QProcess& process) {
    process.terminate();
    if (!process.waitForFinished(5'000)) process.kill();
    process.waitForFinished(5'000);
}

} // namespace

Weston::Weston() : m_displayBefore(qgetenv("DISPLAY")) {
    const QString folder = QString::fromStdString(m_folder.path().string());
    qputenv("DISPLAY", startServer(m_server, QStringLiteral("%1x%2").arg(2 * width).arg(height),
                                   {QStringLiteral("-fbdir"), folder}));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "HOME"})
        environment.insert(QString::fromLatin1(name), folder);
    m_session.setProcessEnvironment(environment);
    m_session.setProcessChannelMode(QProcess::MergedChannels);
    m_session.start(QStringLiteral("weston"),
                    {QStringLiteral("--backend=x11-backend.so"), QStringLiteral("--use-pixman"),
                     QStringLiteral("--no-config"), QStringLiteral("--idle-time=0"),
                     QStringLiteral("--output-count=2"), QStringLiteral("--width=%1").arg(width),
                     QStringLiteral("--height=%1").arg(height),
                     QStringLiteral("--socket=%1").arg(QString::fromLatin1(socketName))});
    // The second screen's window beside the first's, and the pointer where it is in no window's way.
    const auto isUp = [] {
        return xdotool({QStringLiteral("search"), QStringLiteral("--class"), QStringLiteral("weston"),
                        QStringLiteral("windowmove"), QStringLiteral("%2"), QString::number(width),
                        QStringLiteral("0"), QStringLiteral("mousemove"), QString::number(width - 5),
                        QString::number(height - 5)});
    };
    for (int tries = 0; !std::filesystem::exists(m_folder / socketName) || !isUp(); ++tries) {
        if (tries > 200)
            throw std::runtime_error("weston doesn't start: " + m_session.readAll().toStdString());
        QTest::qWait(100);
    }
}

Weston::~Weston() {
    endProcess(m_session);
    endProcess(m_server);
    qputenv("DISPLAY", m_displayBefore);
}

QProcessEnvironment Weston::environment() const {
    QProcessEnvironment environment = m_session.processEnvironment();
    for (const char* name : {"DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QString::fromLatin1(name));
    environment.insert(QStringLiteral("XDG_SESSION_TYPE"), QStringLiteral("wayland"));
    environment.insert(QStringLiteral("WAYLAND_DISPLAY"), QString::fromLatin1(socketName));
    return environment;
}

bool Weston::shows(int screen, const QColor& color) const {
    // The server keeps its picture in a file: a header of big-endian words, then rows of blue, green and red.
    const std::string file = bytesOf(m_folder / "Xvfb_screen0");
    const auto word = [&](std::size_t index) { return qFromBigEndian<quint32>(file.data() + 4 * index); };
    if (file.size() < 100) return false;
    const std::size_t start = word(0) + word(19) * 12, perRow = word(12);
    const QRect at(screen * width, 0, width, height);
    for (const QPoint corner : {at.topLeft(), at.topRight(), at.bottomLeft(), at.bottomRight()}) {
        const std::size_t place = start + perRow * std::size_t(corner.y()) + 4 * std::size_t(corner.x());
        if (place + 4 > file.size()) return false;
        if ((qFromLittleEndian<quint32>(file.data() + place) & 0xFFFFFF) != (color.rgb() & 0xFFFFFF))
            return false;
    }
    return true;
}

} // namespace tessivo::windowtest
