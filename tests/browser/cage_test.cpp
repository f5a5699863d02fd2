// Local pages in their cage: nothing gets out, nothing is read, and a site shows as in a browser.
#include "browser/net_door.h"
#include "files/file_names.h"
#include "files/safe_write.h"
#include "tests/browser/browser_fixture.h"
#include "tests/browser/listener.h"
#include "tests/browser/network_calls.h"
#include "tests/support/remove_all.h"

#include <QDirIterator>
#include <QtEndian>

#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

namespace vellum {
namespace {

using test::Listener;
using test::NetworkCalls;

// A second of silence at 8000 samples a second.
QByteArray Sound() {
    constexpr quint32 samples = 8000;
    const auto number = [](auto value) {
        value = qToLittleEndian(value);
        return QByteArray(reinterpret_cast<const char*>(&value), sizeof value);
    };
    return "RIFF" + number(36 + samples) + "WAVEfmt " + number(quint32(16)) + number(quint16(1)) + number(quint16(1)) +
           number(samples) + number(samples) + number(quint16(1)) + number(quint16(8)) + "data" + number(samples) +
           QByteArray(samples, '\x80');
}

class CageTest : public test::BrowserFixture {
protected:
    void SetUp() override {
        BrowserFixture::SetUp();
        for (const char* folder : {"site", "other", "images", "styles", "scripts"})
            QDir(directory_.path()).mkdir(folder);
    }

    void TearDown() override { test::RemoveAll(directory_.path()); }

