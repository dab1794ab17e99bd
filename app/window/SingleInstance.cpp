#include "app/window/SingleInstance.h"

#include <QDir>
#include <QFile>
#include <QLocalSocket>

namespace tessivo {

namespace {

constexpr int patience = 2000; // milliseconds for the first to take the call
constexpr qint64 longestToken = 512;

QString nameIn(const std::filesystem::path& folder, const char* name) {
    const QString place = QFile::decodeName(folder.c_str());
    QDir().mkpath(place);
    return QDir(place).absoluteFilePath(QString::fromLatin1(name));
}

} // namespace

SingleInstance::SingleInstance(const std::filesystem::path& folder, QObject* parent)
    : QObject(parent), m_name(nameIn(folder, ".running")), m_lock(nameIn(folder, ".lock")) {
    // A process keeps the lock for as long as it runs. The lock of one that has ended is stale, even if the
    // computer had another name then; removing fails while a process holds it.
    m_lock.setStaleLockTime(0);
    m_first = m_lock.tryLock(0) || m_lock.error() != QLockFile::LockFailedError ||
              (m_lock.removeStaleLockFile() && m_lock.tryLock(0));
    if (!m_first) return;
    QLocalServer::removeServer(m_name);
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* call = m_server.nextPendingConnection())
            connect(call, &QLocalSocket::disconnected, this, [this, call] {
                const QByteArray token = call->read(longestToken);
                call->deleteLater();
                Q_EMIT startedAgain(token);
            });
    });
    m_server.listen(m_name);
}

bool SingleInstance::callFirst() const {
    QLocalSocket call;
    call.connectToServer(m_name);
    if (!call.waitForConnected(patience)) return false;
    call.write(qgetenv("XDG_ACTIVATION_TOKEN").left(longestToken));
    call.disconnectFromServer();
    return call.state() == QLocalSocket::UnconnectedState || call.waitForDisconnected(patience);
}

} // namespace tessivo
