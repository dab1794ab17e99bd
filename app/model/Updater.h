#pragma once

#include "platform/Desktop.h"
#include "platform/Scheduler.h"

#include <QNetworkAccessManager>
#include <QObject>
#include <QPointer>

class QNetworkReply;

namespace tessivo {

/// A check for updates that the person started. It probes the feed first, so that a feed that can't be
/// reached or isn't published yet is told truly; only then the update framework takes over. Main thread;
/// the network never stalls it, and a probe ends after 15 seconds whatever the server does.
class Updater final : public QObject {
    Q_OBJECT

public:
    /// What a probe found.
    enum class Feed { reachable, unpublished, failed };

    /// The window's words for a probe that doesn't lead on.
    struct Alert {
        QString message;
        QString text;
    };

    Updater(UpdateFramework& framework, Scheduler& scheduler, QString applicationName, QString version,
            QObject* parent = nullptr);

    bool checking() const { return m_checking; }
    /// Nothing while a check runs.
    void checkForUpdates();

    /// The meaning of an HTTP status; absent stands for a response that isn't HTTP.
    static Feed classify(std::optional<int> status);

Q_SIGNALS:
    /// The application is to come to the front and show an informational alert with one button, "OK".
    void alert(const tessivo::Updater::Alert& alert);

private:
    void finish(Feed feed);
    void conclude(QNetworkReply& reply);

    UpdateFramework& m_framework;
    Scheduler& m_scheduler;
    QString m_applicationName;
    QString m_version;
    QNetworkAccessManager m_network;
    QPointer<QNetworkReply> m_reply;
    std::unique_ptr<Scheduled> m_timeout;
    bool m_checking = false;
};

} // namespace tessivo
