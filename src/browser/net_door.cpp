#include "browser/net_door.h"

#include <QDir>
#include <QHostAddress>
#include <QNetworkProxy>
#include <QRandomGenerator>
#include <QSet>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtEndian>

#include <memory>
#include <netinet/in.h>
#include <sys/socket.h>

namespace vellum {
namespace {

constexpr quint16 doorPort = 1080;
constexpr qint64 mostWaiting = 256 * 1024;  // bytes on their way through the door, in each direction

// Parts of the SOCKS protocol, version 5.
constexpr char version = 5;
constexpr char connectCommand = 1;
constexpr char addressOfFour = 1;
constexpr char addressByName = 3;
constexpr char addressOfSixteen = 4;

// Somewhere in 127.0.0.0/8, all of which is this machine.
const QHostAddress& DoorHost() {
    static const QHostAddress host = [] {
        quint32 address = 127;
        for (int part = 0; part < 3; ++part) address = address << 8 | QRandomGenerator::system()->bounded(2U, 250U);
        return QHostAddress(address);
    }();
    return host;
}

QString Destination(const QString& host, int port) {
    return host.toLower() + ':' + QString::number(port);
}

// True when the other end of a connection belongs to this process: nobody else may go through the door.
bool ComesFromHere(const QTcpSocket& socket) {
    const QStringList descriptors = QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::Files | QDir::System);
    for (const QString& descriptor : descriptors) {
        sockaddr_in name = {};
        socklen_t size = sizeof name;
        if (::getsockname(descriptor.toInt(), reinterpret_cast<sockaddr*>(&name), &size) != 0) continue;
        if (name.sin_family == AF_INET && qFromBigEndian(name.sin_port) == socket.peerPort() &&
            qFromBigEndian(name.sin_addr.s_addr) == socket.peerAddress().toIPv4Address())
            return true;
    }
    return false;
}

// What the engine asks for before a connection begins.
struct Request {
    bool complete = false;
    bool good = false;
    QString host = {};
    quint16 port = 0;
    qsizetype length = 0;  // in bytes
};

Request ReadRequest(const QByteArray& heard) {
    constexpr qsizetype beforeAddress = 4;
    if (heard.size() < beforeAddress + 1) return {};
    const char kind = heard.at(3);
    const auto nameLength = static_cast<quint8>(heard.at(beforeAddress));
    qsizetype addressLength = 1 + nameLength;
    if (kind == addressOfFour) addressLength = 4;
    if (kind == addressOfSixteen) addressLength = 16;
    Request request{.length = beforeAddress + addressLength + 2};
    if (heard.size() < request.length) return {};
    request.complete = true;
    request.good = heard.at(0) == version && heard.at(1) == connectCommand;
    const QByteArray address = heard.mid(beforeAddress, addressLength);
    if (kind == addressByName) {
        request.host = QString::fromUtf8(address.mid(1));
    } else if (kind == addressOfFour) {
        request.host = QHostAddress(qFromBigEndian<quint32>(address.constData())).toString();
    } else if (kind == addressOfSixteen) {
        request.host = QHostAddress(reinterpret_cast<const quint8*>(address.constData())).toString();
    } else {
        request.good = false;
    }
    request.port = qFromBigEndian<quint16>(heard.constData() + request.length - 2);
    return request;
}

// One connection through the door. Deletes itself when either end closes.
class Passage : public QObject {
public:
    Passage(QTcpSocket* engine, const QSet<QString>& permitted, QObject* parent)
        : QObject(parent), engine_(engine), permitted_(permitted) {
        engine_->setParent(this);
        engine_->setReadBufferSize(mostWaiting);
        connect(engine_, &QTcpSocket::readyRead, this, &Passage::Hear);
        connect(engine_, &QTcpSocket::disconnected, this, &QObject::deleteLater);
        Hear();
    }

private:
    enum class Stage { Greeting, Asking, Connecting, Passing };

