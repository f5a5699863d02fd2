#include "browser/browser_surface.h"

#include "tests/browser/browser_fixture.h"

#include <QTcpServer>

#include <csignal>

namespace vellum {
namespace {

class BrowserSurfaceTest : public test::BrowserFixture {};

TEST_F(BrowserSurfaceTest, KnowsNothingBeforeTheFirstPage) {
    EXPECT_TRUE(surface_.IsAvailable());
    EXPECT_EQ(surface_.Title(), "");
    EXPECT_EQ(surface_.Path(), "");
    EXPECT_EQ(surface_.ScrollTop(), 0);
}

TEST_F(BrowserSurfaceTest, TellsTitleAndText) {
    const QString path = Write("a.html", Page("First page", "<p>Gr\xC3\xBC\xC3\x9F Gott</p>"));
    Show(path);
    EXPECT_EQ(surface_.Path(), path);
    EXPECT_EQ(surface_.Title(), "First page");
    QString text;
    test::PageOf(surface_)->toPlainText([&](const QString& read) { text = read; });
    EXPECT_TRUE(test::WaitFor([&] { return text.trimmed() == QString::fromUtf8("Gr\xC3\xBC\xC3\x9F Gott"); }));
}

TEST_F(BrowserSurfaceTest, APageWithoutTitleHasNone) {
    Show(Write("untitled.html", "<html><body>x</body></html>"));
    EXPECT_EQ(surface_.Title(), "");
}

TEST_F(BrowserSurfaceTest, ShowsFilesWithAwkwardNames) {
    Show(Write("100% new #1?.html", Page("Awkward", "x")));
    EXPECT_EQ(surface_.Title(), "Awkward");
}

TEST_F(BrowserSurfaceTest, LoadsThePagesOwnFiles) {
    WritePicture("p.png", Qt::red);
    Write("s.css", "body { background: rgb(0,0,255); }");
    Write("s.js", "document.title = 'by script';");
    Show(Write("a.html", Page("x", "<img src=\"p.png\" style=\"display:block\"/><script src=\"s.js\"></script>",
                              "<link rel=\"stylesheet\" href=\"s.css\"/>")));
    EXPECT_TRUE(WaitForTitle("by script"));
    EXPECT_TRUE(WaitForPixel(5, 5, Qt::red));
    EXPECT_TRUE(WaitForPixel(200, 200, Qt::blue));
}

TEST_F(BrowserSurfaceTest, APageReadsNoOtherFiles) {
    Write("secret.txt", "secret");
    Show(Write("a.html",
               Page("start",
                    "<script>var r=new XMLHttpRequest();r.onload=function(){document.title='read '+r.responseText};"
                    "r.onerror=function(){document.title='refused'};r.open('GET','secret.txt');"
                    "try{r.send()}catch(e){document.title='refused'}</script>")));
    EXPECT_TRUE(WaitForTitle("refused"));
}

TEST_F(BrowserSurfaceTest, TheSamePathShowsWhatIsOnDiskNow) {
    WritePicture("p.png", Qt::red);
    Write("s.css", "body { background: rgb(0,0,255); }");
    const QByteArray body = "<img src=\"p.png\" style=\"display:block\"/>";
    const QByteArray head = "<link rel=\"stylesheet\" href=\"s.css\"/>";
    const QString path = Write("a.html", Page("before", body, head));
    Show(path);
    EXPECT_TRUE(WaitForPixel(5, 5, Qt::red));
    EXPECT_TRUE(WaitForPixel(200, 200, Qt::blue));
    WritePicture("p.png", Qt::green);
    Write("s.css", "body { background: rgb(0,255,255); }");
    Write("a.html", Page("after", body, head));
    Show(path);
    EXPECT_EQ(surface_.Title(), "after");
    EXPECT_TRUE(WaitForPixel(5, 5, Qt::green));
    EXPECT_TRUE(WaitForPixel(200, 200, Qt::cyan));
}

TEST_F(BrowserSurfaceTest, AnotherPageOfTheSameFolderShowsWhatIsOnDiskNow) {
    WritePicture("p.png", Qt::red);
    const QByteArray body = "<img src=\"p.png\" style=\"display:block\"/>";
    Show(Write("a.html", Page("one", body)));
    EXPECT_TRUE(WaitForPixel(5, 5, Qt::red));
    WritePicture("p.png", Qt::green);
    Show(Write("b.html", Page("two", body)));
    EXPECT_EQ(surface_.Title(), "two");
    EXPECT_TRUE(WaitForPixel(5, 5, Qt::green));
}

TEST_F(BrowserSurfaceTest, TellsTheScrollOffset) {
    Show(Write("a.html", Page("x",
                              "<div style=\"height:3000px\">x</div><script>setTimeout(function(){"
                              "window.scrollTo(0,700)},5)</script>")));
    EXPECT_TRUE(test::WaitFor([&] { return surface_.ScrollTop() == 700; })) << surface_.ScrollTop();
    Show(Write("b.html", Page("x", "short")));
    EXPECT_TRUE(test::WaitFor([&] { return surface_.ScrollTop() == 0; })) << surface_.ScrollTop();
}

TEST_F(BrowserSurfaceTest, AMissingFileEndsBadlyAndTheNextOneWell) {
    QSignalSpy complete(&surface_, &BrowserSurface::NavigateComplete);
    surface_.Navigate(directory_.filePath("missing.html"));
    ASSERT_TRUE(test::WaitFor([&] { return !complete.isEmpty(); }));
    EXPECT_FALSE(complete.last().first().toBool());
    Show(Write("a.html", Page("there", "x")));
    EXPECT_EQ(surface_.Title(), "there");
}

TEST_F(BrowserSurfaceTest, OnlyTheLastOfSeveralNavigationsIsReported) {
    Show(Write("a.html", Page("a", "x")));
    QSignalSpy complete(&surface_, &BrowserSurface::NavigateComplete);
    surface_.Navigate(Write("b.html", Page("b", "x")));
    surface_.Navigate(Write("c.html", Page("c", "x")));
    surface_.Navigate(Write("d.html", Page("d", "x")));
    EXPECT_TRUE(WaitForTitle("d"));
    EXPECT_TRUE(test::WaitFor([&] { return !complete.isEmpty(); }));
    EXPECT_EQ(complete.size(), 1);
    EXPECT_TRUE(complete.last().first().toBool());
}

TEST_F(BrowserSurfaceTest, APageThatIsStillLoadingIsOvertaken) {
    QTcpServer server;  // takes connections and never answers them
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    Show(Write("a.html", Page("a", "x")));
    QSignalSpy complete(&surface_, &BrowserSurface::NavigateComplete);
    surface_.Navigate(QStringLiteral("http://127.0.0.1:%1/").arg(server.serverPort()));
    ASSERT_TRUE(test::WaitFor([&] { return server.hasPendingConnections(); }));
    const QString path = Write("b.html", Page("b", "x"));
    for (int round = 0; round < 5; ++round) surface_.Navigate(path);
    ASSERT_TRUE(test::WaitFor([&] { return !complete.isEmpty(); }));
    EXPECT_EQ(surface_.Title(), "b");
    EXPECT_EQ(complete.size(), 1);
    EXPECT_TRUE(complete.first().first().toBool());
}

TEST_F(BrowserSurfaceTest, NavigationsInARowEndWithTheLastWhereverTheyMeet) {
    for (int round = 0; round < 30; ++round) {
        surface_.Navigate(Write("a.html", Page("early", "x")));
        test::WaitFor([] { return false; }, round);  // the next one meets it at another point every time
        QSignalSpy complete(&surface_, &BrowserSurface::NavigateComplete);
        const QByteArray title = "round " + QByteArray::number(round);
        surface_.Navigate(Write("a.html", Page(title, "x")));
        ASSERT_TRUE(WaitForTitle(title)) << round;
        ASSERT_TRUE(test::WaitFor([&] { return !complete.isEmpty(); })) << round;
    }
}

TEST_F(BrowserSurfaceTest, KeepsTheOldPictureUntilTheNewOneIsThere) {
    const QByteArray paint = "<style>body{background:rgb(255,0,0)}</style>";
    Show(Write("a.html", Page("a", "x", paint)));
    ASSERT_TRUE(WaitForPixel(200, 200, Qt::red));
    ASSERT_TRUE(test::WaitFor([&] { return !CurtainDown(); }));
    bool blank = false;
    bool covered = false;
    QTimer watcher;
    QObject::connect(&watcher, &QTimer::timeout, [&] {
        blank = blank || Pixel(200, 200) != QColor(Qt::red);
        covered = covered || CurtainDown();
    });
    watcher.start(0);
    Show(Write("b.html", Page("b", "y", paint)));
    EXPECT_TRUE(test::WaitFor([&] { return covered && !CurtainDown(); }));
    EXPECT_FALSE(blank);
}

TEST_F(BrowserSurfaceTest, TheOldPictureDoesNotWaitForAPageThatNeverEnds) {
    Show(Write("a.html", Page("a", "x")));
    const QSignalSpy complete(&surface_, &BrowserSurface::NavigateComplete);
    surface_.Navigate(Write("b.html", Page("b", "<script>while(true);</script>")));
    ASSERT_TRUE(test::WaitFor([&] { return CurtainDown(); }));
    EXPECT_TRUE(test::WaitFor([&] { return !CurtainDown(); }));
    EXPECT_TRUE(complete.isEmpty());
}

TEST_F(BrowserSurfaceTest, LeavesTheKeyboardWhereItIs) {
    Show(Write("a.html", Page("a",
                              "<input id=\"i\" autofocus=\"autofocus\"/><script>window.focus();"
                              "document.getElementById('i').focus()</script>")));
    Show(Write("b.html", Page("b", "<input autofocus=\"autofocus\"/>")));
    EXPECT_EQ(QApplication::focusWidget(), &line_);
    EXPECT_FALSE(surface_.HasKeyboard());
    QTest::keyClicks(QApplication::focusWidget(), "typed");
    EXPECT_EQ(line_.text(), "typed");
    Click(100, 100);
    EXPECT_TRUE(test::WaitFor([&] { return surface_.HasKeyboard(); }));
    line_.setFocus();
    EXPECT_FALSE(surface_.HasKeyboard());
    EXPECT_EQ(QApplication::focusWidget(), &line_);
}

TEST_F(BrowserSurfaceTest, AnEndlessScriptStallsNeitherTheProgramNorTheNextPage) {
    Show(Write("a.html", Page("a", "x")));
    surface_.Navigate(Write("b.html", Page("b", "<script>while(true);</script>")));
    ASSERT_TRUE(WaitForTitle("b"));
    const qint64 hanging = RendererProcess();
    ASSERT_GT(hanging, 0);
    EXPECT_TRUE(ProgramGoesOn());
    EXPECT_EQ(RendererProcess(), hanging);
    EXPECT_EQ(surface_.ScrollTop(), 0);
    Show(Write("c.html", Page("good", "x")));
    EXPECT_EQ(surface_.Title(), "good");
    EXPECT_NE(RendererProcess(), hanging);
    EXPECT_TRUE(test::WaitFor([&] { return ::kill(static_cast<pid_t>(hanging), 0) != 0; }));
}

TEST_F(BrowserSurfaceTest, AScriptThatHangsAfterLoadingIsGivenUpToo) {
    Show(Write("a.html", Page("a",
                              "<script>setTimeout(function(){document.title='hung';setTimeout(function(){"
                              "while(true);},0)},20)</script>")));
    ASSERT_TRUE(WaitForTitle("hung"));
    Show(Write("b.html", Page("good", "x")));
    EXPECT_EQ(surface_.Title(), "good");
}

TEST_F(BrowserSurfaceTest, APageThatHangsAfterItsLastSignOfLifeIsGivenUpToo) {
    // Asked for a sign of life, the page gives it and then hangs before the next one can come.
    Show(Write("a.html", Page("a", "<script>window.addEventListener('pagehide',function(){while(true);});</script>")));
    Show(Write("b.html", Page("good", "x")));
    EXPECT_EQ(surface_.Title(), "good");
}

TEST_F(BrowserSurfaceTest, AlertsAreShownQuietly) {
    Show(Write("a.html", Page("a",
                              "<script>alert('Saluton');document.title=prompt('?','initial')+confirm('!')"
                              "</script>")));
    EXPECT_TRUE(WaitForTitle("initialtrue"));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_TRUE(surface_.findChild<QWidget*>("note")->isVisible());
    Show(Write("b.html", Page("b", "x")));
    EXPECT_FALSE(surface_.findChild<QWidget*>("note")->isVisible());
}

TEST_F(BrowserSurfaceTest, AnEndlessAlertLoopStallsNothing) {
    surface_.Navigate(Write("a.html", Page("a", "<script>while(true)alert('again');</script>")));
    ASSERT_TRUE(WaitForTitle("a"));
    EXPECT_TRUE(test::WaitFor([&] { return RendererProcess() == 0; })) << "stopped, lest it keeps this thread busy";
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    Show(Write("b.html", Page("good", "x")));
    EXPECT_EQ(surface_.Title(), "good");
}

TEST_F(BrowserSurfaceTest, AnEndlessConsoleLoopStallsNothing) {
    Show(Write("a.html", Page("a", "x")));
    surface_.Navigate(Write("b.html", Page("b", "<script>while(true)console.log('again');</script>")));
    EXPECT_TRUE(test::WaitFor([&] { return RendererProcess() == 0; })) << "stopped, lest it keeps this thread busy";
    Show(Write("c.html", Page("good", "x")));
    EXPECT_EQ(surface_.Title(), "good");
}

TEST_F(BrowserSurfaceTest, ACrashedPageIsReplaced) {
    Show(Write("a.html", Page("a", "x")));
    const qint64 process = RendererProcess();
    ASSERT_GT(process, 0);
    ASSERT_EQ(::kill(static_cast<pid_t>(process), SIGKILL), 0);
    ASSERT_TRUE(test::WaitFor([&] { return RendererProcess() == 0; }));
    EXPECT_EQ(surface_.ScrollTop(), 0);
    Show(Write("b.html", Page("good", "x")));
    EXPECT_EQ(surface_.Title(), "good");
}

TEST_F(BrowserSurfaceTest, LocalLinksStayInside) {
    Write("b.html", Page("linked", "x"));
    Show(Write("a.html", Page("a", "<a href=\"b.html\" style=\"display:block;height:100px;background:#0f0\">x</a>")));
    ASSERT_TRUE(WaitForPixel(200, 50, QColor(0, 255, 0)));
    Click(200, 50);
    EXPECT_TRUE(WaitForTitle("linked"));
    EXPECT_TRUE(opened_.addresses.isEmpty());
}

TEST_F(BrowserSurfaceTest, LinksThatLeaveTheSiteOpenOutside) {
    for (const char* target :
         {"href=\"https://example.org/x\"", "href=\"https://example.org/new\" target=\"_blank\""}) {
        opened_.addresses.clear();
        Show(Write("a.html", Page("a", QByteArray("<a ") + target +
                                           " style=\"display:block;height:100px;background:#0f0\">x</a>")));
        ASSERT_TRUE(WaitForPixel(200, 50, QColor(0, 255, 0)));
        ASSERT_TRUE(test::WaitFor([&] { return !CurtainDown(); }));
        Click(200, 50);
        EXPECT_TRUE(test::WaitFor([&] { return opened_.addresses.size() == 1; })) << target;
        EXPECT_EQ(surface_.Title(), "a");
    }
    EXPECT_EQ(opened_.addresses, QStringList{"https://example.org/new"});
}

TEST_F(BrowserSurfaceTest, ScriptsOpenNothingOutside) {
    Show(Write("a.html", Page("a",
                              "<a id=\"l\" href=\"https://example.org/\">x</a><script>setTimeout(function(){"
                              "window.open('https://example.org/2');document.getElementById('l').click();"
                              "location.href='https://example.org/3';setTimeout(function(){document.title='done'},200)"
                              "},10)</script>")));
    EXPECT_TRUE(WaitForTitle("done"));
    EXPECT_TRUE(opened_.addresses.isEmpty()) << opened_.addresses.join(' ').toStdString();
}

TEST_F(BrowserSurfaceTest, DownloadsAreRefused) {
    Write("b.zip", "PK");
    const QStringList before = QDir(directory_.path()).entryList();
    Show(Write("a.html", Page("a",
                              "<script>setTimeout(function(){location.href='b.zip';setTimeout(function(){"
                              "document.title='done'},300)},10)</script>")));
    EXPECT_TRUE(WaitForTitle("done"));
    EXPECT_EQ(QDir(directory_.path()).entryList().size(), before.size() + 1);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(BrowserSurfaceWithoutEngineTest, SaysSoQuietlyAndDoesNothing) {
    qputenv("VELLUMCRAFT_NO_BROWSER", "1");
    BrowserSurface surface;
    surface.show();
    EXPECT_FALSE(surface.IsAvailable());
    EXPECT_TRUE(surface.findChild<QWidget*>("note")->isVisible());
    QSignalSpy complete(&surface, &BrowserSurface::NavigateComplete);
    surface.Navigate("/nowhere.html");
    EXPECT_TRUE(complete.isEmpty());
    EXPECT_TRUE(test::WaitFor([&] { return complete.size() == 1; }));
    EXPECT_FALSE(complete.first().first().toBool());
    EXPECT_EQ(surface.Title(), "");
    EXPECT_EQ(surface.ScrollTop(), 0);
    qunsetenv("VELLUMCRAFT_NO_BROWSER");
}

TEST(EngineSwitchesTest, RootRunsWithoutTheSandbox) {
    EXPECT_TRUE(EngineSwitches({.root = true}).contains("--no-sandbox"));
    EXPECT_FALSE(EngineSwitches({.root = false}).contains("--no-sandbox"));
    EXPECT_FALSE(EngineSwitches({.root = true, .sandboxOff = true}).contains("--no-sandbox"));
}

TEST(EngineSwitchesTest, GraphicsAreUsedWhereTheyAre) {
    EXPECT_FALSE(EngineSwitches({.graphics = true}).contains("--disable-gpu"));
    EXPECT_TRUE(EngineSwitches({.graphics = false}).contains("--disable-gpu"));
}

TEST(EngineSwitchesTest, APersonsSwitchesStay) {
    const QByteArray switches =
        EngineSwitches({.root = true, .graphics = false, .switches = "--no-sandbox --use-gl=egl --x"});
    EXPECT_TRUE(switches.startsWith("--no-sandbox --use-gl=egl --x "));
    EXPECT_EQ(switches.count("--no-sandbox"), 1);
    EXPECT_FALSE(switches.contains("--disable-gpu"));
}

TEST(EngineSwitchesTest, TheDoorIsTheOnlyWayToTheNetwork) {
    const QByteArray switches = EngineSwitches({.door = "127.1.2.3:4"});
    EXPECT_TRUE(switches.contains("--proxy-server=socks5://127.1.2.3:4 --proxy-bypass-list=<-loopback> "));
    EXPECT_TRUE(switches.contains("--host-resolver-rules=\"MAP * ~NOTFOUND, EXCLUDE 127.1.2.3\""));
    EXPECT_TRUE(switches.contains("--force-webrtc-ip-handling-policy=disable_non_proxied_udp"));
    const QByteArray insisted = EngineSwitches({.switches = "--proxy-server=mine", .door = "127.1.2.3:4"});
    EXPECT_GT(insisted.lastIndexOf("--proxy-server=socks5://127.1.2.3:4"), insisted.indexOf("--proxy-server=mine"));
    EXPECT_EQ(EngineSwitches({.switches = switches, .door = "127.1.2.3:4"}), switches);
}

TEST(EngineSwitchesTest, LocalPagesAreKeptApartBesideAPersonsSettings) {
    const QByteArray apart = "allowFileAccessFromFileURLs=false";
    EXPECT_TRUE(EngineSwitches({}).endsWith(" --blink-settings=" + apart));
    EXPECT_TRUE(EngineSwitches({.switches = "--blink-settings=a=1,b"}).endsWith(" --blink-settings=a=1,b," + apart));
    const QByteArray once = EngineSwitches({.switches = "--blink-settings=allowFileAccessFromFileURLs=true"});
    EXPECT_TRUE(once.endsWith("=true," + apart));
    EXPECT_EQ(EngineSwitches({.switches = once}), once);
}

TEST(EngineSwitchesTest, NothingIsAskedOfTheNetworkInTheBackground) {
    EXPECT_TRUE(EngineSwitches({}).contains("--disable-background-networking"));
}

}  // namespace
}  // namespace vellum