    // Writes files that hold secrets, and pages that spy on them, around site/every_way.html.
    void WriteSecrets() const {
        Write("site/secret.txt", "SECRETVALUE");
        Write("other/secret.txt", "SECRETVALUE");
        Write("site/secret.html", "<html><body>SECRET page</body></html>");
        Write("site/secret.json", R"({"name": "SECRET"})");
        Write("site/secret.css", ".SECRET { color: red }");
        Write("site/secret.js", "// SECRET");
        Write("site/secret.svg", R"(<svg xmlns="http://www.w3.org/2000/svg"><text y="20">SECRET</text></svg>)");
        Write("site/secret.xml", "<a>SECRET</a>");
        Write("site/secret.vtt", "WEBVTT\n\n00:00.000 --> 00:10.000\nSECRET cue\n");
        Write("site/secret.wav", Sound());
        WritePicture("site/secret.png", QColor(12, 34, 56));
        QFile::link(directory_.filePath("other/secret.txt"), directory_.filePath("site/link.txt"));
        ::mkfifo(QFile::encodeName(directory_.filePath("site/pipe")).constData(), 0600);
        Write("site/entity.xhtml",
              "<!DOCTYPE html [<!ENTITY secret SYSTEM \"secret.txt\">]><html xmlns=\"http://www.w3.org/1999/xhtml\">"
              "<body><p>&secret;</p><script>parent.postMessage(document.documentElement.textContent.replace("
              "'/SECRET/', ''), '*')</script></body></html>");
        Write("site/transformed.xml", "<?xml-stylesheet type=\"text/xsl\" href=\"spy.xsl\"?><a/>");
        Write("site/spy.xsl",
              "<x:stylesheet version=\"1.0\" xmlns:x=\"http://www.w3.org/1999/XSL/Transform\"><x:template match=\"/\">"
              "<html><body><p><x:value-of select=\"document('secret.xml')\"/></p><script>parent.postMessage("
              "document.body.innerText, '*')</script></body></html></x:template></x:stylesheet>");
    }

    // The page that tries each way, made for this folder and that listener.
    QString WriteEveryWay(quint16 port) const {
        QFile source(VELLUM_SOURCE_DIR "/tests/browser/ways/every_way.html");
        EXPECT_TRUE(source.open(QIODevice::ReadOnly));
        const QByteArray site = directory_.filePath("site").toUtf8();
        return Write("site/every_way.html", source.readAll()
                                                .replace("SITEPATH", site)
                                                .replace("SITE/", "file://" + site + "/")
                                                .replace("PORT", QByteArray::number(port)));
    }

    // What has become of the page's tries, and that nothing has come of them. A person presses a button in the page
    // meanwhile, again and again, though on no link.
    void ExpectNoWay(const Listener& listener, const NetworkCalls& calls) {
        surface_.Navigate(WriteEveryWay(listener.Port()));
        QTimer person;
        QObject::connect(&person, &QTimer::timeout, [&] { Click(100, 20); });
        person.start(300);
        ASSERT_TRUE(test::WaitFor([&] { return surface_.Title().startsWith("done"); }, 60000))
            << surface_.Title().toStdString();
        person.stop();
        QStringList connections = calls.Connections();
        connections.removeAll(QString::fromLatin1(DoorAddress()));
        const QStringList words = surface_.Title().split(' ');
        const auto packets = connections.size() + calls.Datagrams() + calls.LookUps().size() + listener.Connections() +
                             listener.Datagrams();
        std::printf("ways: %s, packets: %d, characters: %s\n", qPrintable(words.value(1)), int(packets),
                    qPrintable(words.value(2)));
        EXPECT_GT(words.value(1).toInt(), 100);
        EXPECT_EQ(words.value(2), "0");
        EXPECT_EQ(listener.Connections(), 0) << listener.Requests().join('\n').toStdString();
        EXPECT_EQ(listener.Datagrams(), 0);
        EXPECT_EQ(connections, QStringList());
        EXPECT_EQ(calls.Datagrams(), 0);
        EXPECT_EQ(calls.LookUps(), QStringList());
        EXPECT_EQ(opened_.addresses, QStringList());
    }

    // The title that a page in "site" gives itself once it has loaded a picture from an address, or has not.
    QString OutcomeOf(const QByteArray& address) {
        Show(Write("site/outcome.html", Page("busy", "<img src=\"" + address +
                                                         "\" onload=\"document.title='shown'\""
                                                         " onerror=\"document.title='refused'\"/>")));
        EXPECT_TRUE(test::WaitFor([&] { return surface_.Title() != "busy"; }));
        return surface_.Title();
    }

    // True when nothing but white is painted there.
    bool IsBlank(const QRect& area) {
        const QImage picture = surface_.grab(area).toImage();
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (picture.pixelColor(x, y) != QColor(Qt::white)) return false;
        return true;
    }

    QByteArray AddressOf(const QString& name) const {
        return QUrl::fromLocalFile(directory_.filePath(name)).toEncoded();
    }
};

TEST_F(CageTest, NothingGetsOutAndNothingIsRead) {
    const Listener listener;
    ASSERT_TRUE(listener.IsGood());
    WriteSecrets();
    const NetworkCalls calls;
    ExpectNoWay(listener, calls);
}

TEST_F(CageTest, APageOfTheNetBesideItOpensNoWayForALocalOne) {
    Listener net;
    const Listener listener;
    ASSERT_TRUE(net.IsGood() && listener.IsGood());
    net.Answer("/",
               "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n\r\n<title>far</title>"
               "<link rel=\"icon\" href=\"data:,\">");
    BrowserSurface beside(&window_);
    beside.Navigate(QStringLiteral("http://127.0.0.1:%1/").arg(net.Port()));
    ASSERT_TRUE(test::WaitFor([&] { return beside.Title() == "far"; }));
    WriteSecrets();
    const int connections = net.Connections();
    const NetworkCalls calls;
    ExpectNoWay(listener, calls);
    EXPECT_EQ(net.Connections(), connections);
}

TEST_F(CageTest, WhatTheTestsListenForIsHeard) {
    const Listener listener;
    ASSERT_TRUE(listener.IsGood());
    const NetworkCalls calls;
    QTcpSocket socket;
    socket.connectToHost("heard.test", listener.Port());
    EXPECT_TRUE(test::WaitFor([&] { return listener.Connections() == 1; }));
    QUdpSocket datagram;
    datagram.writeDatagram("x", QHostAddress::LocalHost, listener.Port());
    EXPECT_TRUE(test::WaitFor([&] { return listener.Datagrams() == 1; }));
    EXPECT_EQ(calls.LookUps(), QStringList{"heard.test"});
    EXPECT_TRUE(calls.Connections().contains(QStringLiteral("127.0.0.1:%1").arg(listener.Port())));
    EXPECT_EQ(calls.Datagrams(), 1);
}

TEST_F(CageTest, ASiteShowsItsPictures) {
    WritePicture("images/red.png", Qt::red);
    WritePicture("images/100% b#\u00FC?.png", Qt::green);
    ASSERT_TRUE(QFile::link(directory_.filePath("images/red.png"), directory_.filePath("site/link.png")));
    const QByteArray awkward = "../images/100%25%20b%23\xC3\xBC%3F.png?query#fragment";
    Show(Write("site/a.html",
               Page("a",
                    "<img src=\"../images/red.png\"/><img src=\"..\\images\\red.png\"/><img src=\"" +
                        AddressOf("images/red.png") + "\"/><img src=\"link.png\"/><img src=\"" + awkward + "\"/>",
                    "<meta charset=\"utf-8\"/><style>img{display:block}</style>")));
    for (const int y : {10, 30, 50, 70}) EXPECT_TRUE(WaitForPixel(5, y, Qt::red)) << y;
    EXPECT_TRUE(WaitForPixel(5, 90, Qt::green));
}

TEST_F(CageTest, AFileNameInAnotherEncodingShows) {
    WritePicture("images/red.png", Qt::red);
    const QByteArray folder = QFile::encodeName(directory_.path()) + "/images/";
    ASSERT_EQ(::rename((folder + "red.png").constData(), (folder + "r\xF6t.png").constData()), 0);
    EXPECT_EQ(OutcomeOf("../images/r%F6t.png"), "shown");
}

TEST_F(CageTest, AFolderWhoseNameIsNoTextShows) {
    const QByteArray folder = QFile::encodeName(directory_.path()) + "/caf\xE9 %E9\xC3\xBC";
    ASSERT_EQ(::mkdir(folder.constData(), 0700), 0);
    WritePicture("red.png", Qt::red);
    ASSERT_EQ(
        ::rename(QFile::encodeName(directory_.filePath("red.png")).constData(), (folder + "/red.png").constData()), 0);
    const QString page = DecodeFileName(folder + "/a.html");
    ASSERT_TRUE(WriteFileSafely(
        page, Page("a", "<img src=\"red.png\" style=\"display:block\"/><script src=\"s.js\"></script>")));
    ASSERT_TRUE(WriteFileSafely(DecodeFileName(folder + "/s.js"), "document.title += ' script'"));
    Show(page);
    EXPECT_TRUE(WaitForTitle("a script")) << surface_.Title().toStdString();
    EXPECT_TRUE(WaitForPixel(5, 5, Qt::red));
    Show(page);
    EXPECT_TRUE(WaitForTitle("a script")) << "once more in the same process";
}

TEST_F(CageTest, ASiteShowsItsStylesFramesAndScripts) {
    WritePicture("images/blue.png", Qt::blue);
    Write("styles/s.css", "@import url(more.css); body { background: url(../images/blue.png) }");
    Write("styles/more.css", "iframe { display: block; border: 0; height: 100px }");
    Write("site/frame.html", "<body bgcolor=\"lime\"></body>");
    Write("scripts/classic.js", "document.title += ' classic';");
    Write("scripts/module.js", "import { word } from './parts/part.mjs'; document.title += word;");
    QDir(directory_.path()).mkpath("scripts/parts");
    Write("scripts/parts/part.mjs",
          "export const word = ' m\xC3\xB6"
          "dule';");
    Show(Write("site/a.html", Page("a",
                                   "<iframe src=\"frame.html\"></iframe><script src=\"../scripts/classic.js\"></script>"
                                   "<script type=\"module\" src=\"../scripts/module.js\"></script>",
                                   "<meta charset=\"utf-8\"/><link rel=\"stylesheet\" href=\"../styles/s.css\"/>")));
    EXPECT_TRUE(
        WaitForTitle(QString::fromUtf8("a classic m\xC3\xB6"
                                       "dule")))
        << surface_.Title().toStdString();
    EXPECT_TRUE(WaitForPixel(20, 50, QColor(0, 255, 0)));
    EXPECT_TRUE(WaitForPixel(200, 200, Qt::blue));
}

TEST_F(CageTest, ScriptsKeepTheEncodingOfThePage) {
    Write("site/s.js", "document.title = '\xE4';");
    Show(Write("site/a.html", Page("a", "<script src=\"s.js\"></script>", "<meta charset=\"windows-1252\"/>")));
    EXPECT_TRUE(WaitForTitle(QString::fromUtf8("\xC3\xA4"))) << surface_.Title().toStdString();
}

TEST_F(CageTest, ASiteHasItsFontsAndSounds) {
    QDirIterator fonts("/usr/share/fonts", {"*.ttf"}, QDir::Files, QDirIterator::Subdirectories);
    ASSERT_TRUE(fonts.hasNext()) << "no font to try";
    ASSERT_TRUE(QFile::copy(fonts.next(), directory_.filePath("styles/f.ttf")));
    Write("images/s.wav", Sound());
    Show(
        Write("site/a.html",
              Page("a",
                   "<audio src=\"../images/s.wav\" onloadedmetadata=\"document.title+=' '+this.duration\"></audio>"
                   "<script>document.fonts.load('20px F').then(function(all){document.title+=' '+all.length})</script>",
                   "<style>@font-face{font-family:F;src:url(../styles/f.ttf)}</style>")));
    EXPECT_TRUE(test::WaitFor([&] { return QSet<QString>({"a 1 1"}).contains(surface_.Title()); }))
        << surface_.Title().toStdString();
}

TEST_F(CageTest, FramesOfASetLeadEachOther) {
    Write("site/menu.html", "<script>setTimeout(function(){parent.frames.main.location='two.html'},50)</script>");
    Write("site/one.html", "<body bgcolor=\"red\"></body>");
    Write("site/two.html", "<body bgcolor=\"lime\"></body>");
    Show(Write(
        "site/a.html",
        "<html><frameset rows=\"20,*\" border=\"0\"><frame src=\"menu.html\"/><frame name=\"main\" src=\"one.html\"/>"
        "</frameset></html>"));
    EXPECT_TRUE(WaitForPixel(200, 200, QColor(0, 255, 0)));
}

TEST_F(CageTest, PagesOfASiteShareTheirStorage) {
    Show(Write("site/a.html", Page("a", "<script>localStorage.word='kept'</script>")));
    Show(Write("site/b.html", Page("b", "<script>document.title=localStorage.word</script>")));
    EXPECT_TRUE(WaitForTitle("kept"));
}

TEST_F(CageTest, HiddenFilesOfTheHomeFolderDoNotShow) {
    const QDir home = QDir::home();
    ASSERT_TRUE(home.mkpath(".hidden/deep") && home.mkpath("open"));
    WritePicture("p.png", Qt::red);
    for (const char* name : {".hidden/deep/p.png", "open/.p.png", "open/p.png"}) {
        QFile::remove(home.filePath(name));
        ASSERT_TRUE(QFile::copy(directory_.filePath("p.png"), home.filePath(name))) << name;
    }
    ASSERT_TRUE(QFile::link(home.filePath(".hidden"), directory_.filePath("site/link")));
    const auto address = [&](const char* name) { return QUrl::fromLocalFile(home.filePath(name)).toEncoded(); };
    EXPECT_EQ(OutcomeOf(address(".hidden/deep/p.png")), "refused");
    EXPECT_EQ(OutcomeOf(address("open/.p.png")), "refused");
    EXPECT_EQ(OutcomeOf("link/deep/p.png"), "refused");
    EXPECT_EQ(OutcomeOf(address("open/p.png")), "shown");
}

TEST_F(CageTest, SystemFilesAndWhatIsNoFileDoNotShowInFrames) {
    ASSERT_EQ(::mkfifo(QFile::encodeName(directory_.filePath("site/pipe")).constData(), 0600), 0);
    Write("site/plain.txt", "plain");
    const QByteArray style = "<style>iframe{display:block;border:0;height:40px;width:300px}</style>";
    for (const char* address :
         {"file:///etc/passwd", "file:///proc/self/environ", "file:///dev/null", "pipe", ".", "../"}) {
        Show(Write("site/a.html", Page(address,
                                       QByteArray("<iframe src=\"") + address +
                                           "\"></iframe>"
                                           "<iframe src=\"plain.txt\"></iframe>",
                                       style)));
        EXPECT_TRUE(test::WaitFor([&] { return !IsBlank({0, 40, 300, 40}); })) << "the other frame shows";
        EXPECT_TRUE(IsBlank({0, 0, 300, 40})) << address;
    }
}

TEST_F(CageTest, APipeIsNoPage) {
    const QString pipe = directory_.filePath("pipe.html");
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QSignalSpy complete(&surface_, &BrowserSurface::NavigateComplete);
    surface_.Navigate(pipe);
    ASSERT_TRUE(test::WaitFor([&] { return !complete.isEmpty(); }));
    EXPECT_FALSE(complete.last().first().toBool());
}

}  // namespace
}  // namespace vellum