    void Hear() {
        if (stage_ == Stage::Passing) return Pass(*engine_, *outside_);
        if (stage_ == Stage::Connecting) return;
        heard_ += engine_->readAll();
        if (stage_ == Stage::Greeting) Greet();
        if (stage_ == Stage::Asking) Ask();
    }

    void Greet() {
        if (heard_.size() < 2) return;
        const qsizetype length = 2 + static_cast<quint8>(heard_.at(1));
        if (heard_.at(0) != version) return engine_->abort();
        if (heard_.size() < length) return;
        heard_.remove(0, length);
        engine_->write(QByteArray("\5\0", 2));  // no password
        stage_ = Stage::Asking;
    }

    void Ask() {
        const Request request = ReadRequest(heard_);
        if (!request.complete) return;
        if (!request.good || !permitted_.contains(Destination(request.host, request.port))) return Answer(false);
        heard_.remove(0, request.length);
        stage_ = Stage::Connecting;
        outside_ = new QTcpSocket(this);
        outside_->setReadBufferSize(mostWaiting);
        connect(outside_, &QTcpSocket::connected, this, [this] { Begin(); });
        connect(outside_, &QTcpSocket::errorOccurred, this, [this] {
            if (stage_ == Stage::Connecting) Answer(false);
        });
        connect(outside_, &QTcpSocket::disconnected, this, [this] {
            engine_->write(outside_->readAll());
            engine_->disconnectFromHost();
        });
        outside_->connectToHost(request.host, request.port);
    }

    void Begin() {
        stage_ = Stage::Passing;
        Answer(true);
        outside_->write(heard_);
        connect(outside_, &QTcpSocket::readyRead, this, [this] { Pass(*outside_, *engine_); });
        connect(engine_, &QTcpSocket::bytesWritten, this, [this] { Pass(*outside_, *engine_); });
        connect(outside_, &QTcpSocket::bytesWritten, this, [this] { Pass(*engine_, *outside_); });
    }

    void Answer(bool good) {
        QByteArray answer(10, '\0');
        answer[0] = version;
        answer[1] = good ? 0 : 2;  // 2: not permitted
        answer[3] = addressOfFour;
        engine_->write(answer);
        if (!good) engine_->disconnectFromHost();
    }

    static void Pass(QTcpSocket& from, QTcpSocket& to) {
        if (const qint64 room = mostWaiting - to.bytesToWrite(); room > 0) to.write(from.read(room));
    }

    QTcpSocket* const engine_;
    QTcpSocket* outside_ = nullptr;
    const QSet<QString>& permitted_;
    QByteArray heard_;
    Stage stage_ = Stage::Greeting;
};

class Door {
public:
    Door() {
        QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] {
            while (QTcpSocket* const socket = server_.nextPendingConnection()) {
                if (ComesFromHere(*socket)) {
                    new Passage(socket, permitted_, &server_);
                } else {
                    delete socket;
                }
            }
        });
        server_.setProxy(QNetworkProxy::NoProxy);
        server_.listen(DoorHost(), doorPort);
    }

    void Permit(const QString& destination) { permitted_ << destination; }

private:
    QSet<QString> permitted_;  // outlives the passages
    QTcpServer server_;
};

std::unique_ptr<Door> door;
int passes = 0;

}  // namespace

QByteArray DoorAddress() {
    return DoorHost().toString().toLatin1() + ':' + QByteArray::number(doorPort);
}

DoorPass::DoorPass() {
    if (passes++ == 0) door = std::make_unique<Door>();
}

DoorPass::~DoorPass() {
    if (--passes == 0) door.reset();
}

void LetThroughDoor(const QUrl& address) {
    if (!door) return;
    const bool secure = address.scheme() == QLatin1String("https") || address.scheme() == QLatin1String("wss");
    door->Permit(Destination(address.host(QUrl::FullyEncoded), address.port(secure ? 443 : 80)));
}

}  // namespace vellum
