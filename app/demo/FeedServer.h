#pragma once

#include <QObject>
#include <QTcpServer>
#include <string>

namespace tessivo::demo {

/// A web server on this computer in the place of the update feed, answering as it is told. Main thread.
class FeedServer final : public QObject {
    Q_OBJECT
public:
    enum class Answer { found, missing, refusesHead, fails, never, endless, circle, unreachable };

    explicit FeedServer(QObject* parent = nullptr);

    void setAnswer(Answer answer) { m_answer = answer; }
    /// The address that gives the present answer.
    std::string url() const;

private:
    void answer(QTcpSocket& socket) const;

    QTcpServer m_server;
    Answer m_answer = Answer::found;
};

} // namespace tessivo::demo
