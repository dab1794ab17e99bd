#pragma once

#include "tests/TemporaryFolder.h"

#include <QProcess>
#include <QStandardPaths>

namespace tessivo {

/// A PulseAudio daemon of the test's own, with the modules it is given, in a folder of its own.
class SoundDaemon final {
public:
    static constexpr int patience = 10'000; ///< ms, for whatever a loaded computer is slow at

    ~SoundDaemon() { kill(); }

    static bool isInstalled() {
        for (const char* program : {"pulseaudio", "parec", "pacat", "pactl"})
            if (QStandardPaths::findExecutable(program).isEmpty()) return false;
        return true;
    }

    std::string address() const { return "unix:" + (m_folder / "socket").string(); }

    /// Variables for the daemon alone, not for its clients.
    void setOwnVariables(const QProcessEnvironment& variables) { m_ownVariables = variables; }

    bool start(const QStringList& modules) {
        QStringList arguments{"-n",
                              "--daemonize=no",
                              "--use-pid-file=no",
                              "--exit-idle-time=-1",
                              "--disable-shm=yes",
                              "--log-target=stderr",
                              "-L",
                              QString("module-native-protocol-unix auth-anonymous=1 socket=%1")
                                  .arg(QString::fromStdString((m_folder / "socket").string()))};
        for (const QString& module : modules)
            arguments << "-L" << module;
        QProcessEnvironment variables = environment();
        variables.insert(m_ownVariables);
        m_process.setProcessEnvironment(variables);
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        m_process.start("pulseaudio", arguments);
        return m_process.waitForStarted(patience);
    }

    /// The end that no daemon can prepare for.
    void kill() {
        if (m_process.state() == QProcess::NotRunning) return;
        m_process.kill();
        m_process.waitForFinished(patience);
    }

    qint64 processID() const { return m_process.processId(); }

    /// What a client program prints.
    QByteArray run(const QString& program, const QStringList& arguments) const {
        QProcess client;
        client.setProcessEnvironment(environment());
        client.start(program, arguments);
        client.waitForFinished(patience);
        return client.readAllStandardOutput();
    }

    QProcessEnvironment environment() const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        const QString folder = QString::fromStdString(m_folder.path().string());
        for (const char* name : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "PULSE_RUNTIME_PATH"})
            environment.insert(name, folder);
        environment.insert("PULSE_SERVER", QString::fromStdString(address()));
        environment.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + folder + "/none");
        return environment;
    }

private:
    TemporaryFolder m_folder;
    QProcessEnvironment m_ownVariables;
    QProcess m_process;
};

} // namespace tessivo
