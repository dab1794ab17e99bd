#include "app/demo/FeedServer.h"

#include <QTcpSocket>

namespace tessivo::demo {

namespace {

constexpr int chunk = 64 << 10; // bytes of the endless body at a time

QByteArray head(const char* status, const char* more = "Content-Length: 0\r\n") {
    return QByteArray("HTTP/1.1 ") + status + "\r\n" + more + "\r\n";
}

} // namespace

FeedServer::FeedServer(QObject* parent) : QObject(parent) {
    m_server.listen(QHostAddress::LocalHost);
    connect(&m_server, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket* socket = m_server.nextPendingConnection()) {
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
                socket->readAll();
                answer(*socket);
            });
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        }
    });
}

std::string FeedServer::url() const {
    if (m_answer == Answer::unreachable) return "http://127.0.0.1:1/appcast.xml";
    return "http://127.0.0.1:" + std::to_string(m_server.serverPort()) + "/appcast.xml";
}

void FeedServer::answer(QTcpSocket& socket) const {
    switch (m_answer) {
    case Answer::found:
        socket.write(head("200 OK"));
        break;
    case Answer::missing:
        socket.write(head("404 Not Found"));
        break;
    case Answer::refusesHead:
        socket.write(head("405 Method Not Allowed"));
        break;
    case Answer::fails:
        socket.write(head("500 Internal Server Error"));
        break;
    case Answer::endless:
        connect(&socket, &QTcpSocket::bytesWritten, &socket,
                [&socket] { socket.write(QByteArray(chunk, ' ')); });
        socket.write(head("200 OK", ""));
        break;
    case Answer::circle:
        socket.write(head("302 Found", "Location: /appcast.xml\r\nContent-Length: 0\r\n"));
        break;
    case Answer::never:
    case Answer::unreachable:
        break;
    }
}

} // namespace tessivo::demo
