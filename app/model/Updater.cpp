#include "app/model/Updater.h"

#include <QNetworkReply>
#include <QNetworkRequest>

namespace tessivo {

namespace {

constexpr auto probeTimeout = std::chrono::seconds(15);
constexpr int mostRedirects = 10;

std::optional<int> httpStatus(const QNetworkReply& reply) {
    const QVariant status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute);
    return status.isValid() ? std::optional(status.toInt()) : std::nullopt;
}

bool isRedirect(int status) {
    return status >= 300 && status < 400;
}

} // namespace

Updater::Updater(UpdateFramework& framework, Scheduler& scheduler, QString applicationName, QString version,
                 QObject* parent)
    : QObject(parent),
      m_framework(framework),
      m_scheduler(scheduler),
      m_applicationName(std::move(applicationName)),
      m_version(std::move(version)) {}

Updater::Feed Updater::classify(std::optional<int> status) {
    if (!status) return Feed::failed;
    if (*status >= 200 && *status <= 299) return Feed::reachable;
    // The server merely refuses the method.
    if (*status == 405 || *status == 501) return Feed::reachable;
    if (*status == 404 || *status == 410) return Feed::unpublished;
    return Feed::failed;
}

void Updater::checkForUpdates() {
    if (m_checking) return;
    const auto feed = m_framework.feedURL();
    if (!feed) {
        m_framework.checkForUpdates();
        return;
    }
    m_checking = true;
    QNetworkRequest request{QUrl(QString::fromStdString(*feed))};
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setMaximumRedirectsAllowed(mostRedirects);
    QNetworkReply* reply = m_network.head(request);
    m_reply = reply;
    // The headers are the answer: a body that never ends is not waited for.
    connect(reply, &QNetworkReply::metaDataChanged, this, [this, reply] {
        const auto status = httpStatus(*reply);
        if (status && !isRedirect(*status)) conclude(*reply);
    });
    connect(reply, &QNetworkReply::finished, this, [this, reply] { conclude(*reply); });
    m_timeout = m_scheduler.after(probeTimeout, [this] { finish(Feed::failed); });
}

void Updater::conclude(QNetworkReply& reply) {
    finish(classify(httpStatus(reply)));
}

void Updater::finish(Feed feed) {
    if (!m_checking) return;
    m_checking = false;
    m_timeout.reset();
    if (m_reply) {
        // On the next turn of the event loop: a reply can't be aborted from within its own signal.
        m_reply->disconnect(this);
        m_reply->deleteLater();
        m_reply.clear();
    }
    switch (feed) {
    case Feed::reachable:
        m_framework.checkForUpdates();
        break;
    case Feed::unpublished:
        Q_EMIT alert(
            {tr("You’re up to date"),
             tr("%1 %2 is the newest version. %1 checks for updates on its own and will let you know when "
                "there’s a new one.")
                 .arg(m_applicationName, m_version)});
        break;
    case Feed::failed:
        Q_EMIT alert(
            {tr("Couldn’t check for updates"),
             tr("Check your internet connection and try again. %1 also checks on its own about once a day.")
                 .arg(m_applicationName)});
        break;
    }
}

} // namespace tessivo
