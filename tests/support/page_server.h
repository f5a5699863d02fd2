// A server of web pages on the loopback, whose replies a test lays out.
#pragma once

#include <QHash>
#include <QStringList>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

namespace vellum::test {

// A reply as it goes over the wire, in one of these ways.
struct Served {
    QByteArray bytes;
    bool hangs = false;  // the connection stays open, and nothing more comes
    bool drips = false;  // one byte at a time
};

// The head of a reply, with `headers` each on a line of its own, and its body.
inline QByteArray Reply(const QByteArray& body, const QByteArray& headers = {}, const QByteArray& status = "200 OK") {
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n" + headers +
           "Connection: close\r\n\r\n" + body;
}

inline QByteArray Redirect(const QByteArray& target) {
    return Reply({}, "Location: " + target + "\r\n", "302 Found");
}

class PageServer : public QTcpServer {
public:
    PageServer() {
        // A proxy of this machine would be asked for the pages instead.
        for (const char* name : {"http_proxy", "HTTP_PROXY", "https_proxy", "HTTPS_PROXY", "all_proxy", "ALL_PROXY"}) {
            qunsetenv(name);
        }
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket* const client = nextPendingConnection()) {
                ++connections;
                Attend(*client);
            }
        });
    }

    [[nodiscard]] QString Address(const QString& path = "/") const {
        return QStringLiteral("http://127.0.0.1:%1%2").arg(serverPort()).arg(path);
    }

    QHash<QString, Served> pages;  // by their paths; for the others there is nothing
    int connections = 0;
    QStringList asked;     // paths, in the order in which they were asked for
    QByteArrayList heads;  // of these requests

private:
    void Attend(QTcpSocket& client) {
        connect(&client, &QTcpSocket::disconnected, &client, &QObject::deleteLater);
        connect(&client, &QTcpSocket::readyRead, this, [this, &client] {
            const QByteArray head = client.property("head").toByteArray() + client.readAll();
            client.setProperty("head", head);
            if (!head.endsWith("\r\n\r\n")) return;
            heads << head;
            asked << QString::fromLatin1(head.split(' ').value(1));
            Answer(client, pages.value(asked.last(), {Reply("nothing here", {}, "404 Not Found")}));
        });
    }

    static void Answer(QTcpSocket& client, const Served& page) {
        if (page.drips) return Drip(client, page.bytes);
        client.write(page.bytes);
        if (!page.hangs) client.disconnectFromHost();
    }

    static void Drip(QTcpSocket& client, const QByteArray& bytes) {
        if (bytes.isEmpty()) return client.disconnectFromHost();
        client.write(bytes.left(1));
        client.flush();
        QTimer::singleShot(0, &client, [&client, bytes] { Drip(client, bytes.mid(1)); });
    }
};

}  // namespace vellum::test
