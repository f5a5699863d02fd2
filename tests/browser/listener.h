// Listens on one port of this machine, for connections and for datagrams.
#pragma once

#include <QHash>
#include <QTcpServer>
#include <QTcpSocket>
#include <QUdpSocket>

namespace vellum::test {

// Answers a request for a path with what was set for it, with all of its head, and any other not at all. Counts what
// comes. `IsGood` is false when no port was free for both.
class Listener : public QObject {
public:
    Listener() {
        for (int round = 0; round < 50 && !good_; ++round) {
            server_.close();
            good_ = server_.listen(QHostAddress::LocalHost) &&
                    datagramSocket_.bind(QHostAddress::LocalHost, server_.serverPort());
        }
        connect(&server_, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket* const socket = server_.nextPendingConnection()) {
                ++connections_;
                connect(socket, &QTcpSocket::readyRead, this, [this, socket] { Hear(*socket); });
            }
        });
        connect(&datagramSocket_, &QUdpSocket::readyRead, this, [this] {
            for (; datagramSocket_.hasPendingDatagrams(); ++datagrams_) datagramSocket_.readDatagram(nullptr, 0);
        });
    }

    [[nodiscard]] bool IsGood() const { return good_; }
    [[nodiscard]] quint16 Port() const { return server_.serverPort(); }
    [[nodiscard]] int Connections() const { return connections_; }
    [[nodiscard]] int Datagrams() const { return datagrams_; }
    [[nodiscard]] QByteArrayList Requests() const { return requests_; }  // their first lines

    void Answer(const QByteArray& path, const QByteArray& answer) { answers_[path] = answer; }

private:
    void Hear(QTcpSocket& socket) {
        if (!socket.canReadLine()) return;
        const QByteArray line = socket.readAll().split('\r').first();
        requests_ << line;
        const QByteArray path = line.split(' ').value(1);
        if (!answers_.contains(path)) return;
        socket.write(answers_.value(path));
        socket.disconnectFromHost();
    }

    QTcpServer server_;
    QUdpSocket datagramSocket_;
    QHash<QByteArray, QByteArray> answers_;
    QByteArrayList requests_;
    int connections_ = 0;
    int datagrams_ = 0;
    bool good_ = false;
};

}  // namespace vellum::test
