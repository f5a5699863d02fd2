// Pages of the net that the program itself asks for, and the door that they go through.
#include "browser/net_door.h"
#include "tests/browser/browser_fixture.h"
#include "tests/browser/listener.h"
#include "tests/browser/network_calls.h"

#include <QProcess>

namespace vellum {
namespace {

using test::Listener;

QByteArray Html(const QByteArray& text) {
    return "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n" + text;
}

class NetPageTest : public test::BrowserFixture {
protected:
    void SetUp() override {
        BrowserFixture::SetUp();
        ASSERT_TRUE(server_.IsGood());
    }

    QString At(const char* host, const char* path) const {
        return QStringLiteral("http://%1:%2%3").arg(host).arg(server_.Port()).arg(path);
    }

    static QString DoorHost() { return QString::fromLatin1(DoorAddress()).section(':', 0, 0); }
    static quint16 DoorPort() { return QString::fromLatin1(DoorAddress()).section(':', 1).toUShort(); }

    // What the door says to one who asks it for a way to an address of this machine.
    static QByteArray AnswerOfDoor(quint16 port) {
        QTcpSocket socket;
        QByteArray heard;
        QObject::connect(&socket, &QTcpSocket::connected, &socket,
                         [&] { socket.write(QByteArray::fromHex("050100")); });
        bool asked = false;
        QObject::connect(&socket, &QTcpSocket::readyRead, &socket, [&] {
            heard += socket.readAll();
            if (heard.size() < 2 || std::exchange(asked, true)) return;
            const QByteArray place = QByteArray::fromHex("050100017f000001") + char(port >> 8) + char(port & 255);
            socket.write(place);
        });
        socket.connectToHost(DoorHost(), DoorPort());
        test::WaitFor([&] { return heard.size() >= 12 || socket.state() == QTcpSocket::UnconnectedState; });
        return heard;
    }

    const test::NetworkCalls names_;  // knows hosts of the domain "test"
    Listener server_;
};

TEST_F(NetPageTest, ShowsWithWhatItTakesFromOtherHosts) {
    server_.Answer("/",
                   Html("<title>far</title><script src=\"" + At("scripts.test", "/s.js").toLatin1() + "\"></script>"));
    server_.Answer("/s.js", "HTTP/1.1 200 OK\r\nContent-Type: text/javascript\r\n\r\ndocument.title='far script'");
    Show(At("page.test", "/"));
    EXPECT_TRUE(WaitForTitle("far script"));
}

TEST_F(NetPageTest, GoesWhereItIsSent) {
    server_.Answer("/", "HTTP/1.1 302 Found\r\nLocation: " + At("other.test", "/there").toLatin1() + "\r\n\r\n");
    server_.Answer("/there", Html("<title>sent on</title>"));
    Show(At("page.test", "/"));
    EXPECT_TRUE(WaitForTitle("sent on"));
}

TEST_F(NetPageTest, AnEndlessAnswerComesThroughWhole) {
    server_.Answer("/",
                   Html("<title>long</title>" + QByteArray(3000000, 'x') + "<script>document.title+=' end'</script>"));
    Show(At("127.0.0.1", "/"));
    EXPECT_TRUE(WaitForTitle("long end"));
}

TEST_F(NetPageTest, HasNothingOfThisMachine) {
    WritePicture("p.png", Qt::red);
    const QByteArray picture = QUrl::fromLocalFile(directory_.filePath("p.png")).toEncoded();
    server_.Answer("/", Html("<title>far</title><img src=\"" + picture +
                             "\" onload=\"document.title='shown'\" onerror=\"document.title='refused'\">"));
    Show(At("127.0.0.1", "/"));
    EXPECT_TRUE(WaitForTitle("refused"));
}

TEST_F(NetPageTest, LinksOfItsHostStayInsideAndOthersOpenOutside) {
    const QByteArray style = "style=\"display:block;height:100px;background:#0f0\">x</a>";
    server_.Answer("/", Html("<title>far</title><body style=\"margin:0\"><a href=\"/next\"" + style));
    server_.Answer(
        "/next",
        Html("<title>second</title><body style=\"margin:0;background:#00f\"><a href=\"https://example.org/\"" + style));
    Show(At("127.0.0.1", "/"));
    ASSERT_TRUE(WaitForPixel(200, 50, QColor(0, 255, 0)));
    ASSERT_TRUE(test::WaitFor([&] { return !CurtainDown(); }));
    Click(200, 50);
    ASSERT_TRUE(WaitForTitle("second"));
    ASSERT_TRUE(WaitForPixel(200, 200, QColor(0, 0, 255))) << "the second page is painted, and takes clicks";
    EXPECT_TRUE(opened_.addresses.isEmpty());
    Click(200, 50);
    EXPECT_TRUE(test::WaitFor([&] { return opened_.addresses == QStringList{"https://example.org/"}; }));
}

TEST_F(NetPageTest, ALocalPageAfterItIsInItsCageAgain) {
    server_.Answer("/", Html("<title>far</title>"));
    Show(At("127.0.0.1", "/"));
    ASSERT_TRUE(WaitForTitle("far"));
    Show(Write("a.html", Page("near", "<img src=\"" + At("127.0.0.1", "/near.png").toLatin1() +
                                          "\" onerror=\"document.title='refused'\">")));
    EXPECT_TRUE(WaitForTitle("refused"));
    // The icon of the far page may still have been asked for.
    for (const QByteArray& request : server_.Requests()) EXPECT_FALSE(request.contains("near.png")) << request.data();
}

TEST_F(NetPageTest, TheDoorIsOpenForThePageAndItsHostsAlone) {
    const Listener other;
    ASSERT_TRUE(other.IsGood());
    EXPECT_EQ(AnswerOfDoor(server_.Port()), "") << "closed";
    server_.Answer("/", Html("<title>far</title>"));
    Show(At("127.0.0.1", "/"));
    ASSERT_TRUE(WaitForTitle("far"));
    EXPECT_EQ(AnswerOfDoor(server_.Port()).toHex(), "050005000001000000000000");
    EXPECT_EQ(AnswerOfDoor(other.Port()).toHex(), "050005020001000000000000");
    QProcess stranger;
    stranger.start("bash",
                   {"-c", QStringLiteral("exec 3<>/dev/tcp/%1/%2 && printf '\\5\\1\\0' >&3 && head -c 2 <&3 | wc -c")
                              .arg(DoorHost())
                              .arg(DoorPort())});
    ASSERT_TRUE(test::WaitFor([&] { return stranger.state() == QProcess::NotRunning; }));
    EXPECT_EQ(stranger.readAllStandardOutput().trimmed(), "0") << "nobody else passes";
    Show(Write("a.html", Page("near", "x")));
    EXPECT_TRUE(test::WaitFor([&] { return AnswerOfDoor(server_.Port()).isEmpty(); })) << "closed again";
}

}  // namespace
}  // namespace vellum
